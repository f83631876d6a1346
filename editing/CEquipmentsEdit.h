#pragma once

#include "editing/CCheckResult.h"
#include "model/CEquipmentList.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class CLogbookDoc;

// The working values of the equipment editor: a copy of the rigs, each remembering where it
// stood in the logbook's list, and the inspection alarm. On OK the rigs and the alarm go back
// into the logbook and the jumps that name a rig by its position are re-pointed, so that every
// jump keeps naming the rig it named before.
class CEquipmentsEdit
{
public:
    // The fields a failed check points at.
    enum Field
    {
        AlarmDays = 0,
        InspectionCycle = 1
    };

    static constexpr int kMaxAlarmDays = 365;
    static constexpr int kMaxInspectionCycle = 730;
    // The days prior offered while the list has no alarm yet.
    static constexpr int kDefaultAlarmDays = 30;

    // Copies the rigs and the alarm; an alarm that is off shows kDefaultAlarmDays and the
    // list's cycle, to be used once the user switches the alarm on.
    void Load(const CEquipmentList& list);

    std::size_t Count() const { return m_rigs.GetCount(); }
    const CEquipment& Rig(std::size_t index) const { return m_rigs.Get(index); }
    // A new active rig numbered one above the highest number, not yet in the list.
    std::unique_ptr<CEquipment> MakeNewRig() const;
    // Appends a rig (from MakeNewRig, after the rig editor's OK).
    void AddRig(std::unique_ptr<CEquipment> rig);
    // Puts an edited copy in place of the rig at index.
    void ReplaceRig(std::size_t index, std::unique_ptr<CEquipment> rig);
    // Drops the rig at index.
    void RemoveRig(std::size_t index);

    // The alarm page's check: days prior 0 to 365, then days between inspections 0 to 730; a value
    // still as loaded passes.
    CCheckResult ValidateAlarm() const;

    // Hands rigs and alarm to the logbook (the alarm through SetAlarm), which re-points its jumps:
    // a jump naming a later rig follows it to its new position; a jump naming a removed rig gets
    // the rig's display text as a free-text description. Returns whether anything changed.
    bool Apply(CLogbookDoc& doc) const;
    // How many signed jumps would show another rig text after Apply (a renamed rig; a removed
    // rig's jumps keep its text).
    std::size_t SignedJumpsTouched(const CLogbookDoc& doc) const;

    bool alarmOn = false;
    long long alarmDays = kDefaultAlarmDays;
    long long inspectionCycle = CEquipmentList::kDefaultInspectionCycle;

private:
    // For each rig of the logbook its new position, -1 when removed.
    std::vector<int> NewPositions(const CLogbookDoc& doc) const;

    CEquipmentList m_rigs;
    // For each working rig its position in the logbook's list when loaded, -1 for a new one.
    std::vector<int> m_origin;
    long long m_loadedDays = kDefaultAlarmDays;
    long long m_loadedCycle = CEquipmentList::kDefaultInspectionCycle;
};
