#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CJumpEdit.h"

class CDlgJumpPageDetails;
class CDlgJumpPageFallrate;
class CDlgJumpPageInfo;
class CDlgJumpPageNote;
class CDlgJumpPageSignature;

// The jump editor: five pages over one set of working values, written into the jump (or a new
// jump added to the logbook) only when OK passes every page's check.
class CDlgJump : public CKqPropertySheet
{
    Q_OBJECT

public:
    // An editor on jump, or on a new jump when jump is null. store keeps the new jumps' time and
    // wind choices; messages shows the checks' refusals (not owned).
    CDlgJump(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store, const IClock& clock, CJump* jump,
             IMessageSink* messages, QWidget* parent = nullptr);
    ~CDlgJump() override;

    // The rules and working values behind the pages.
    CJumpEdit& Edit() { return m_edit; }
    // What OK did (meaningful after the sheet was accepted).
    const CJumpEdit::ApplyResult& Result() const { return m_result; }

    CDlgJumpPageDetails* Details() const { return m_details; }
    CDlgJumpPageFallrate* Fallrate() const { return m_fallrate; }
    CDlgJumpPageInfo* Info() const { return m_info; }
    CDlgJumpPageNote* Note() const { return m_note; }
    CDlgJumpPageSignature* SignaturePage() const { return m_signature; }

protected:
    bool Apply() override;

private:
    CJumpEdit m_edit;
    CJumpEdit::ApplyResult m_result;
    CDlgJumpPageDetails* m_details;
    CDlgJumpPageFallrate* m_fallrate;
    CDlgJumpPageInfo* m_info;
    CDlgJumpPageNote* m_note;
    CDlgJumpPageSignature* m_signature;
};
