#pragma once

#include <QString>

#include <string>
#include <string_view>

// Text between the core and Qt: the core keeps its texts as UTF-8 bytes, Qt as QString. Every
// text crossing the line goes through these two, so that names, notes and labels keep every
// character both ways.
namespace CoreText {

// The core's UTF-8 text as a QString.
QString ToQt(std::string_view text);
// A QString as the core's UTF-8 text.
std::string FromQt(const QString& text);

} // namespace CoreText
