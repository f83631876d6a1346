#include "editing/CEquipmentsEdit.h"

#include "document/CLogbookDoc.h"
#include "document/SealTouch.h"

void CEquipmentsEdit::Load(const CEquipmentList& list)
{
    m_rigs = list;
    m_origin.clear();
    for (std::size_t i = 0; i < list.GetCount(); ++i)
        m_origin.push_back(static_cast<int>(i));
    alarmOn = list.IsAlarmOn();
    alarmDays = alarmOn ? list.GetAlarmDays() : kDefaultAlarmDays;
    inspectionCycle = list.GetInspectionCycle();
    m_loadedDays = alarmDays;
    m_loadedCycle = inspectionCycle;
}

std::unique_ptr<CEquipment> CEquipmentsEdit::MakeNewRig() const
{
    auto rig = std::make_unique<CEquipment>(m_rigs.NextNumber());
    rig->SetActive(true);
    return rig;
}

void CEquipmentsEdit::AddRig(std::unique_ptr<CEquipment> rig)
{
    if (!rig)
        return;
    m_rigs.Add(std::move(rig));
    m_origin.push_back(-1);
}

void CEquipmentsEdit::ReplaceRig(std::size_t index, std::unique_ptr<CEquipment> rig)
{
    m_rigs.Replace(index, std::move(rig));
}

void CEquipmentsEdit::RemoveRig(std::size_t index)
{
    if (index >= m_origin.size())
        return;
    m_rigs.Remove(index);
    m_origin.erase(m_origin.begin() + static_cast<std::ptrdiff_t>(index));
}

CCheckResult CEquipmentsEdit::ValidateAlarm() const
{
    if (CCheckResult result = CheckChangedRange(alarmDays, m_loadedDays, 0, kMaxAlarmDays, AlarmDays); !result)
        return result;
    return CheckChangedRange(inspectionCycle, m_loadedCycle, 0, kMaxInspectionCycle, InspectionCycle);
}

std::vector<int> CEquipmentsEdit::NewPositions(const CLogbookDoc& doc) const
{
    // Where each rig of the logbook went: its new position, or -1 when it was removed.
    const std::size_t oldCount = doc.GetSettings().GetEquipmentList().GetCount();
    std::vector<int> moved(oldCount, -1);
    for (std::size_t i = 0; i < m_origin.size(); ++i) {
        if (m_origin[i] >= 0 && static_cast<std::size_t>(m_origin[i]) < oldCount)
            moved[static_cast<std::size_t>(m_origin[i])] = static_cast<int>(i);
    }
    return moved;
}

bool CEquipmentsEdit::Apply(CLogbookDoc& doc) const
{
    // The rigs first (the copy still carries the alarm as loaded), then the alarm.
    CEquipmentList rigs = m_rigs;
    rigs.SetAlarm(alarmOn, static_cast<int>(alarmDays), static_cast<int>(inspectionCycle));
    return doc.ReplaceEquipment(rigs, NewPositions(doc));
}

std::size_t CEquipmentsEdit::SignedJumpsTouched(const CLogbookDoc& doc) const
{
    CLogbookSettings next = doc.GetSettings();
    next.GetEquipmentList() = m_rigs;
    const std::vector<int> moved = NewPositions(doc);
    return CountSignedJumpsTouched(doc, next, &moved);
}
