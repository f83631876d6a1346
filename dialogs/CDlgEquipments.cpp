#include "dialogs/CDlgEquipments.h"

#include "dialogs/CDlgEquipmentsPageAlarm.h"
#include "dialogs/CDlgEquipmentsPageEquipments.h"
#include "document/CLogbookDoc.h"

CDlgEquipments::CDlgEquipments(CLogbookDoc& doc, IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(tr("Equipment"), messages, parent), m_doc(doc)
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
    m_changed = m_edit.Apply(m_doc);
    return true;
}
