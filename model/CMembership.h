#pragma once

#include "xml/CDateTime.h"
#include "xml/CXmlHandler.h"

#include <string>

class CXmlWriter;

// The owner's club membership: member number, expiry date and the reminder before it.
// Element "membership" inside "settings".
class CMembership : public CXmlHandler
{
public:
    // No number, no date, no alarm.
    void Reset();

    const std::string& GetMemberNumber() const { return m_memberNumber; }
    void SetMemberNumber(std::string number) { m_memberNumber = std::move(number); }
    // The expiry date with its status (Null by default).
    const CDateTime& GetExpirationDate() const { return m_expirationDate; }
    void SetExpirationDate(const CDateTime& date) { m_expirationDate = date; }
    // There is an expiry date exactly when the date is valid.
    bool HasExpirationDate() const { return m_expirationDate.IsValid(); }
    // Days before the expiry date on which the reminder starts; -1 means no alarm.
    int GetAlarmDays() const { return m_alarmDays; }
    void SetAlarmDays(int days) { m_alarmDays = days; }
    // There is an alarm exactly when there is an expiry date and the alarm days are not negative.
    bool HasAlarm() const { return HasExpirationDate() && m_alarmDays >= 0; }

    // Sets date and alarm as the profile dialog gives them: without expires the date becomes
    // Null; without alarm the alarm days become -1. Returns whether anything changed.
    bool Set(bool expires, const CDateTime& date, bool alarm, int alarmDays);

    // Writes "membership" when there is a number or an expiry date.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "membership" (the settings read the number attribute as they
    // hand the element over).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    friend bool operator==(const CMembership& a, const CMembership& b)
    {
        return a.m_memberNumber == b.m_memberNumber && a.m_expirationDate == b.m_expirationDate &&
               a.m_alarmDays == b.m_alarmDays;
    }

private:
    std::string m_memberNumber;
    CDateTime m_expirationDate;
    int m_alarmDays = -1;
};
