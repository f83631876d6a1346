// Renders the three keypads, fresh and in the middle of an entry (with disabled, pressed and
// focused keys), at the handheld, phone and desktop sizes into PNG files (folder "screens"
// beside this program, or the folder given as first argument), and checks each layout: the
// pad fits the screen, every key and line lies inside the pad, no two overlap, and no key is
// squeezed below its smallest size. Exits with the number of problems found.

#include "CPictureLanguage.h"

#include "controls/CDurationPadDlg.h"
#include "controls/CKqButton.h"
#include "controls/CNumberPadDlg.h"
#include "controls/CTimePadDlg.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QTextStream>

#include <functional>
#include <memory>

namespace {

QTextStream& Out()
{
    static QTextStream out(stdout);
    return out;
}

QRect InDialog(const QWidget* widget, const QWidget* dialog)
{
    return QRect(widget->mapTo(dialog, QPoint(0, 0)), widget->size());
}

int CheckLayout(const CKqPadDlg& pad, const QSize& screen, const QString& name)
{
    int problems = 0;
    const auto report = [&](const QString& text) {
        Out() << name << ": " << text << Qt::endl;
        ++problems;
    };
    if (pad.width() > screen.width() || pad.height() > screen.height())
        report(QStringLiteral("pad %1x%2 is larger than the screen").arg(pad.width()).arg(pad.height()));
    QList<QWidget*> parts;
    for (QWidget* part : pad.findChildren<QWidget*>())
        if (part->isVisibleTo(&pad) && (qobject_cast<CKqButton*>(part) || qobject_cast<QLabel*>(part)))
            parts.append(part);
    for (QWidget* part : parts) {
        const QRect area = InDialog(part, &pad);
        if (!pad.rect().contains(area))
            report(QStringLiteral("%1 %2 leaves the pad").arg(part->objectName(), QDebug::toString(area)));
        if (part->width() < part->minimumSizeHint().width() || part->height() < part->minimumSizeHint().height())
            report(QStringLiteral("%1 squeezed below its smallest size").arg(part->objectName()));
        if (auto* label = qobject_cast<QLabel*>(part); label && label->width() < label->sizeHint().width())
            report(QStringLiteral("text '%1' is cut").arg(label->text()));
    }
    for (int i = 0; i < parts.size(); ++i)
        for (int j = i + 1; j < parts.size(); ++j)
            if (InDialog(parts[i], &pad).intersects(InDialog(parts[j], &pad)))
                report(QStringLiteral("%1 overlaps %2").arg(parts[i]->objectName(), parts[j]->objectName()));
    return problems;
}

// Clicks the named keys in turn.
void Click(CKqPadDlg& pad, const QStringList& keys)
{
    for (const QString& key : keys)
        if (auto* button = pad.findChild<CKqButton*>(QStringLiteral("key_") + key))
            button->click();
}

struct Scene
{
    QString name;
    QLocale locale;
    std::function<std::unique_ptr<CKqPadDlg>()> make;
    // The keys clicked in turn (space-separated), a key shown held down and one shown with the focus.
    QString keys, down = {}, focus = {};
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString target = argc > 1 ? QString::fromLocal8Bit(argv[1])
                                    : QCoreApplication::applicationDirPath() + QStringLiteral("/screens");
    QDir().mkpath(target);

    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    const QList<Scene> scenes = {
        {"number_fresh", english, [] { return std::make_unique<CNumberPadDlg>(nullptr, QString(), 0, 2, false); }, ""},
        {"number_entry", german, [] { return std::make_unique<CNumberPadDlg>(nullptr, "Fall rate", 0, 2, true); },
         "1 2 3 4 separator 5", "7", "back"},
        {"number_sum", german, [] { return std::make_unique<CNumberPadDlg>(nullptr, QString(), 0, 0, false); },
         "2 plus 3 equals"},
        {"duration_fresh", english, [] { return std::make_unique<CDurationPadDlg>(nullptr, QString(), 0, 0, 0, 999); },
         ""},
        {"duration_entry", english,
         [] { return std::make_unique<CDurationPadDlg>(nullptr, QString(), 998, 59, 50, 999); }, "s_plus10", "h_minus5",
         "m_plus1"},
        {"duration_short", english, [] { return std::make_unique<CDurationPadDlg>(nullptr, QString(), 1, 20, 0, 50); },
         "m_plus10"},
        {"time_fresh", english, [] { return std::make_unique<CTimePadDlg>(nullptr, QString(), 12, 0); }, ""},
        {"time_entry", english, [] { return std::make_unique<CTimePadDlg>(nullptr, QString(), 23, 50); }, "plus15",
         "h_24", "m_30"}};
    const QList<QSize> sizes = {{240, 320}, {320, 240}, {360, 640}, {1024, 768}};

    int problems = 0;
    for (const Scene& scene : scenes) {
        PictureLanguage::Use(scene.locale);
        for (const QSize& size : sizes) {
            const std::unique_ptr<CKqPadDlg> pad = scene.make();
            pad->FitTo(size);
            pad->show();
            Click(*pad, scene.keys.split(QLatin1Char(' '), Qt::SkipEmptyParts));
            if (auto* down = scene.down.isEmpty() ? nullptr : pad->findChild<CKqButton*>("key_" + scene.down))
                down->setDown(true);
            if (auto* focus = scene.focus.isEmpty() ? nullptr : pad->findChild<CKqButton*>("key_" + scene.focus)) {
                pad->activateWindow();
                focus->setFocus(Qt::TabFocusReason);
            }
            QApplication::processEvents();
            const QString name = QStringLiteral("%1_%2x%3").arg(scene.name).arg(size.width()).arg(size.height());
            problems += CheckLayout(*pad, size, name);
            const QString file = target + QLatin1Char('/') + name + QStringLiteral(".png");
            if (!pad->grab().save(file))
                Out() << name << ": cannot write " << file << Qt::endl, ++problems;
            Out() << name << ": " << pad->width() << "x" << pad->height() << Qt::endl;
        }
    }
    // The key's looks side by side: plain, pressed, focused, disabled, with an icon, disabled icon.
    QWidget strip;
    strip.setObjectName(QStringLiteral("buttons"));
    QPixmap mark(16, 16);
    mark.fill(Qt::transparent);
    {
        QPainter painter(&mark);
        painter.setBrush(QColor(40, 120, 40));
        painter.drawEllipse(1, 1, 14, 14);
    }
    const QStringList looks = {QStringLiteral("plain"),    QStringLiteral("pressed"), QStringLiteral("focused"),
                               QStringLiteral("disabled"), QStringLiteral("icon"),    QStringLiteral("icon off")};
    for (int i = 0; i < looks.size(); ++i) {
        auto* button = new CKqButton(looks[i], QColor(188, 204, 239), &strip);
        button->setObjectName(looks[i]);
        button->setGeometry(4 + i * 84, 4, 80, 40);
        if (i >= 4)
            button->setIcon(QIcon(mark));
    }
    strip.resize(4 + looks.size() * 84, 48);
    strip.show();
    strip.findChild<CKqButton*>(QStringLiteral("pressed"))->setDown(true);
    strip.activateWindow();
    strip.findChild<CKqButton*>(QStringLiteral("focused"))->setFocus(Qt::TabFocusReason);
    strip.findChild<CKqButton*>(QStringLiteral("disabled"))->setEnabled(false);
    strip.findChild<CKqButton*>(QStringLiteral("icon off"))->setEnabled(false);
    QApplication::processEvents();
    if (!strip.grab().save(target + QStringLiteral("/buttons.png")))
        Out() << "buttons: cannot write the picture" << Qt::endl, ++problems;

    Out() << "pictures in " << target << ", problems: " << problems << Qt::endl;
    return problems;
}
