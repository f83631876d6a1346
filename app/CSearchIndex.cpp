#include "app/CSearchIndex.h"

#include "query/CJumpIndex.h"

CSearchIndex::CSearchIndex(const CLogbookDoc& doc) : m_doc(doc)
{
}

CSearchIndex::~CSearchIndex() = default;

const CJumpIndex& CSearchIndex::Get() const
{
    if (!m_index)
        m_index = std::make_unique<CJumpIndex>(m_doc);
    return *m_index;
}

void CSearchIndex::JumpsInserted(std::size_t first, std::size_t count)
{
    if (m_index)
        m_index->JumpsInserted(first, count);
}

void CSearchIndex::JumpsChanged(std::size_t first, std::size_t count)
{
    if (m_index)
        m_index->JumpsChanged(first, count);
}

void CSearchIndex::JumpsRemoved(std::size_t first, std::size_t count)
{
    if (m_index)
        m_index->JumpsRemoved(first, count);
}

void CSearchIndex::JumpMoved(std::size_t from, std::size_t to)
{
    if (m_index)
        m_index->JumpMoved(from, to);
}

void CSearchIndex::SettingsChanged()
{
    if (m_index)
        m_index->SettingsChanged();
}

void CSearchIndex::LogbookReset()
{
    // Another logbook: the next search indexes it.
    m_index.reset();
}
