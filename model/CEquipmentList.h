#pragma once

#include "model/CEquipment.h"
#include "xml/CXmlHandler.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

class CXmlWriter;

// The owner's rigs and the reserve-inspection alarm. Element "equipments" inside "settings".
class CEquipmentList : public CXmlHandler
{
public:
    // The inspection cycle of a new list, in days.
    static constexpr int kDefaultInspectionCycle = 180;

    CEquipmentList() = default;
    CEquipmentList(const CEquipmentList& other);
    CEquipmentList& operator=(const CEquipmentList& other);
    CEquipmentList(CEquipmentList&&) noexcept = default;
    CEquipmentList& operator=(CEquipmentList&&) noexcept = default;
    ~CEquipmentList() override = default;

    // No rigs, alarm off, default inspection cycle.
    void Reset();

    // Days before the due date on which the reminder starts; -1 when the alarm is off.
    int GetAlarmDays() const { return m_alarmDays; }
    // The alarm is on exactly when the alarm days are not negative.
    bool IsAlarmOn() const { return m_alarmDays >= 0; }
    // Days between two reserve inspections.
    int GetInspectionCycle() const { return m_inspectionCycle; }
    // Off sets the alarm days to -1 (the cycle is kept); on stores both values. Returns whether
    // anything changed.
    bool SetAlarm(bool on, int alarmDays, int inspectionCycle);

    std::size_t GetCount() const { return m_rigs.size(); }
    bool IsEmpty() const { return m_rigs.empty(); }
    CEquipment& Get(std::size_t index) { return *m_rigs.at(index); }
    const CEquipment& Get(std::size_t index) const { return *m_rigs.at(index); }
    // Appends a rig; the list owns it. Returns the stored rig.
    CEquipment& Add(std::unique_ptr<CEquipment> rig);
    // Removes the rig at index (numbers of the others are kept).
    void Remove(std::size_t index);
    // Puts rig in place of the rig at index.
    void Replace(std::size_t index, std::unique_ptr<CEquipment> rig);
    // Position of the rig with this number, or -1.
    int FindNumber(int number) const;
    // The position of the rig a text names: a text "[n]..." names rig number n when it equals that
    // rig's display text in full; -1 for any other text.
    int FindByDisplayText(std::string_view text) const;
    // One more than the highest rig number, 1 for an empty list.
    int NextNumber() const;

    // Writes "equipments"; nothing when the alarm is off and the list is empty.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "equipments" (the settings delegate the element).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    // Same alarm values and equal rigs in the same order.
    friend bool operator==(const CEquipmentList& a, const CEquipmentList& b);

private:
    int m_alarmDays = -1;
    int m_inspectionCycle = kDefaultInspectionCycle;
    std::vector<std::unique_ptr<CEquipment>> m_rigs;
};
