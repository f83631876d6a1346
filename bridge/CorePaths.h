#pragma once

#include <QString>

#include <string>
#include <string_view>

// Paths between Qt and the core: the core opens files by the file system's own bytes, Qt shows
// and chooses them as text.
namespace CorePaths {

// A path as the core takes it.
std::string LocalPath(const QString& path);
// The same, made absolute against the current folder first.
std::string AbsoluteLocalPath(const QString& path);
// A path the core gives back, as text to show or to hand to Qt.
QString DisplayPath(std::string_view path);

} // namespace CorePaths
