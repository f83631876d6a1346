#include "dialogs/CDlgJump.h"

#include "controls/IMessageSink.h"
#include "dialogs/CDlgJumpPageDetails.h"
#include "dialogs/CDlgJumpPageFallrate.h"
#include "dialogs/CDlgJumpPageInfo.h"
#include "dialogs/CDlgJumpPageNote.h"
#include "dialogs/CDlgJumpPageRecording.h"
#include "dialogs/CDlgJumpPageSignature.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"

#include <QDialogButtonBox>
#include <QPushButton>

CDlgJump::CDlgJump(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store, const IClock& clock,
                   const CJump* jump, IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(DialogText::Message(StringTable::IDS_JUMP), messages, parent),
      m_edit(doc, units, store, clock, jump)
{
    setObjectName(QStringLiteral("jumpEditor"));
    const CJumpEdit::PickLists lists = m_edit.BuildPickLists();
    m_details = new CDlgJumpPageDetails(m_edit, lists);
    m_fallrate = new CDlgJumpPageFallrate(m_edit);
    m_info = new CDlgJumpPageInfo(m_edit, lists);
    m_note = new CDlgJumpPageNote(m_edit);
    m_signature = new CDlgJumpPageSignature(m_edit, lists);
    for (CKqPropertyPage* page :
         std::initializer_list<CKqPropertyPage*>{m_details, m_fallrate, m_info, m_note, m_signature})
        AddPage(page);
    connect(m_fallrate, &CDlgJumpPageFallrate::kindPicked, m_details, &CDlgJumpPageDetails::ShowRecordedValues);
    AddRecordingPage();
    // A signed jump is only looked at: one button closes it.
    if (m_edit.IsViewOnly())
        Buttons()->setStandardButtons(QDialogButtonBox::Close);
}

CDlgJump::~CDlgJump() = default;

void CDlgJump::InitialisePages()
{
    AddRecordingPage();
    CKqPropertySheet::InitialisePages();
}

void CDlgJump::AddRecordingPage()
{
    if (m_recording || !m_edit.Recording())
        return;
    m_recording = new CDlgJumpPageRecording(m_edit);
    InsertPage(IndexOf(m_info) + 1, m_recording);
    connect(m_fallrate, &CDlgJumpPageFallrate::kindPicked, m_recording, &CDlgJumpPageRecording::UpdateMarks);
}

CKqPropertyPage* CDlgJump::PageFor(CJumpEdit::Page page) const
{
    switch (page) {
    case CJumpEdit::PageDetails:
        return m_details;
    case CJumpEdit::PageFallrate:
        return m_fallrate;
    case CJumpEdit::PageInfo:
        return m_info;
    case CJumpEdit::PageNote:
        return m_note;
    case CJumpEdit::PageSignature:
        return m_signature;
    default:
        return nullptr;
    }
}

bool CDlgJump::Apply()
{
    m_result = m_edit.Apply();
    if (!m_result.ok && Messages())
        Messages()->Error(QString::fromStdString(m_result.error));
    // The sheet closes either way; the caller reads the result.
    return true;
}
