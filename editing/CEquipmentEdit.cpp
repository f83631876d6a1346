#include "editing/CEquipmentEdit.h"

#include "editing/CUserProfileEdit.h"
#include "editing/TrimBlanks.h"
#include "model/CEquipment.h"
#include "resources/StringTable.h"

void CEquipmentEdit::Load(const CEquipment& rig)
{
    harness = rig.GetHarness();
    harnessSerial = rig.GetHarnessSerial();
    mainCanopy = rig.GetMainCanopy();
    mainSize = rig.GetMainSize();
    mainSerial = rig.GetMainSerial();
    reserveCanopy = rig.GetReserveCanopy();
    reserveSize = rig.GetReserveSize();
    reserveSerial = rig.GetReserveSerial();
    aad = rig.GetAad();
    aadSerial = rig.GetAadSerial();
    inspectionDate = rig.GetInspectionDate();
    previousJumps = rig.GetPreviousJumps();
    active = rig.IsActive();
    m_loaded = {previousJumps, mainSize, reserveSize};
}

CCheckResult CEquipmentEdit::Validate()
{
    for (std::string* text :
         {&harness, &harnessSerial, &mainCanopy, &mainSerial, &reserveCanopy, &reserveSerial, &aad, &aadSerial})
        *text = TrimBlanks(*text);

    if (CCheckResult result =
            CheckChangedRange(previousJumps, m_loaded.previousJumps, 0, kMaxPreviousJumps, PreviousJumps);
        !result)
        return result;
    if (harness.empty())
        return CCheckResult::Missing(StringTable::IDS_NEED_HARNESS, Harness);
    if (mainCanopy.empty())
        return CCheckResult::Missing(StringTable::IDS_NEED_MAIN, MainCanopy);
    if (CCheckResult result = CheckChangedRange(mainSize, m_loaded.mainSize, 0, kMaxCanopySize, MainSize); !result)
        return result;
    return CheckChangedRange(reserveSize, m_loaded.reserveSize, 0, kMaxCanopySize, ReserveSize);
}

void CEquipmentEdit::Store(CEquipment& rig) const
{
    rig.SetHarness(harness);
    rig.SetHarnessSerial(harnessSerial);
    rig.SetMainCanopy(mainCanopy);
    rig.SetMainSize(static_cast<int>(mainSize));
    rig.SetMainSerial(mainSerial);
    rig.SetReserveCanopy(reserveCanopy);
    rig.SetReserveSize(static_cast<int>(reserveSize));
    rig.SetReserveSerial(reserveSerial);
    rig.SetAad(aad);
    rig.SetAadSerial(aadSerial);
    rig.SetInspectionDate(inspectionDate);
    rig.SetPreviousJumps(static_cast<int>(previousJumps));
    rig.SetActive(active);
}
