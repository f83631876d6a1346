#pragma once

#include "bridge/CoreText.h"
#include "xml/CDateTime.h"

#include <QDate>
#include <QString>

#include <string>
#include <string_view>

struct CCheckResult;

// Small conversions the editors share: texts between the core's UTF-8 strings and Qt, and
// calendar days between CDateTime and QDate.
namespace DialogText {

// A UTF-8 text for a control, and a control's text as UTF-8.
using CoreText::FromQt;
using CoreText::ToQt;
// The string-table entry of a number, in the user's language.
QString Message(int id);
// The message of a refused check, in the user's language.
QString CheckMessage(const CCheckResult& result);
// The day of a valid date-time; a null QDate otherwise.
QDate ToQDate(const CDateTime& date);
// The day as a date-time at midnight; Null for a date that is not valid.
CDateTime FromQDate(const QDate& date);
// The locale's short date format, for the date pickers.
QString ShortDateFormat();

} // namespace DialogText
