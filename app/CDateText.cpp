#include "app/CDateText.h"

#include "dialogs/DialogText.h"

#include <QLocale>

QString CDateText::ShortDate(const CDateTime& date)
{
    const QDate day = DialogText::ToQDate(date);
    if (!day.isValid())
        return {};
    return QLocale().toString(day, QLocale::ShortFormat);
}
