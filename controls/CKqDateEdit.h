#pragma once

#include <QDateEdit>

// A date picker that may hold no date: it then shows a text of its own ("None", or nothing at
// all) instead of a made-up day, and its calendar opens on today's month. Picking a day gives it
// a date.
class CKqDateEdit : public QDateEdit
{
    Q_OBJECT

public:
    // noDateText is shown while there is no date; it must not be empty (a blank " " shows nothing).
    explicit CKqDateEdit(const QString& noDateText, QWidget* parent = nullptr);

    // Shows the date, or no date for a null or invalid one.
    void SetDate(const QDate& date);
    // The date shown; a null QDate while there is none.
    QDate Date() const;
    bool HasDate() const { return date() != minimumDate(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
