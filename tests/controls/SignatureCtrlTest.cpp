// The signature area: strokes from the mouse, touch and pen in the fixed logical space at any
// widget size, strokes that end where the pointer leaves the area, the painted dots and lines,
// read-only mode and the undo button.

#include "controls/CSignatureCtrl.h"

#include <QImage>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabletEvent>
#include <QTest>

#include <functional>

using Strokes = std::vector<CSignatureCtrl::Stroke>;

namespace {

// One pointer event at a widget position from the mouse ('m'), a finger ('t') or a pen ('p');
// phase 0 is the press, 1 a move, 2 the release.
void Send(CSignatureCtrl& ctrl, QChar device, int phase, QPoint at)
{
    static QPointingDevice* const touchScreen = QTest::createTouchDevice();
    if (device == u't') {
        // Through the window system, so that Qt would also make mouse events from unhandled touch.
        auto touch = QTest::touchEvent(&ctrl, touchScreen);
        phase == 0 ? touch.press(0, at) : phase == 1 ? touch.move(0, at) : touch.release(0, at);
        return;
    }
    // Moves carry the held button, the release none.
    const Qt::MouseButtons held = phase == 2 ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButton button = phase == 1 ? Qt::NoButton : Qt::LeftButton;
    const QPointF global = ctrl.mapToGlobal(QPointF(at));
    if (device == u'm') {
        const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease};
        QMouseEvent event(types[phase], at, global, button, held, Qt::NoModifier);
        QApplication::sendEvent(&ctrl, &event);
        return;
    }
    const QEvent::Type types[] = {QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease};
    QTabletEvent event(types[phase], QPointingDevice::primaryPointingDevice(), at, global, 0.5, 0, 0, 0, 0, 0,
                       Qt::NoModifier, button, held);
    QApplication::sendEvent(&ctrl, &event);
}

// Pointer events from a script such as "md240,100 mm260,100 mu260,100": the device as above,
// the phase (down 'd', move 'm', up 'u') and the widget position.
void Send(CSignatureCtrl& ctrl, const QString& script)
{
    for (const QString& word : script.split(QLatin1Char(' '))) {
        const QStringList xy = word.mid(2).split(QLatin1Char(','));
        Send(ctrl, word[0], QStringLiteral("dmu").indexOf(word[1]), QPoint(xy[0].toInt(), xy[1].toInt()));
    }
}

const QSize kSmall(240, 100), kLarge(480, 200);

} // namespace

class SignatureCtrlTest : public QObject
{
    Q_OBJECT

private slots:
    // Widget positions and the logical points they give: at 480x200 one logical pixel takes
    // 1.92 widget pixels and the area starts at (9.6, 4); at 240x100 it takes 0.92.
    void inputGivesLogicalStrokes()
    {
        const struct
        {
            const char* name;
            const char* steps;
            Strokes expected;
            QSize size = kLarge;
            bool readOnly = false;
        } cases[] = {{"tap at the centre", "md120,50 mu120,50", {{{120, 50}}}, kSmall},
                     {"tap at the centre, twice the size", "md240,100 mu240,100", {{{120, 50}}}},
                     {"drag", "md240,100 mm260,100 mm300,150 mu300,150", {{{120, 50}, {130, 50}, {151, 76}}}},
                     {"out on the right, back, then a new press",
                      "md240,100 mm469,100 mm470,100 mm200,100 mu200,100 md100,60 mu100,60",
                      {{{120, 50}, {239, 50}}, {{47, 29}}}},
                     {"out at the bottom", "md240,100 mm240,195 mm240,196 mm240,100", {{{120, 50}, {120, 99}}}},
                     {"moves after the release", "md240,100 mu240,100 mm260,100", {{{120, 50}}}},
                     {"press beside the area", "md20,50 mm240,50 mu240,50", {}, QSize(480, 100)},
                     {"read-only", "md240,100 mm260,100 mu260,100", {}, kLarge, true},
                     {"touch drag, one stroke only", "td240,100 tm260,100 tu260,100", {{{120, 50}, {130, 50}}}},
                     {"touch out and back", "td240,100 tm475,100 tm260,100 tu260,100", {{{120, 50}}}},
                     {"pen drag", "pd240,100 pm260,100 pu260,100", {{{120, 50}, {130, 50}}}}};
        for (const auto& c : cases) {
            CSignatureCtrl ctrl;
            ctrl.setFixedSize(c.size);
            ctrl.SetReadOnly(c.readOnly);
            ctrl.show();
            QVERIFY(QTest::qWaitForWindowExposed(&ctrl));
            Send(ctrl, QLatin1String(c.steps));
            QVERIFY2(ctrl.Strokes() == c.expected, c.name);
            QVERIFY2(ctrl.IsEmpty() == c.expected.empty(), c.name);
        }
        // A layout that gives the area its natural width gives it the signature's aspect.
        const CSignatureCtrl ctrl;
        QCOMPARE(ctrl.heightForWidth(ctrl.sizeHint().width()), ctrl.sizeHint().height());
    }

    // Points painted dark and points left in the face's colour (white, or the dialog's when
    // read-only); the frame sets the area off from a white dialog.
    void paintsDotsAndLinesOnTheFace()
    {
        const struct
        {
            Strokes strokes;
            QList<QPoint> dark, face;
            QSize size = kSmall;
            bool readOnly = false;
        } cases[] = {
            {{}, {}, {{120, 50}, {3, 3}, {236, 96}}},
            {{{{120, 50}}}, {{120, 50}}, {{123, 50}, {117, 50}, {120, 53}, {120, 47}}},
            {{{{120, 50}}}, {{240, 100}, {239, 99}}, {{244, 100}, {235, 100}, {240, 104}}, kLarge},
            {{{{20, 50}, {220, 50}}}, {{60, 100}, {420, 100}}, {{36, 100}, {446, 100}, {240, 105}, {240, 95}}, kLarge},
            {{{{120, 50}}}, {{120, 50}}, {{124, 50}, {3, 3}}, kSmall, true}};
        for (const auto& c : cases) {
            CSignatureCtrl ctrl;
            ctrl.resize(c.size);
            ctrl.SetStrokes(c.strokes);
            ctrl.SetReadOnly(c.readOnly);
            const QColor face = c.readOnly ? ctrl.palette().color(QPalette::Window) : QColor(Qt::white);
            QVERIFY(face != Qt::white || !c.readOnly);
            const QImage image = ctrl.grab().toImage();
            for (const QPoint& at : c.dark)
                QVERIFY2(qGray(image.pixel(at)) < 100, qPrintable(QStringLiteral("(%1,%2)").arg(at.x()).arg(at.y())));
            for (const QPoint& at : c.face)
                QCOMPARE(image.pixelColor(at), face);
            QVERIFY(image.pixelColor(0, c.size.height() / 2) != Qt::white);
        }
    }

    // Steps of one session; the button is enabled exactly when writable with a stroke.
    void undoButtonRemovesNewestFirst()
    {
        CSignatureCtrl ctrl;
        ctrl.resize(240, 100);
        QPushButton undo;
        QSignalSpy changed(&ctrl, &CSignatureCtrl::strokesChanged);
        const Strokes three{{{1, 1}}, {{2, 2}, {3, 3}}, {{4, 4}}};
        const Strokes two(three.begin(), three.begin() + 2), one(three.begin(), three.begin() + 1);
        const auto tap = [&] { Send(ctrl, QStringLiteral("md120,50")); };
        struct
        {
            const char* step;
            std::function<void()> act;
            Strokes strokes;
            bool enabled;
            int emitted;
        } const steps[] = {
            {"attach", [&] { ctrl.AttachUndoButton(&undo); }, {}, false, 0},
            {"set", [&] { ctrl.SetStrokes(three); }, three, true, 1},
            {"undo", [&] { undo.click(); }, two, true, 1},
            {"undo", [&] { undo.click(); }, one, true, 1},
            {"undo", [&] { undo.click(); }, {}, false, 1},
            {"remove on empty", [&] { ctrl.RemoveLastStroke(); }, {}, false, 0},
            {"tap", tap, {{{120, 50}}}, true, 1},
            {"read-only", [&] { ctrl.SetReadOnly(true); }, {{{120, 50}}}, false, 0},
            {"writable", [&] { ctrl.SetReadOnly(false); }, {{{120, 50}}}, true, 0},
            {"clear", [&] { ctrl.Clear(); }, {}, false, 1},
        };
        for (const auto& step : steps) {
            changed.clear();
            step.act();
            QVERIFY2(ctrl.Strokes() == step.strokes, step.step);
            QVERIFY2(undo.isEnabled() == step.enabled, step.step);
            QVERIFY2(changed.count() == step.emitted, step.step);
        }
    }
};

QTEST_MAIN(SignatureCtrlTest)
#include "SignatureCtrlTest.moc"
