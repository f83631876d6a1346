#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

// The entries of an editable drop-down list: each non-empty text once (exact, whole-text
// comparison), in the order they were first added. Adding is a hash look-up, so a list can be
// built in one pass over a large logbook.
class CPickList
{
public:
    // Appends text unless it is empty or already listed; returns whether it was added.
    bool Add(std::string_view text);
    // True when the list holds exactly this text.
    bool Contains(std::string_view text) const { return m_seen.count(std::string(text)) != 0; }
    // Sorts the entries by their bytes (the order a sorted combo shows).
    void Sort();
    const std::vector<std::string>& Items() const { return m_items; }

private:
    std::vector<std::string> m_items;
    std::unordered_set<std::string> m_seen;
};
