#pragma once

#include "resources/CMessage.h"

#include <QString>

#include <string>

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
// A message of the core in the user's language: its text with the arguments put in as they are
// (they are the file's or the user's own words and numbers), after "Line N: " when it is about a
// line of a file, otherwise with a capital first letter. Without a translation it is English.
QString Text(const CMessage& message);
// The same as UTF-8 with the arguments' bytes kept exactly, for the tool's output.
std::string Utf8(const CMessage& message);

} // namespace MessageText
