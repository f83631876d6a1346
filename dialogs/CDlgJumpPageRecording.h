#pragma once

#include "controls/CKqPropertyPage.h"

#include <optional>

class CJumpEdit;
class CRecordingPlot;

// The jump editor's page of the jump's flight recording (the jump's own or one just imported):
// its plot, read-only. The exit and the deployment are marked: while the fall rate is the one
// imported with the recording, whose times count from the exit, at 0 and the freefall time;
// otherwise where the detection finds them in the recording.
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

    // Marks the exit and deployment for the fall-rate kind now picked; called again when the
    // user picks another kind.
    void UpdateMarks();

    CRecordingPlot* Plot() const { return m_plot; }

private:
    const CJumpEdit& m_edit;
    CRecordingPlot* m_plot;
    std::optional<double> m_detectedExit;
    std::optional<double> m_detectedDeployment;
};
