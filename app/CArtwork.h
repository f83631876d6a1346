#pragma once

#include <QIcon>
#include <QPainter>
#include <QRectF>
#include <QString>

// The program's own artwork, kept as SVG in the resources under ":/art/".
class CArtwork
{
public:
    // Registers the compiled-in artwork; safe to call more than once.
    static void Init();
    // The resource path of an artwork file name such as "home.svg".
    static QString Path(const QString& name);
    // An icon drawn from the SVG at whatever size it is shown.
    static QIcon Icon(const QString& name);
    // Draws the SVG stretched over target.
    static void PaintStretched(QPainter& painter, const QString& name, const QRectF& target);
    // Draws the SVG as large as fits into target, centred, keeping its proportions.
    static void PaintFitted(QPainter& painter, const QString& name, const QRectF& target);
    // Draws the SVG covering target, keeping its proportions (overflow is clipped).
    static void PaintCovering(QPainter& painter, const QString& name, const QRectF& target);
    // True when the artwork exists and is a valid SVG.
    static bool IsValid(const QString& name);
};
