#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CJumpEdit.h"

class CDlgJumpPageDetails;
class CDlgJumpPageFallrate;
class CDlgJumpPageInfo;
class CDlgJumpPageNote;
class CDlgJumpPageRecording;
class CDlgJumpPageSignature;

// The jump editor: five pages over one set of working values, written into the jump (or a new
// jump added to the logbook) only when OK passes every page's check. A jump with a flight
// recording (its own or one just imported) has a sixth, read-only page with the recording's
// plot right after Info; the pages are therefore found by what they are, not by tab index.
class CDlgJump : public CKqPropertySheet
{
    Q_OBJECT

public:
    // An editor on jump, or on a new jump when jump is null. store keeps the new jumps' time and
    // wind choices; messages shows the checks' refusals (not owned).
    CDlgJump(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store, const IClock& clock,
             const CJump* jump, IMessageSink* messages, QWidget* parent = nullptr);
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
    // The recording's page, or null when the jump has no recording.
    CDlgJumpPageRecording* RecordingPage() const { return m_recording; }
    // The page of one of the editor's rules' pages.
    CKqPropertyPage* PageFor(CJumpEdit::Page page) const;

    // Opens on one of the editor's pages, a CJumpEdit::Page and not a tab index: the recording's
    // tab may come before it.
    void StartOnPage(int page) { CKqPropertySheet::StartOnPage(PageFor(static_cast<CJumpEdit::Page>(page))); }
    using CKqPropertySheet::StartOnPage;
    // Adds the recording's page when a recording was taken after the editor was made.
    void InitialisePages() override;

protected:
    bool Apply() override;

private:
    // Puts the recording's page after Info once the editor has a recording.
    void AddRecordingPage();

    CJumpEdit m_edit;
    CJumpEdit::ApplyResult m_result;
    CDlgJumpPageDetails* m_details;
    CDlgJumpPageFallrate* m_fallrate;
    CDlgJumpPageInfo* m_info;
    CDlgJumpPageNote* m_note;
    CDlgJumpPageSignature* m_signature;
    CDlgJumpPageRecording* m_recording = nullptr;
};
