#include "controls/CKqDateEdit.h"

#include <QCalendarWidget>
#include <QEvent>

namespace {

// The lowest day of the picker stands for "no date"; no logbook date lies that far back.
const QDate kNoDate(1900, 1, 1);

} // namespace

CKqDateEdit::CKqDateEdit(const QString& noDateText, QWidget* parent) : QDateEdit(parent)
{
    setCalendarPopup(true);
    setMinimumDate(kNoDate);
    setSpecialValueText(noDateText);
    calendarWidget()->installEventFilter(this);
}

void CKqDateEdit::SetDate(const QDate& date)
{
    setDate(date.isValid() && date > kNoDate ? date : kNoDate);
}

QDate CKqDateEdit::Date() const
{
    return HasDate() ? date() : QDate();
}

bool CKqDateEdit::eventFilter(QObject* watched, QEvent* event)
{
    // Without a date the calendar would open in January 1900: it opens on today's month instead,
    // with nothing picked until the user taps a day.
    if (event->type() == QEvent::Show && !HasDate()) {
        if (auto* calendar = qobject_cast<QCalendarWidget*>(watched)) {
            const QDate today = QDate::currentDate();
            calendar->setCurrentPage(today.year(), today.month());
        }
    }
    return QDateEdit::eventFilter(watched, event);
}
