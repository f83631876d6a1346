#pragma once

#include "controls/CKqPropertyPage.h"

class CJumpEdit;
class CRecordingPlot;

// The jump editor's page of the jump's flight recording (the jump's own or one just imported):
// its plot, read-only. The exit and the deployment are marked while the fall rate is the one
// imported with the recording, whose times count from the exit.
class CDlgJumpPageRecording : public CKqPropertyPage
{
    Q_OBJECT

public:
    // A page for an editor whose Recording() is not null.
    explicit CDlgJumpPageRecording(const CJumpEdit& edit, QWidget* parent = nullptr);

    // Draws the recording the jump will have after OK.
    void Initialise() override;
    // Nothing on the page can be changed, so nothing can fail.
    CCheckResult Validate() override { return CCheckResult::Pass(); }

    // Marks the exit and deployment for an imported fall rate, and nothing for any other kind;
    // called again when the user picks another kind.
    void UpdateMarks();

    CRecordingPlot* Plot() const { return m_plot; }

private:
    const CJumpEdit& m_edit;
    CRecordingPlot* m_plot;
};
