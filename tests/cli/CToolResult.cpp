#include "tests/cli/CToolResult.h"

std::vector<std::string> CToolResult::OutLines() const
{
    return Lines(out);
}

std::vector<std::string> CToolResult::ErrLines() const
{
    return Lines(err);
}

std::vector<std::string> CToolResult::Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(std::move(line));
        start = end + 1;
    }
    return lines;
}
