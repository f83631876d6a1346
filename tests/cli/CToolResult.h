#pragma once

#include <string>
#include <vector>

// What one run of the tool gave back.
struct CToolResult
{
    int exitCode = -1;
    bool crashed = false;
    std::string out;
    std::string err;

    // Standard output / standard error split into lines (without the line ends).
    std::vector<std::string> OutLines() const;
    std::vector<std::string> ErrLines() const;

    // Splits text at "\n" (a "\r" before it is dropped); no empty last line.
    static std::vector<std::string> Lines(const std::string& text);
};
