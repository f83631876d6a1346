#include "app/CPictureGuard.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <fstream>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

CPictureGuard::Kind CPictureGuard::KindOfExtension(const fs::path& file)
{
    std::string ext = file.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ext == ".jpg" || ext == ".jpeg")
        return Kind::Jpeg;
    if (ext == ".png")
        return Kind::Png;
    if (ext == ".gif")
        return Kind::Gif;
    if (ext == ".bmp")
        return Kind::Bmp;
    return Kind::None;
}

bool CPictureGuard::HasSignature(const fs::path& file, Kind kind)
{
    std::array<unsigned char, 8> head{};
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return false;
    in.read(reinterpret_cast<char*>(head.data()), static_cast<std::streamsize>(head.size()));
    const auto got = static_cast<std::size_t>(in.gcount());
    const auto starts = [&](std::initializer_list<unsigned char> bytes) {
        return got >= bytes.size() && std::equal(bytes.begin(), bytes.end(), head.begin());
    };
    switch (kind) {
    case Kind::Jpeg:
        return starts({0xFF, 0xD8, 0xFF});
    case Kind::Png:
        return starts({0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A});
    case Kind::Gif:
        return starts({'G', 'I', 'F', '8', '7', 'a'}) || starts({'G', 'I', 'F', '8', '9', 'a'});
    case Kind::Bmp:
        return starts({'B', 'M'});
    case Kind::None:
        break;
    }
    return false;
}

fs::path CPictureGuard::Check(const fs::path& folder, const fs::path& candidate)
{
    if (folder.empty() || candidate.empty())
        return {};
    std::error_code error;
    // canonical() resolves ".." and every link, and fails for a file that does not exist.
    const fs::path base = fs::canonical(folder, error);
    if (error)
        return {};
    const fs::path target = fs::canonical(candidate, error);
    if (error || !fs::is_regular_file(target, error) || error)
        return {};

    // Inside the folder: the relative path neither climbs out nor starts elsewhere.
    const fs::path relative = target.lexically_relative(base);
    if (relative.empty() || relative.is_absolute() || *relative.begin() == "..")
        return {};

    // The link's target decides, not the name in the logbook: "a.jpg" pointing at a script
    // is refused by its target's extension.
    const Kind kind = KindOfExtension(target);
    if (kind == Kind::None || !HasSignature(target, kind))
        return {};
    return target;
}
