#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CEquipmentsEdit.h"

class CLogbookDoc;
class CDlgEquipmentsPageEquipments;
class CDlgEquipmentsPageAlarm;

// The equipment editor: the owner's rigs ("Gears") and the inspection alarm ("Alarm"). It works
// on copies; OK writes rigs and alarm back and re-points the jumps that name rigs by position.
class CDlgEquipments : public CKqPropertySheet
{
    Q_OBJECT

public:
    // The sheet on the document's equipment list; messages go to the sink (not owned).
    CDlgEquipments(CLogbookDoc& doc, IMessageSink* messages, QWidget* parent = nullptr);

    // Whether OK changed the logbook.
    bool Changed() const { return m_changed; }
    CEquipmentsEdit& Edit() { return m_edit; }
    CDlgEquipmentsPageEquipments* EquipmentsPage() const { return m_equipments; }
    CDlgEquipmentsPageAlarm* AlarmPage() const { return m_alarm; }

protected:
    bool Apply() override;

private:
    CLogbookDoc& m_doc;
    CEquipmentsEdit m_edit;
    CDlgEquipmentsPageEquipments* m_equipments;
    CDlgEquipmentsPageAlarm* m_alarm;
    bool m_changed = false;
};
