#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CEquipmentsEdit.h"

class CLogbookDoc;
class CDlgEquipmentsPageEquipments;
class CDlgEquipmentsPageAlarm;

// The equipment editor: the owner's rigs ("Gears") and the inspection alarm ("Alarm"). It works
// on copies; after OK the command hands them to the logbook (Edit().Apply), which re-points the
// jumps that name rigs by position.
class CDlgEquipments : public CKqPropertySheet
{
    Q_OBJECT

public:
    // The sheet on the document's equipment list; messages go to the sink (not owned).
    CDlgEquipments(const CLogbookDoc& doc, IMessageSink* messages, QWidget* parent = nullptr);

    CEquipmentsEdit& Edit() { return m_edit; }

protected:
    bool Apply() override;

private:
    CEquipmentsEdit m_edit;
    CDlgEquipmentsPageEquipments* m_equipments;
    CDlgEquipmentsPageAlarm* m_alarm;
};
