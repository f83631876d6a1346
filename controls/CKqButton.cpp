#include "controls/CKqButton.h"

#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

// Room left and right of the label inside the face.
constexpr int kPadding = 2;
constexpr qreal kRadius = 4.0;
constexpr int kSmallestFont = 8;
// Room between an icon and its label.
constexpr int kIconGap = 4;

} // namespace

CKqButton::CKqButton(const QString& text, QWidget* parent) : CKqButton(text, QColor(), parent)
{
}

CKqButton::CKqButton(const QString& text, const QColor& face, QWidget* parent)
    : QAbstractButton(parent), m_face(face.isValid() ? face : palette().color(QPalette::Button))
{
    setText(text);
    setFont(PadFont());
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CKqButton::SetFaceColour(const QColor& face)
{
    m_face = face;
    update();
}

QFont CKqButton::PadFont()
{
    static const QString family = QFontDatabase::families().contains(QStringLiteral("Tahoma"))
                                      ? QStringLiteral("Tahoma")
                                      : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(14);
    font.setWeight(QFont::Bold);
    return font;
}

QSize CKqButton::sizeHint() const
{
    const QFontMetrics metrics(font());
    int width = metrics.horizontalAdvance(text()) + 4 * kPadding;
    if (!icon().isNull())
        width += iconSize().width() + kIconGap;
    return QSize(std::max(width, 40), std::max(metrics.height() + 4 * kPadding, 36));
}

QSize CKqButton::minimumSizeHint() const
{
    // A label may shrink to the smallest font; the face keeps a margin round it.
    QFont smallest = font();
    smallest.setPixelSize(kSmallestFont);
    const QFontMetrics metrics(smallest);
    int width = metrics.horizontalAdvance(text()) + 2 * kPadding;
    if (!icon().isNull())
        width += std::min(iconSize().width(), 16) + kIconGap;
    return QSize(std::max(width, 16), metrics.height() + 2 * kPadding);
}

QFont CKqButton::FittingFont(int width) const
{
    QFont fitting = font();
    int size = fitting.pixelSize() > 0 ? fitting.pixelSize() : 14;
    while (size > kSmallestFont && QFontMetrics(fitting).horizontalAdvance(text()) > width)
        fitting.setPixelSize(--size);
    return fitting;
}

QColor CKqButton::LabelColour() const
{
    // A plain mid grey: the palette's disabled text is too close to the washed-out face.
    return isEnabled() ? palette().color(QPalette::Active, QPalette::ButtonText) : QColor(128, 128, 128);
}

void CKqButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool enabled = isEnabled();
    const bool down = isDown() || isChecked();
    const QRectF outline = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);

    // Disabled keys keep a hint of their colour but lose its strength.
    QColor face = m_face;
    if (!enabled)
        face = QColor::fromHsv(m_face.hsvHue(), m_face.hsvSaturation() / 4, std::min(255, m_face.value() + 20));
    else if (down)
        face = m_face.darker(125);

    QPainterPath path;
    path.addRoundedRect(outline, kRadius, kRadius);
    if (enabled && !down) {
        QLinearGradient gradient(outline.topLeft(), outline.bottomLeft());
        gradient.setColorAt(0.0, face.lighter(118));
        gradient.setColorAt(1.0, face.darker(106));
        painter.fillPath(path, gradient);
    } else {
        painter.fillPath(path, face);
    }

    // A light upper edge makes a raised key; a pushed key gets a shadow along its top instead.
    if (enabled) {
        const QRectF inner = outline.adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setPen(QPen(down ? face.darker(140) : face.lighter(140), 1.0));
        painter.drawLine(QPointF(inner.left() + kRadius, inner.top()), QPointF(inner.right() - kRadius, inner.top()));
    }
    painter.setPen(QPen(enabled ? m_face.darker(down ? 220 : 170) : face.darker(130), 1.0));
    painter.drawPath(path);

    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawRoundedRect(outline.adjusted(2.0, 2.0, -2.0, -2.0), kRadius - 1, kRadius - 1);
    }

    // The label, moved by a pixel while pushed.
    QRect area = rect().adjusted(kPadding, kPadding, -kPadding, -kPadding);
    if (down)
        area.translate(1, 1);
    if (!icon().isNull()) {
        const int side = std::min({iconSize().width(), iconSize().height(), area.height()});
        const QPixmap pixmap =
            icon().pixmap(QSize(side, side), devicePixelRatioF(), enabled ? QIcon::Normal : QIcon::Disabled);
        const QFont labelFont = FittingFont(std::max(0, area.width() - side - kIconGap));
        const int labelWidth = text().isEmpty() ? 0 : QFontMetrics(labelFont).horizontalAdvance(text()) + kIconGap;
        const int left = area.left() + std::max(0, (area.width() - side - labelWidth) / 2);
        painter.drawPixmap(QRect(left, area.top() + (area.height() - side) / 2, side, side), pixmap);
        area.setLeft(left + side + kIconGap);
        painter.setFont(labelFont);
        painter.setPen(LabelColour());
        painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, text());
        return;
    }
    painter.setFont(FittingFont(area.width()));
    painter.setPen(LabelColour());
    painter.drawText(area, Qt::AlignCenter, text());
}
