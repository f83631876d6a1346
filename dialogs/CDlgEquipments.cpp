#include "dialogs/CDlgEquipments.h"

#include "dialogs/CDlgEquipmentsPageAlarm.h"
#include "dialogs/CDlgEquipmentsPageEquipments.h"
#include "document/CLogbookDoc.h"

CDlgEquipments::CDlgEquipments(const CLogbookDoc& doc, IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(tr("Equipment"), messages, parent)
{
    setObjectName(QStringLiteral("dlgEquipments"));
    m_edit.Load(doc.GetSettings().GetEquipmentList());
    m_equipments = new CDlgEquipmentsPageEquipments(m_edit);
    m_alarm = new CDlgEquipmentsPageAlarm(m_edit);
    AddPage(m_equipments);
    AddPage(m_alarm);
}

bool CDlgEquipments::Apply()
{
    // The pages have checked their values; the working copy is ready for the command.
    return true;
}
