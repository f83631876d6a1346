#include "editing/CPickList.h"

#include <algorithm>

bool CPickList::Add(std::string_view text)
{
    if (text.empty())
        return false;
    auto [it, added] = m_seen.emplace(text);
    if (added)
        m_items.push_back(*it);
    return added;
}

void CPickList::Sort()
{
    std::sort(m_items.begin(), m_items.end());
}
