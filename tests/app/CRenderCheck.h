#pragma once

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QLabel>
#include <QScrollBar>
#include <QStringList>
#include <QWidget>

// Looks at a rendered window as a person would: texts cut short and pages that only fit by
// scrolling sideways.
namespace RenderCheck {

// The visible labels and buttons below root narrower or lower than their text needs.
inline QStringList Clipped(QWidget* root)
{
    QStringList clipped;
    for (QWidget* child : root->findChildren<QWidget*>()) {
        if (!child->isVisibleTo(root))
            continue;
        const auto* label = qobject_cast<QLabel*>(child);
        const auto* button = qobject_cast<QAbstractButton*>(child);
        if ((!label || label->text().isEmpty()) && (!button || button->text().isEmpty()))
            continue;
        const QSize need = child->minimumSizeHint();
        if (child->width() + 1 < need.width() || child->height() + 1 < need.height())
            clipped.append(
                QStringLiteral("%1 '%2' %3x%4 < %5x%6")
                    .arg(QString::fromLatin1(child->metaObject()->className()), label ? label->text() : button->text())
                    .arg(child->width())
                    .arg(child->height())
                    .arg(need.width())
                    .arg(need.height()));
    }
    return clipped;
}

// The visible scroll areas from root down that scroll sideways (their content is wider than
// they); root counts too, as a sheet's page lies in its own scroll area.
inline QStringList ScrollsSideways(QWidget* root)
{
    QStringList wide;
    QList<QAbstractScrollArea*> areas = root->findChildren<QAbstractScrollArea*>();
    if (auto* self = qobject_cast<QAbstractScrollArea*>(root))
        areas.prepend(self);
    for (QAbstractScrollArea* area : areas)
        if ((area == root || area->isVisibleTo(root)) && area->horizontalScrollBar()->isVisible() &&
            area->horizontalScrollBar()->maximum() > 0)
            wide.append(area->objectName());
    return wide;
}

} // namespace RenderCheck
