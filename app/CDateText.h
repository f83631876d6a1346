#pragma once

#include "xml/CDateTime.h"

#include <QDate>
#include <QString>

// Dates as the user reads them: the locale's short date format.
class CDateText
{
public:
    // The short date text of the default locale; the empty text for a date that is not valid.
    static QString ShortDate(const CDateTime& date);
};
