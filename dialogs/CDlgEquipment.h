#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CEquipmentEdit.h"

#include <memory>

class CEquipment;

// The rig editor "Equipment", a sheet of one page: harness, canopies and activation device with
// their serial numbers, the canopy sizes, the last inspection date, the jumps before the logbook
// and the active flag. OK checks the values (the first failure shows one message and takes the
// focus) and keeps the edited rig; Cancel leaves the rig alone.
class CDlgEquipment : public CKqPropertySheet
{
    Q_OBJECT

public:
    // The editor on a copy of the rig; messages go to the sink (not owned).
    CDlgEquipment(const CEquipment& rig, IMessageSink* messages, QWidget* parent = nullptr);
    ~CDlgEquipment() override;

    // The rig with the values of the last OK (the original number kept).
    std::unique_ptr<CEquipment> Result() const;

protected:
    bool Apply() override;

private:
    std::unique_ptr<CEquipment> m_rig;
    CEquipmentEdit m_edit;
};
