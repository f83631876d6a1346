#pragma once

#include <string>
#include <string_view>

// The text without the blanks (spaces, tabs, line breaks, form feeds) at both ends.
std::string TrimBlanks(std::string_view text);
