// Renders the three keypads, fresh and in the middle of an entry (with disabled, pressed and
// focused keys), at the handheld, phone and desktop sizes into PNG files (folder "screens"
// beside this program, or the folder given as first argument), and checks each layout: the
// pad fits the screen, every key and line lies inside the pad, no two overlap, and no key is
// squeezed below its smallest size. Also draws the key's looks side by side. Exits with the
// number of problems found.

#include "CRenderCheck.h"

#include "controls/CDurationPadDlg.h"
#include "controls/CKqButton.h"
#include "controls/CNumberPadDlg.h"
#include "controls/CTimePadDlg.h"

#include <QApplication>
#include <QTextStream>

#include <memory>

namespace {

struct Scene
{
    QString name;
    bool german;
    // The pad ('n' number, 'd' duration, 't' time) and the values it opens with.
    char pad;
    QList<int> values;
    // The keys clicked in turn (space-separated), a key shown held down and one shown with the focus.
    QString keys, down = {}, focus = {};
};

std::unique_ptr<CKqPadDlg> MakePad(const Scene& scene)
{
    const QList<int>& v = scene.values;
    if (scene.pad == 'n')
        return std::make_unique<CNumberPadDlg>(nullptr, QString(), v[0], v[1], v[2] != 0);
    if (scene.pad == 'd')
        return std::make_unique<CDurationPadDlg>(nullptr, QString(), v[0], v[1], v[2], v[3]);
    return std::make_unique<CTimePadDlg>(nullptr, QString(), v[0], v[1]);
}

// The key's looks: plain, pressed, focused, disabled, with an icon, disabled with an icon.
QWidget* ButtonStrip()
{
    auto* strip = new QWidget;
    QPixmap mark(16, 16);
    mark.fill(QColor(40, 120, 40));
    const QStringList looks = {"plain", "pressed", "focused", "disabled", "icon", "icon off"};
    QList<CKqButton*> buttons;
    for (int i = 0; i < looks.size(); ++i) {
        buttons.append(new CKqButton(looks[i], QColor(188, 204, 239), strip));
        buttons[i]->setGeometry(4 + i * 84, 4, 80, 40);
        if (i >= 4)
            buttons[i]->setIcon(QIcon(mark));
    }
    strip->resize(4 + looks.size() * 84, 48);
    strip->show();
    buttons[1]->setDown(true);
    strip->activateWindow();
    buttons[2]->setFocus(Qt::TabFocusReason);
    buttons[3]->setEnabled(false);
    buttons[5]->setEnabled(false);
    return strip;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString target = argc > 1 ? QString::fromLocal8Bit(argv[1])
                                    : QCoreApplication::applicationDirPath() + QStringLiteral("/screens");
    QDir().mkpath(target);

    const QList<Scene> scenes = {{"number_fresh", false, 'n', {0, 2, 0}, ""},
                                 {"number_opened", false, 'n', {4000, 0, 0}, ""},
                                 {"number_entry", true, 'n', {0, 2, 1}, "1 2 3 4 separator 5", "7", "back"},
                                 {"number_sum", true, 'n', {0, 0, 0}, "2 plus 3 equals"},
                                 {"duration_fresh", false, 'd', {0, 0, 0, 999}, ""},
                                 {"duration_entry", false, 'd', {998, 59, 50, 999}, "s_plus10", "h_minus5", "m_plus1"},
                                 {"duration_short", false, 'd', {1, 20, 0, 50}, "m_plus10"},
                                 {"time_fresh", false, 't', {12, 0}, ""},
                                 {"time_entry", false, 't', {23, 50}, "plus15", "h_24", "m_30"}};

    QTextStream out(stdout);
    int problems = 0;
    const auto report = [&](const QString& name, const QStringList& found) {
        for (const QString& problem : found)
            out << name << ": " << problem << Qt::endl;
        problems += found.size();
    };
    for (const Scene& scene : scenes) {
        RenderCheck::UseLanguage(scene.german ? QLocale(QLocale::German, QLocale::Germany)
                                              : QLocale(QLocale::English, QLocale::UnitedStates));
        for (const QSize& size : RenderCheck::kSizes) {
            const std::unique_ptr<CKqPadDlg> pad = MakePad(scene);
            pad->FitTo(size);
            pad->show();
            const auto key = [&pad](const QString& name) { return pad->findChild<CKqButton*>("key_" + name); };
            for (const QString& name : scene.keys.split(QLatin1Char(' '), Qt::SkipEmptyParts))
                key(name)->click();
            if (!scene.down.isEmpty())
                key(scene.down)->setDown(true);
            if (!scene.focus.isEmpty()) {
                pad->activateWindow();
                key(scene.focus)->setFocus(Qt::TabFocusReason);
            }
            QApplication::processEvents();
            const QString name = QStringLiteral("%1_%2x%3").arg(scene.name).arg(size.width()).arg(size.height());
            QList<QWidget*> parts;
            for (QWidget* part : pad->findChildren<QWidget*>())
                if (part->isVisibleTo(pad.get()) && (qobject_cast<CKqButton*>(part) || qobject_cast<QLabel*>(part)))
                    parts.append(part);
            QStringList found = RenderCheck::Layout(pad.get(), parts);
            if (pad->width() > size.width() || pad->height() > size.height())
                found.append(
                    QStringLiteral("pad %1x%2 is larger than the screen").arg(pad->width()).arg(pad->height()));
            if (!pad->grab().save(target + QLatin1Char('/') + name + QStringLiteral(".png")))
                found.append(QStringLiteral("cannot write the picture"));
            report(name, found);
            out << name << ": " << pad->width() << "x" << pad->height() << Qt::endl;
        }
    }
    const std::unique_ptr<QWidget> strip(ButtonStrip());
    QApplication::processEvents();
    if (!strip->grab().save(target + QStringLiteral("/buttons.png")))
        report(QStringLiteral("buttons"), {QStringLiteral("cannot write the picture")});
    out << "pictures in " << target << ", problems: " << problems << Qt::endl;
    return problems;
}
