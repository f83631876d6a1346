#pragma once

#include <QDate>
#include <QStringList>

// Builds the text of a small logbook file for a test. Dates are given as the file writes them
// ("2024-06-10T00:00:00Z").
class CTestLogbook
{
public:
    // A membership with an expiry date and alarm days.
    CTestLogbook& Membership(const QString& expires, int alarmDays)
    {
        m_membership = QStringLiteral("<membership name=\"A-1234\"><expirationDate>%1</expirationDate>"
                                      "<alarmDays>%2</alarmDays></membership>")
                           .arg(expires, QString::number(alarmDays));
        return *this;
    }
    // The rigs' inspection alarm.
    CTestLogbook& RigAlarm(int alarmDays, int inspectionCycle)
    {
        m_rigAlarm = QStringLiteral("<inspectionCycle>%1</inspectionCycle><alarmDays>%2</alarmDays>")
                         .arg(inspectionCycle)
                         .arg(alarmDays);
        return *this;
    }
    // A rig with its last inspection date, and optionally its jumps before the logbook and the
    // main canopy's size.
    CTestLogbook& Rig(int number, bool active, const QString& inspected, int previousJumps = 0, int mainSize = 0)
    {
        QString more;
        if (mainSize != 0)
            more += QStringLiteral("<mainCanopy>Main</mainCanopy><mainSize>%1</mainSize>").arg(mainSize);
        if (previousJumps != 0)
            more += QStringLiteral("<previousJumps>%1</previousJumps>").arg(previousJumps);
        m_rigs += QStringLiteral("<equipment n=\"%1\" active=\"%2\"><harness>Rig %1</harness>%4"
                                 "<inspectionDate>%3</inspectionDate></equipment>")
                      .arg(QString::number(number), active ? "true" : "false", inspected, more);
        return *this;
    }
    // Jumps before the logbook.
    CTestLogbook& PreviousJumps(int jumps)
    {
        m_previous += QStringLiteral("<previousJumps>%1</previousJumps>").arg(jumps);
        return *this;
    }
    // Freefall time before the logbook, in seconds.
    CTestLogbook& PreviousDelay(int seconds)
    {
        m_previous += QStringLiteral("<previousDelay>%1</previousDelay>").arg(seconds);
        return *this;
    }
    // A jump with a manually entered freefall time; picture and signer are optional.
    CTestLogbook& Jump(int number, const QString& timestamp, const QString& place, int exitHeight, int openHeight,
                       int freefallSeconds, const QString& picture = {}, const QString& signer = {})
    {
        QString jump = QStringLiteral("<jump n=\"%1\" ts=\"%2\" mod=\"2024-01-01T00:00:00Z\"><dz>%3</dz>"
                                      "<fallrate name=\"Manual\"/><exit>%4</exit><open>%5</open><ffTime>%6</ffTime>")
                           .arg(QString::number(number), timestamp, place, QString::number(exitHeight),
                                QString::number(openHeight), QString::number(freefallSeconds));
        if (!picture.isEmpty())
            jump += QStringLiteral("<image name=\"%1\" thumbnail=\"\"/>").arg(picture.toHtmlEscaped());
        if (!signer.isEmpty())
            jump += QStringLiteral("<signature name=\"%1\"><id>1</id></signature>").arg(signer);
        m_jumps.append(jump + QStringLiteral("</jump>"));
        return *this;
    }
    // Jumps first to last, one a day from 1 May 2024 on, at Tervola from 4000 m to 1000 m in 60 s.
    CTestLogbook& Jumps(int first, int last)
    {
        for (int n = first; n <= last; ++n)
            Jump(n, Day(2024, 5, 1, n - 1).replace("T00", "T10"), "Tervola", 4000, 1000, 60);
        return *this;
    }

    // The whole file's text.
    QString Xml() const
    {
        QString equipments;
        if (!m_rigAlarm.isEmpty() || !m_rigs.isEmpty())
            equipments = QStringLiteral("<equipments>") + m_rigAlarm + m_rigs + QStringLiteral("</equipments>");
        return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>"
                              "<tvl version=\"1.2\" creator=\"test\" mod=\"2024-01-01T00:00:00Z\">"
                              "<settings><owner>Test Jumper</owner>%1%2%3</settings>"
                              "<log size=\"%4\">%5</log></tvl>")
            .arg(m_membership, equipments, m_previous, QString::number(m_jumps.size()), m_jumps.join(QString()));
    }

    // A date moved by some days, in the file's date encoding.
    static QString Day(int year, int month, int day, int offsetDays = 0)
    {
        return QDate(year, month, day).addDays(offsetDays).toString(QStringLiteral("yyyy-MM-dd")) + "T00:00:00Z";
    }

private:
    QString m_membership;
    QString m_rigAlarm;
    QString m_rigs;
    QString m_previous;
    QStringList m_jumps;
};
