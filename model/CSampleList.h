#pragma once

#include "model/CJumpSample.h"

#include <cstddef>
#include <iterator>
#include <new>
#include <utility>

// The samples of a flight recording, held by value in one block of equal slots. Each sample is
// an object of its own type placed in a slot, so it still writes itself and can be cast to its
// type, yet a recording of thousands of waypoints costs one heap block instead of one per
// sample plus a pointer to each. Elements read like the owning pointers they replace.
class CSampleList
{
public:
    // Room of one slot: the largest sample type (a satellite sample) must fit.
    static constexpr std::size_t kSlotSize = 40;

    // One element: a pointer to the sample with the reading interface of an owning pointer.
    class Ref
    {
    public:
        explicit Ref(const CJumpSample* sample) : m_sample(sample) {}
        const CJumpSample* get() const { return m_sample; }
        const CJumpSample* operator->() const { return m_sample; }
        const CJumpSample& operator*() const { return *m_sample; }
        explicit operator bool() const { return m_sample != nullptr; }

    private:
        const CJumpSample* m_sample;
    };

    // Walks the samples in order.
    class Iterator
    {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Ref;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = Ref;

        Iterator(const CSampleList* list, std::size_t index) : m_list(list), m_index(index) {}
        Ref operator*() const { return (*m_list)[m_index]; }
        Iterator& operator++()
        {
            ++m_index;
            return *this;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_index == b.m_index; }

    private:
        const CSampleList* m_list;
        std::size_t m_index;
    };

    CSampleList() = default;
    // Copies every sample as its own type.
    CSampleList(const CSampleList& other);
    CSampleList& operator=(const CSampleList& other);
    CSampleList(CSampleList&& other) noexcept;
    CSampleList& operator=(CSampleList&& other) noexcept;
    ~CSampleList();

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    Ref operator[](std::size_t index) const { return Ref(At(index)); }
    Iterator begin() const { return Iterator(this, 0); }
    Iterator end() const { return Iterator(this, m_size); }
    // The last sample for changing it while it is being read; null when there is none.
    CJumpSample* Last() { return m_size == 0 ? nullptr : At(m_size - 1); }

    // Constructs a sample of type T at the end and returns it.
    template <typename T, typename... Args>
    T& Emplace(Args&&... args)
    {
        static_assert(sizeof(T) <= kSlotSize && alignof(T) <= alignof(Slot), "a sample type must fit a slot");
        MakeRoom();
        T* sample = ::new (static_cast<void*>(m_slots[m_size].bytes)) T(std::forward<Args>(args)...);
        ++m_size;
        return *sample;
    }
    // Appends a copy of sample, of the sample's own type.
    void Add(const CJumpSample& sample);
    // Removes every sample; the block is kept for the next ones.
    void Clear();
    // Makes room for count samples in all.
    void Reserve(std::size_t count);
    // Gives back the room beyond the samples held.
    void ShrinkToFit();

private:
    struct alignas(8) Slot
    {
        unsigned char bytes[kSlotSize];
    };

    // Every sample type derives from CJumpSample alone, so the sample starts the slot.
    CJumpSample* At(std::size_t index) const
    {
        return std::launder(reinterpret_cast<CJumpSample*>(m_slots[index].bytes));
    }
    void MakeRoom()
    {
        if (m_size == m_capacity)
            Relocate(m_capacity == 0 ? 16 : m_capacity * 2);
    }
    // Moves the samples into a block of capacity slots.
    void Relocate(std::size_t capacity);
    void DestroyAll();

    Slot* m_slots = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};
