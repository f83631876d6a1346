#include "CTestLogbook.h"

#include "bridge/CorePaths.h"
#include "tests/common/CScratchFolder.h"

#include <QDate>

CTestLogbook& CTestLogbook::Membership(const QString& expires, int alarmDays)
{
    m_membership = QStringLiteral("<membership name=\"A-1234\"><expirationDate>%1</expirationDate>").arg(expires);
    if (alarmDays >= 0)
        m_membership += QStringLiteral("<alarmDays>%1</alarmDays>").arg(alarmDays);
    m_membership += QStringLiteral("</membership>");
    return *this;
}

CTestLogbook& CTestLogbook::RigAlarm(int alarmDays, int inspectionCycle)
{
    m_rigAlarm = QStringLiteral("<inspectionCycle>%1</inspectionCycle><alarmDays>%2</alarmDays>")
                     .arg(inspectionCycle)
                     .arg(alarmDays);
    return *this;
}

CTestLogbook& CTestLogbook::Rig(int number, bool active, const QString& inspected)
{
    m_rigs += QStringLiteral("<equipment n=\"%1\" active=\"%2\"><harness>Rig %1</harness>"
                             "<inspectionDate>%3</inspectionDate></equipment>")
                  .arg(number)
                  .arg(active ? QStringLiteral("true") : QStringLiteral("false"), inspected);
    return *this;
}

CTestLogbook& CTestLogbook::PreviousDelay(int seconds)
{
    m_previous = QStringLiteral("<previousDelay>%1</previousDelay>").arg(seconds);
    return *this;
}

CTestLogbook& CTestLogbook::Jump(int number, const QString& timestamp, const QString& place, int exitHeight,
                                 int openHeight, int freefallSeconds, const QString& picture, const QString& signer)
{
    QString jump = QStringLiteral("<jump n=\"%1\" ts=\"%2\" mod=\"2024-01-01T00:00:00Z\"><dz>%3</dz>"
                                  "<fallrate name=\"Manual\"/><exit>%4</exit><open>%5</open><ffTime>%6</ffTime>")
                       .arg(number)
                       .arg(timestamp, place)
                       .arg(exitHeight)
                       .arg(openHeight)
                       .arg(freefallSeconds);
    if (!picture.isEmpty())
        jump += QStringLiteral("<image name=\"%1\" thumbnail=\"\"/>").arg(picture.toHtmlEscaped());
    if (!signer.isEmpty())
        jump += QStringLiteral("<signature name=\"%1\"><id>1</id></signature>").arg(signer);
    jump += QStringLiteral("</jump>");
    m_jumps.append(jump);
    return *this;
}

CTestLogbook& CTestLogbook::Jumps(int first, int last)
{
    for (int n = first; n <= last; ++n)
        Jump(n, Day(2024, 5, 1, n - 1).replace("T00", "T10"), "Tervola", 4000, 1000, 60);
    return *this;
}

QString CTestLogbook::Xml() const
{
    QString equipments;
    if (!m_rigAlarm.isEmpty() || !m_rigs.isEmpty())
        equipments = QStringLiteral("<equipments>") + m_rigAlarm + m_rigs + QStringLiteral("</equipments>");
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>"
                          "<tvl version=\"1.2\" creator=\"test\" mod=\"2024-01-01T00:00:00Z\">"
                          "<settings><owner>Test Jumper</owner>%1%2%3</settings>"
                          "<log size=\"%4\">%5</log></tvl>")
        .arg(m_membership, equipments, m_previous)
        .arg(m_jumps.size())
        .arg(m_jumps.join(QString()));
}

bool CTestLogbook::WritePlain(const QString& path) const
{
    return WriteBytes(CorePaths::LocalPath(path), Xml().toStdString());
}

bool CTestLogbook::WriteGzip(const QString& path) const
{
    return ::WriteGzip(CorePaths::LocalPath(path), Xml().toStdString());
}

QString CTestLogbook::Day(int year, int month, int day, int offsetDays)
{
    const QDate date = QDate(year, month, day).addDays(offsetDays);
    return date.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral("T00:00:00Z");
}
