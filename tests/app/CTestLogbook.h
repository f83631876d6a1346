#pragma once

#include <QList>
#include <QString>

// Builds the text of a small logbook file for a test and writes it plain or gzip-compressed.
// Dates are given as the file writes them ("2024-06-10T00:00:00Z").
class CTestLogbook
{
public:
    // A membership with an expiry date and alarm days (-1: no alarm element).
    CTestLogbook& Membership(const QString& expires, int alarmDays);
    // The rigs' inspection alarm.
    CTestLogbook& RigAlarm(int alarmDays, int inspectionCycle);
    // A rig with its last inspection date.
    CTestLogbook& Rig(int number, bool active, const QString& inspected);
    // Freefall time before the logbook, in seconds.
    CTestLogbook& PreviousDelay(int seconds);
    // A jump with a manually entered freefall time; picture and signer are optional.
    CTestLogbook& Jump(int number, const QString& timestamp, const QString& place, int exitHeight, int openHeight,
                       int freefallSeconds, const QString& picture = {}, const QString& signer = {});
    // Jumps first to last, one a day from 1 May 2024 on, at Tervola from 4000 m to 1000 m in 60 s.
    CTestLogbook& Jumps(int first, int last);

    // The whole file's text.
    QString Xml() const;
    // Writes the text plain (".tvl") or gzip-compressed; false when the file cannot be written.
    bool WritePlain(const QString& path) const;
    bool WriteGzip(const QString& path) const;

    // A date moved by some days, in the file's date encoding.
    static QString Day(int year, int month, int day, int offsetDays = 0);

private:
    QString m_membership;
    QString m_rigAlarm;
    QString m_rigs;
    QString m_previous;
    QStringList m_jumps;
};
