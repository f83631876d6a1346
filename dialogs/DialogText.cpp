#include "dialogs/DialogText.h"

#include "editing/CCheckResult.h"
#include "translations/MessageText.h"

#include <QLocale>

namespace DialogText {

QString Message(int id)
{
    return MessageText::Text(id);
}

QString CheckMessage(const CCheckResult& result)
{
    return MessageText::Text(result.Message());
}

QDate ToQDate(const CDateTime& date)
{
    if (!date.IsValid())
        return {};
    return QDate(date.Year(), date.Month(), date.Day());
}

CDateTime FromQDate(const QDate& date)
{
    if (!date.isValid())
        return {};
    return CDateTime(date.year(), date.month(), date.day());
}

QString ShortDateFormat()
{
    return QLocale().dateFormat(QLocale::ShortFormat);
}

} // namespace DialogText
