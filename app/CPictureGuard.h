#pragma once

#include <filesystem>

// Decides whether a jump's picture may be handed to the desktop's viewer. A logbook comes from
// outside, so its picture names are not trusted: only an existing regular file inside the
// logbook's folder (after resolving "..", links and absolute names), with a picture extension
// and content that really starts like that kind of picture, is let through. Without Qt.
class CPictureGuard
{
public:
    // The canonical path of the picture to open, or the empty path when it must not be opened.
    // folder is the logbook's folder, candidate the picture name resolved against it.
    static std::filesystem::path Check(const std::filesystem::path& folder, const std::filesystem::path& candidate);

    // The picture kinds that are opened, by extension (any case).
    enum class Kind
    {
        None,
        Jpeg,
        Png,
        Gif,
        Bmp
    };
    static Kind KindOfExtension(const std::filesystem::path& file);
    // True when the file's first bytes are those of the given kind.
    static bool HasSignature(const std::filesystem::path& file, Kind kind);
};
