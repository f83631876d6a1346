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

enum class Device
{
    Mouse,
    Touch,
    Pen
};
enum class Phase
{
    Press,
    Move,
    Release
};

// One pointer event at a widget position.
struct CStep
{
    Device device;
    Phase phase;
    QPoint at;
};

void Send(CSignatureCtrl& ctrl, const CStep& step)
{
    static QPointingDevice* const touchScreen = QTest::createTouchDevice();
    const int phase = int(step.phase);
    if (step.device == Device::Touch) {
        // Through the window system, so that Qt would also make mouse events from unhandled touch.
        auto touch = QTest::touchEvent(&ctrl, touchScreen);
        phase == 0 ? touch.press(0, step.at) : phase == 1 ? touch.move(0, step.at) : touch.release(0, step.at);
        return;
    }
    // Moves carry the held button, the release none.
    const Qt::MouseButtons held = step.phase == Phase::Release ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButton button = step.phase == Phase::Move ? Qt::NoButton : Qt::LeftButton;
    const QPointF global = ctrl.mapToGlobal(QPointF(step.at));
    if (step.device == Device::Mouse) {
        const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease};
        QMouseEvent event(types[phase], step.at, global, button, held, Qt::NoModifier);
        QApplication::sendEvent(&ctrl, &event);
        return;
    }
    const QEvent::Type types[] = {QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease};
    QTabletEvent event(types[phase], QPointingDevice::primaryPointingDevice(), step.at, global, 0.5, 0, 0, 0, 0, 0,
                       Qt::NoModifier, button, held);
    QApplication::sendEvent(&ctrl, &event);
}

} // namespace

Q_DECLARE_METATYPE(QList<CStep>)
Q_DECLARE_METATYPE(Strokes)

class SignatureCtrlTest : public QObject
{
    Q_OBJECT

private slots:
    // Widget positions and the logical points they give: at 480x200 one logical pixel takes
    // 1.92 widget pixels and the area starts at (9.6, 4); at 240x100 it takes 0.92.
    void inputGivesLogicalStrokes_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<QList<CStep>>("steps");
        QTest::addColumn<Strokes>("expected");
        const auto m = [](Phase phase, int x, int y) { return CStep{Device::Mouse, phase, {x, y}}; };
        const auto t = [](Phase phase, int x, int y) { return CStep{Device::Touch, phase, {x, y}}; };
        const auto p = [](Phase phase, int x, int y) { return CStep{Device::Pen, phase, {x, y}}; };
        const auto down = Phase::Press, move = Phase::Move, up = Phase::Release;
        const QSize small(240, 100), large(480, 200);

        const auto row = [](const char* name, QSize size, bool readOnly, QList<CStep> steps, Strokes expected) {
            QTest::newRow(name) << size << readOnly << steps << expected;
        };
        row("tap at the centre", small, false, {m(down, 120, 50), m(up, 120, 50)}, {{{120, 50}}});
        row("tap at the centre, twice the size", large, false, {m(down, 240, 100), m(up, 240, 100)}, {{{120, 50}}});
        row("drag", large, false, {m(down, 240, 100), m(move, 260, 100), m(move, 300, 150), m(up, 300, 150)},
            {{{120, 50}, {130, 50}, {151, 76}}});
        row("out on the right, back, then a new press", large, false,
            {m(down, 240, 100), m(move, 469, 100), m(move, 470, 100), m(move, 200, 100), m(up, 200, 100),
             m(down, 100, 60), m(up, 100, 60)},
            {{{120, 50}, {239, 50}}, {{47, 29}}});
        row("out at the bottom", large, false,
            {m(down, 240, 100), m(move, 240, 195), m(move, 240, 196), m(move, 240, 100)}, {{{120, 50}, {120, 99}}});
        row("moves after the release", large, false, {m(down, 240, 100), m(up, 240, 100), m(move, 260, 100)},
            {{{120, 50}}});
        row("press beside the area", QSize(480, 100), false, {m(down, 20, 50), m(move, 240, 50), m(up, 240, 50)}, {});
        row("read-only", large, true, {m(down, 240, 100), m(move, 260, 100), m(up, 260, 100)}, {});
        row("touch drag, one stroke only", large, false, {t(down, 240, 100), t(move, 260, 100), t(up, 260, 100)},
            {{{120, 50}, {130, 50}}});
        row("touch out and back", large, false,
            {t(down, 240, 100), t(move, 475, 100), t(move, 260, 100), t(up, 260, 100)}, {{{120, 50}}});
        row("pen drag", large, false, {p(down, 240, 100), p(move, 260, 100), p(up, 260, 100)},
            {{{120, 50}, {130, 50}}});
    }

    void inputGivesLogicalStrokes()
    {
        QFETCH(QSize, size);
        QFETCH(bool, readOnly);
        QFETCH(QList<CStep>, steps);
        QFETCH(Strokes, expected);
        CSignatureCtrl ctrl;
        ctrl.setFixedSize(size);
        ctrl.SetReadOnly(readOnly);
        ctrl.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ctrl));
        for (const CStep& step : steps)
            Send(ctrl, step);
        QCOMPARE(ctrl.Strokes(), expected);
        QCOMPARE(ctrl.IsEmpty(), expected.empty());
    }

    void paintsDotsAndLinesOnTheFace_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<Strokes>("strokes");
        QTest::addColumn<QList<QPoint>>("dark");
        QTest::addColumn<QList<QPoint>>("face");
        const QSize small(240, 100), large(480, 200);
        QTest::newRow("empty") << small << false << Strokes{} << QList<QPoint>{}
                               << QList<QPoint>{{120, 50}, {3, 3}, {236, 96}};
        QTest::newRow("dot") << small << false << Strokes{{{120, 50}}} << QList<QPoint>{{120, 50}}
                             << QList<QPoint>{{123, 50}, {117, 50}, {120, 53}, {120, 47}};
        QTest::newRow("dot, twice the size")
            << large << false << Strokes{{{120, 50}}} << QList<QPoint>{{240, 100}, {239, 99}}
            << QList<QPoint>{{244, 100}, {235, 100}, {240, 104}};
        QTest::newRow("line") << large << false << Strokes{{{20, 50}, {220, 50}}}
                              << QList<QPoint>{{60, 100}, {240, 100}, {420, 100}}
                              << QList<QPoint>{{36, 100}, {446, 100}, {240, 105}, {240, 95}};
        QTest::newRow("read-only") << small << true << Strokes{{{120, 50}}} << QList<QPoint>{{120, 50}}
                                   << QList<QPoint>{{124, 50}, {3, 3}};
    }
    void paintsDotsAndLinesOnTheFace()
    {
        QFETCH(QSize, size);
        QFETCH(bool, readOnly);
        QFETCH(Strokes, strokes);
        QFETCH(QList<QPoint>, dark);
        QFETCH(QList<QPoint>, face);
        CSignatureCtrl ctrl;
        ctrl.resize(size);
        ctrl.SetStrokes(strokes);
        ctrl.SetReadOnly(readOnly);
        const QColor faceColour = readOnly ? ctrl.palette().color(QPalette::Window) : QColor(Qt::white);
        QVERIFY(faceColour != Qt::white || !readOnly);

        const QImage image = ctrl.grab().toImage();
        for (const QPoint& at : dark)
            QVERIFY2(qGray(image.pixel(at)) < 100, qPrintable(QStringLiteral("(%1,%2)").arg(at.x()).arg(at.y())));
        for (const QPoint& at : face)
            QCOMPARE(image.pixelColor(at), faceColour);
        // The frame sets the area off from a white dialog.
        QVERIFY(image.pixelColor(0, size.height() / 2) != Qt::white);
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
        const auto tap = [&] { Send(ctrl, {Device::Mouse, Phase::Press, {120, 50}}); };
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
