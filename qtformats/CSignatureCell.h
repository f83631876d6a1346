#pragma once

#include "model/CJumpSignature.h"

#include <QRectF>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class CJump;
class QPainter;

// What the signature cell of a printed row shows: the witness's strokes, the signer's name under
// them and short lines under the name. A further line is one more entry in lines.
struct CSignatureCell
{
    std::vector<CJumpSignature::Stroke> strokes;
    QString signer;
    QStringList lines;

    // The cell of a jump: its signature's strokes and signer.
    static CSignatureCell FromJump(const CJump& jump);
};

// Draws a signature cell in a painter whose units are tenths of a point.
class CSignatureCellPainter
{
public:
    // Each text drawn: where it lies, in the cell's rectangle.
    using TextSink = std::function<void(const QRectF& text, const QString& content)>;

    // Draws cell into box (tenths of a point). Points of a stroke closer together than dot
    // (tenths of a point, what the device can still show apart) are left out.
    static void Paint(QPainter& painter, const QRectF& box, const CSignatureCell& cell, double dot,
                      const TextSink& sink = {});
    // The strokes' bounding box in their own pixels (empty without points).
    static QRectF Bounds(const std::vector<CJumpSignature::Stroke>& strokes);
};
