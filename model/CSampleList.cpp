#include "model/CSampleList.h"

CSampleList::CSampleList(const CSampleList& other)
{
    Reserve(other.m_size);
    for (std::size_t i = 0; i < other.m_size; ++i)
        Add(*other.At(i));
}

CSampleList& CSampleList::operator=(const CSampleList& other)
{
    if (this != &other) {
        CSampleList copy(other);
        *this = std::move(copy);
    }
    return *this;
}

CSampleList::CSampleList(CSampleList&& other) noexcept
    : m_slots(std::exchange(other.m_slots, nullptr)), m_size(std::exchange(other.m_size, 0)),
      m_capacity(std::exchange(other.m_capacity, 0))
{
}

CSampleList& CSampleList::operator=(CSampleList&& other) noexcept
{
    if (this != &other) {
        DestroyAll();
        delete[] m_slots;
        m_slots = std::exchange(other.m_slots, nullptr);
        m_size = std::exchange(other.m_size, 0);
        m_capacity = std::exchange(other.m_capacity, 0);
    }
    return *this;
}

CSampleList::~CSampleList()
{
    DestroyAll();
    delete[] m_slots;
}

void CSampleList::Add(const CJumpSample& sample)
{
    MakeRoom();
    sample.CopyTo(m_slots[m_size].bytes);
    ++m_size;
}

void CSampleList::Clear()
{
    DestroyAll();
    m_size = 0;
}

void CSampleList::Reserve(std::size_t count)
{
    if (count > m_capacity)
        Relocate(count);
}

void CSampleList::ShrinkToFit()
{
    if (m_size < m_capacity)
        Relocate(m_size);
}

void CSampleList::Relocate(std::size_t capacity)
{
    Slot* slots = capacity == 0 ? nullptr : new Slot[capacity];
    for (std::size_t i = 0; i < m_size; ++i) {
        CJumpSample* sample = At(i);
        sample->CopyTo(slots[i].bytes);
        sample->~CJumpSample();
    }
    delete[] m_slots;
    m_slots = slots;
    m_capacity = capacity;
}

void CSampleList::DestroyAll()
{
    for (std::size_t i = 0; i < m_size; ++i)
        At(i)->~CJumpSample();
}
