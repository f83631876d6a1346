#pragma once

#include "translations/CTranslations.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLocale>
#include <QScrollBar>
#include <QStringList>
#include <QTabWidget>
#include <QWidget>

// Looks at a rendered window as a person would: texts cut short, parts outside their window or
// over each other, and pages that only fit by scrolling sideways.
namespace RenderCheck {

// The handheld's portrait and landscape, a phone and a desktop.
inline const QList<QSize> kSizes = {{240, 320}, {320, 240}, {360, 640}, {1024, 768}};

// The language of the pictures: the system's when the program is translated into it (run with
// LANG=de_DE.UTF-8 to draw German pictures), otherwise the one asked for, so that an
// untranslated locale of the machine does not change them.
inline void UseLanguage(const QLocale& otherwise)
{
    const QLocale system = QLocale::system();
    const bool translated = CTranslations::Languages().contains(QLocale::languageToCode(system.language()));
    QLocale::setDefault(translated ? system : otherwise);
    CTranslations::Install(QLocale());
}

// Writes the picture into the folder named by TERVOLA_RENDER_DIR; nothing without it.
inline bool Save(QWidget* widget, const QString& file)
{
    const QString folder = qEnvironmentVariable("TERVOLA_RENDER_DIR");
    return folder.isEmpty() || widget->grab().save(QDir(folder).filePath(file));
}

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
        const auto size = [](QSize s) { return QStringLiteral("%1x%2").arg(s.width()).arg(s.height()); };
        if (child->width() + 1 < need.width() || child->height() + 1 < need.height())
            clipped.append(QStringLiteral("%1 '%2' %3 < %4")
                               .arg(QString::fromLatin1(child->metaObject()->className()),
                                    label ? label->text() : button->text(), size(child->size()), size(need)));
    }
    return clipped;
}

// The parts that leave root, are squeezed below their smallest size, cut their text or lie
// over another part.
inline QStringList Layout(QWidget* root, const QList<QWidget*>& parts)
{
    QStringList problems;
    const auto area = [root](const QWidget* part) { return QRect(part->mapTo(root, QPoint(0, 0)), part->size()); };
    for (int i = 0; i < parts.size(); ++i) {
        const QWidget* part = parts[i];
        if (!root->rect().contains(area(part)))
            problems.append(part->objectName() + QStringLiteral(" leaves ") + root->objectName());
        if (part->width() < part->minimumSizeHint().width() || part->height() < part->minimumSizeHint().height())
            problems.append(part->objectName() + QStringLiteral(" squeezed below its smallest size"));
        if (auto* label = qobject_cast<const QLabel*>(part); label && label->width() < label->sizeHint().width())
            problems.append(QStringLiteral("text '%1' is cut").arg(label->text()));
        for (int j = i + 1; j < parts.size(); ++j)
            if (area(part).intersects(area(parts[j])))
                problems.append(part->objectName() + QStringLiteral(" overlaps ") + parts[j]->objectName());
    }
    return problems;
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

// Shows each page of tabs at every size of kSizes, saves a picture of each ("NAME_PAGE_WxH.png")
// and returns what is clipped or scrolls sideways, each problem led by its picture's name.
inline QStringList EveryPageAtEverySize(QWidget& dialog, QTabWidget& tabs, const QString& name)
{
    QStringList problems;
    for (const QSize& size : kSizes) {
        dialog.resize(size);
        for (int page = 0; page < tabs.count(); ++page) {
            tabs.setCurrentIndex(page);
            QCoreApplication::processEvents();
            const QString file =
                QStringLiteral("%1_%2_%3x%4.png").arg(name).arg(page).arg(size.width()).arg(size.height());
            if (!Save(&dialog, file))
                problems << file + QStringLiteral(": not saved");
            for (const QString& problem : Clipped(&dialog) + ScrollsSideways(tabs.currentWidget()))
                problems << file + QStringLiteral(": ") + problem;
        }
    }
    return problems;
}

} // namespace RenderCheck
