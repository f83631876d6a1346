#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

// The file-level facts that the document's load and save share.
namespace LogbookFormat {

// The newest file version this program reads and the one it writes.
inline constexpr std::string_view kFileVersion = "1.2";
// Where the path of the logbook used last is kept.
inline constexpr std::string_view kLastFileSection = "General";
inline constexpr std::string_view kLastFileValue = "LastFile";

// A path ending in ".tvl" (any case) is plain XML; every other path is a gzip stream.
inline bool IsPlainPath(const std::string& path)
{
    if (path.size() < 4)
        return false;
    std::string ending = path.substr(path.size() - 4);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending == ".tvl";
}

} // namespace LogbookFormat
