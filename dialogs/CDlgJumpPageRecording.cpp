#include "dialogs/CDlgJumpPageRecording.h"

#include "controls/CRecordingPlot.h"
#include "editing/CJumpEdit.h"
#include "model/CJumpRecording.h"
#include "tracks/RecordingDetection.h"

#include <QVBoxLayout>

namespace {

// Short tab titles: a satellite recording is a track over the ground, a barometric one the
// altitude profile of the jump.
QString TitleOf(const CJumpEdit& edit)
{
    const CJumpRecording* recording = edit.Recording();
    return recording && recording->GetKind() == CJumpRecording::Satellite ? CDlgJumpPageRecording::tr("Track")
                                                                          : CDlgJumpPageRecording::tr("Profile");
}

} // namespace

CDlgJumpPageRecording::CDlgJumpPageRecording(const CJumpEdit& edit, QWidget* parent)
    : CKqPropertyPage(TitleOf(edit), parent), m_edit(edit)
{
    setObjectName(QStringLiteral("recordingPage"));
    m_plot = new CRecordingPlot(edit.Units(), this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(m_plot);
}

void CDlgJumpPageRecording::Initialise()
{
    const CJumpRecording* recording = m_edit.Recording();
    CRecordingSeries series = recording ? CRecordingSeries(*recording) : CRecordingSeries();
    // A recording whose times do not count from the exit shows the exit and deployment that
    // the detection finds in it.
    const CJumpDetection detection = DetectJumpInSeries(series);
    m_detectedExit = detection.ok ? std::optional<double>(detection.exitTime) : std::nullopt;
    m_detectedDeployment = detection.ok ? std::optional<double>(detection.deployTime) : std::nullopt;
    m_plot->SetSeries(std::move(series));
    UpdateMarks();
}

void CDlgJumpPageRecording::UpdateMarks()
{
    if (m_edit.Values().kind != FallrateKind::Import) {
        m_plot->SetMarks(m_detectedExit, m_detectedDeployment);
        return;
    }
    // An imported recording counts its seconds from the exit; the deployment follows after the
    // freefall time, exact as imported where the editor keeps it.
    const CJumpFallrate* imported = m_edit.ImportedFallrate();
    m_plot->SetMarks(0.0, imported ? imported->freefallTime : m_edit.Values().delay);
}
