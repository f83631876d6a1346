#pragma once

#include <QString>

#include <string_view>

// The string table's numbered messages in the user's language. The core keeps them in English;
// here each is looked up in the translation context "StringTable" with its English text as the
// source and its number as the disambiguation, so two messages that share an English text still
// keep a translation each. Without a translation the English text stays.
namespace MessageText {

// The translation context of the string table's messages.
inline constexpr char kContext[] = "StringTable";

// The message of a number in the user's language; empty for an unknown number.
QString Text(int id);
// The message with every "%1" replaced by arg1 and every "%2" by arg2 (plain substitution).
QString Format(int id, const QString& arg1 = {}, const QString& arg2 = {});
// A message the core composed in English, in the user's language. The English text of the
// message is matched against it to find what was put in for "%1" and "%2"; those parts go into
// the translation unchanged. With an id, text the core appended after the message stays at the
// end ("Custom Fallrate [m/s]"); with id 0 every message is tried and must match the whole
// text. A text that matches no message comes back as it is.
QString Translate(std::string_view composed, int id = 0);

} // namespace MessageText
