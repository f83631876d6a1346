#include "controls/CRecordingPrint.h"

#include "controls/CRecordingPlot.h"
#include "model/CJump.h"
#include "tracks/RecordingDetection.h"

#include <QPainter>

void CRecordingPrint::Paint(QPainter& painter, const QRectF& area, const CJump& jump, const CUnitSettings& units,
                            double pixelsPerUnit)
{
    if (!jump.GetRecording().IsPresent() || area.isEmpty())
        return;
    CRecordingPlot plot(units);
    CRecordingSeries series(jump.GetRecording());
    // An imported recording counts its seconds from the exit; any other shows what the detection
    // finds in it, as the editor does.
    std::optional<double> exit, deployment;
    if (jump.GetFallrateKind() == FallrateKind::Import) {
        exit = 0.0;
        deployment = jump.GetStoredFreefallTime();
    } else if (const CJumpDetection detection = DetectJumpInSeries(series); detection.ok) {
        exit = detection.exitTime;
        deployment = detection.deployTime;
    }
    plot.SetSeries(std::move(series));
    plot.SetMarks(exit, deployment);
    const QSize size(qRound(area.width() * pixelsPerUnit), qRound(area.height() * pixelsPerUnit));
    plot.resize(size);
    plot.setAttribute(Qt::WA_DontShowOnScreen);
    plot.ensurePolished();
    painter.save();
    painter.translate(area.topLeft());
    painter.scale(1.0 / pixelsPerUnit, 1.0 / pixelsPerUnit);
    plot.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter.restore();
}
