#include "app/CDateText.h"

#include <QLocale>

QDate CDateText::ToQDate(const CDateTime& date)
{
    if (!date.IsValid())
        return {};
    return QDate(date.Year(), date.Month(), date.Day());
}

QString CDateText::ShortDate(const CDateTime& date)
{
    const QDate day = ToQDate(date);
    if (!day.isValid())
        return {};
    return QLocale().toString(day, QLocale::ShortFormat);
}
