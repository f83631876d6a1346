#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// Where the wanted columns of a comma-separated file sit, found by the names of its header line,
// so that rows are read by column name whatever the order and however many other columns the
// logger adds. Names are matched without regard to case.
class CCsvColumns
{
public:
    // The most columns one layout can want.
    static constexpr std::size_t kMaxWanted = 16;

    // Wants the given column names; the array must outlive this object.
    CCsvColumns(const std::string_view* names, std::size_t count);

    // Takes the column names of a header line after its first skip fields (a FlySight 2 "$COL"
    // line starts with "$COL" and the sentence name). Returns how many wanted names it found.
    std::size_t ReadHeader(std::string_view line, std::size_t skip);
    // True once a header was read.
    bool HasHeader() const { return m_hasHeader; }
    // True when the header names the wanted column.
    bool Has(std::size_t wanted) const { return m_positionOf[wanted] >= 0; }
    // The fields a row must have to reach every wanted column the header names.
    std::size_t FieldsNeeded() const { return m_fieldsNeeded; }

    // Puts the wanted fields of a row (after its first skip fields) into values, trimmed, an
    // empty view for a column the header lacks or the row is too short for. Returns the number
    // of fields the row has after skip.
    std::size_t ReadRow(std::string_view line, std::size_t skip, std::string_view* values) const;

private:
    const std::string_view* m_names;
    std::size_t m_count;
    // Per field position of a row: the wanted column there, or -1.
    std::vector<int> m_wantedAt;
    int m_positionOf[kMaxWanted];
    std::size_t m_fieldsNeeded = 0;
    bool m_hasHeader = false;
};
