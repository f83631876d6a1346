#include "editing/TrimBlanks.h"

std::string TrimBlanks(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    const std::size_t last = text.find_last_not_of(blanks);
    return std::string(text.substr(first, last - first + 1));
}
