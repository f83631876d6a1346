#pragma once

#include "model/CJump.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

// The document's jumps as a caller sees them: in list order and read-only. Iterating gives
// const CJump pointers, so `for (const auto& jump : doc.GetJumps()) jump->GetNumber()` reads a
// jump while nothing outside the document can change one.
class CJumpRange
{
    using Storage = std::vector<std::unique_ptr<CJump>>;

public:
    class Iterator
    {
    public:
        using iterator_category = std::random_access_iterator_tag;
        using value_type = const CJump*;
        using difference_type = std::ptrdiff_t;
        using pointer = const CJump* const*;
        using reference = const CJump*;

        Iterator() = default;
        explicit Iterator(Storage::const_iterator at) : m_at(at) {}
        const CJump* operator*() const { return m_at->get(); }
        const CJump* operator[](difference_type n) const { return m_at[n].get(); }
        Iterator& operator++()
        {
            ++m_at;
            return *this;
        }
        Iterator operator++(int) { return Iterator(m_at++); }
        Iterator& operator--()
        {
            --m_at;
            return *this;
        }
        Iterator operator--(int) { return Iterator(m_at--); }
        Iterator& operator+=(difference_type n)
        {
            m_at += n;
            return *this;
        }
        Iterator& operator-=(difference_type n)
        {
            m_at -= n;
            return *this;
        }
        friend Iterator operator+(Iterator it, difference_type n) { return it += n; }
        friend Iterator operator+(difference_type n, Iterator it) { return it += n; }
        friend Iterator operator-(Iterator it, difference_type n) { return it -= n; }
        friend difference_type operator-(const Iterator& a, const Iterator& b) { return a.m_at - b.m_at; }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_at == b.m_at; }
        friend auto operator<=>(const Iterator& a, const Iterator& b) { return a.m_at <=> b.m_at; }

    private:
        Storage::const_iterator m_at;
    };

    explicit CJumpRange(const Storage& jumps) : m_jumps(&jumps) {}

    Iterator begin() const { return Iterator(m_jumps->begin()); }
    Iterator end() const { return Iterator(m_jumps->end()); }
    std::size_t size() const { return m_jumps->size(); }
    bool empty() const { return m_jumps->empty(); }
    const CJump* operator[](std::size_t index) const { return (*m_jumps)[index].get(); }
    const CJump* front() const { return m_jumps->front().get(); }
    const CJump* back() const { return m_jumps->back().get(); }

private:
    const Storage* m_jumps;
};
