#include "app/CArtwork.h"

#include <QSvgRenderer>

// Q_INIT_RESOURCE must run outside any namespace; the artwork lives in a static library, so
// nothing would pull its registration in otherwise.
static void InitArtResource()
{
    Q_INIT_RESOURCE(TervolaArt);
}

namespace {

QRectF Scaled(const QSizeF& size, const QRectF& target, bool covering)
{
    if (size.isEmpty())
        return target;
    const double sx = target.width() / size.width();
    const double sy = target.height() / size.height();
    const double scale = covering ? std::max(sx, sy) : std::min(sx, sy);
    const QSizeF scaled = size * scale;
    return QRectF(target.center().x() - scaled.width() / 2, target.center().y() - scaled.height() / 2, scaled.width(),
                  scaled.height());
}

void Paint(QPainter& painter, const QString& name, const QRectF& target, int mode)
{
    QSvgRenderer renderer(CArtwork::Path(name));
    if (!renderer.isValid())
        return;
    if (mode == 0) {
        renderer.render(&painter, target);
        return;
    }
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    renderer.render(&painter, Scaled(renderer.viewBoxF().size(), target, mode == 2));
    painter.restore();
}

} // namespace

void CArtwork::Init()
{
    static const bool done = [] {
        InitArtResource();
        return true;
    }();
    (void)done;
}

QString CArtwork::Path(const QString& name)
{
    Init();
    return QStringLiteral(":/art/") + name;
}

QIcon CArtwork::Icon(const QString& name)
{
    return QIcon(Path(name));
}

void CArtwork::PaintStretched(QPainter& painter, const QString& name, const QRectF& target)
{
    Paint(painter, name, target, 0);
}

void CArtwork::PaintFitted(QPainter& painter, const QString& name, const QRectF& target)
{
    Paint(painter, name, target, 1);
}

void CArtwork::PaintCovering(QPainter& painter, const QString& name, const QRectF& target)
{
    Paint(painter, name, target, 2);
}

bool CArtwork::IsValid(const QString& name)
{
    QSvgRenderer renderer(Path(name));
    return renderer.isValid();
}
