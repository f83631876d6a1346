#pragma once

#include "units/CUnitSettings.h"

#include <QRectF>

class CJump;
class QPainter;

// A jump's recording drawn on a page as the jump editor's Track or Profile page shows it (the
// same plot, painted into the page rather than on screen), with the exit and deployment marked.
class CRecordingPrint
{
public:
    // Paints the recording of jump into area of painter; text sizes follow a screen of
    // pixelsPerUnit pixels to the painter's unit.
    static void Paint(QPainter& painter, const QRectF& area, const CJump& jump, const CUnitSettings& units,
                      double pixelsPerUnit);
};
