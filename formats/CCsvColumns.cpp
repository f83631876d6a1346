#include "formats/CCsvColumns.h"

#include "tracks/TrackText.h"

namespace {

// Calls visit(position, field) for each field of the line after its first skip fields.
template <typename Visit>
std::size_t ForEachField(std::string_view line, std::size_t skip, Visit visit)
{
    std::size_t index = 0;
    std::size_t start = 0;
    for (;;) {
        const std::size_t comma = line.find(',', start);
        const std::size_t end = comma == std::string_view::npos ? line.size() : comma;
        if (index >= skip)
            visit(index - skip, line.substr(start, end - start));
        ++index;
        if (comma == std::string_view::npos)
            return index > skip ? index - skip : 0;
        start = comma + 1;
    }
}

} // namespace

CCsvColumns::CCsvColumns(const std::string_view* names, std::size_t count)
    : m_names(names), m_count(count < kMaxWanted ? count : kMaxWanted)
{
    for (int& position : m_positionOf)
        position = -1;
}

std::size_t CCsvColumns::ReadHeader(std::string_view line, std::size_t skip)
{
    m_wantedAt.clear();
    for (int& position : m_positionOf)
        position = -1;
    m_fieldsNeeded = 0;
    std::size_t found = 0;
    ForEachField(line, skip, [&](std::size_t position, std::string_view field) {
        field = TrimField(field);
        int wanted = -1;
        for (std::size_t i = 0; i < m_count; ++i) {
            // The first column of a name counts; a repeated name is left alone.
            if (m_positionOf[i] < 0 && EqualNoCase(field, m_names[i])) {
                wanted = static_cast<int>(i);
                m_positionOf[i] = static_cast<int>(position);
                m_fieldsNeeded = position + 1;
                ++found;
                break;
            }
        }
        m_wantedAt.push_back(wanted);
    });
    m_hasHeader = true;
    return found;
}

std::size_t CCsvColumns::ReadRow(std::string_view line, std::size_t skip, std::string_view* values) const
{
    for (std::size_t i = 0; i < m_count; ++i)
        values[i] = {};
    return ForEachField(line, skip, [&](std::size_t position, std::string_view field) {
        if (position < m_wantedAt.size() && m_wantedAt[position] >= 0)
            values[m_wantedAt[position]] = TrimField(field);
    });
}
