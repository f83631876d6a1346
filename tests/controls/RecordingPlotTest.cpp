// The plot of a flight recording: pictures of a barometric and a satellite recording at the
// handheld, phone and desktop sizes (written as PNG files into the folder named by
// TERVOLA_RENDER_DIR, nothing without it) with a check of their layout, and the cursor placed by
// the mouse, a finger, the ground track and the keys, its box showing the recording's values.

#include "CRenderCheck.h"
#include "SyntheticJump.h"

#include "controls/CPlotAxis.h"
#include "controls/CRecordingPlot.h"

#include <QImage>
#include <QLocale>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

// A shown plot of the synthetic jump with its exit and deployment marked (kind none: no samples).
std::unique_ptr<CRecordingPlot> ShowPlot(int kind, const CUnitSettings& units, QSize size)
{
    auto plot = std::make_unique<CRecordingPlot>(units);
    plot->SetSeries(CRecordingSeries(kind == CJumpRecording::None ? CJumpRecording() : SyntheticJump::Recording(kind)));
    plot->SetMarks(0.0, SyntheticJump::FreefallTime());
    plot->resize(size);
    plot->show();
    if (!QTest::qWaitForWindowExposed(plot.get()))
        qFatal("plot not shown");
    return plot;
}

// The number of a box line such as "1.250 ft", in the user's notation.
double Number(const QString& line)
{
    return QLocale().toDouble(line.section(QLatin1Char(' '), 0, 0));
}

} // namespace

class TestRecordingPlot : public QObject
{
    Q_OBJECT

private slots:
    // A German user reads decimal commas and grouping points, on the axes and in the box.
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void picturesAtEverySize()
    {
        const struct
        {
            const char* name;
            int kind;
            CUnitSettings units;
        } recordings[] = {{"gps", CJumpRecording::Satellite, {CUnitSettings::Metric, CUnitSettings::PerHour, 0}},
                          {"baro", CJumpRecording::Barometric, {CUnitSettings::Imperial, CUnitSettings::PerSecond, 0}},
                          {"empty", CJumpRecording::None, {}}};
        for (const auto& recording : recordings)
            for (const QSize size : RenderCheck::kSizes) {
                const QString file =
                    QString::asprintf("plot_%s_%dx%d.png", recording.name, size.width(), size.height());
                auto plot = ShowPlot(recording.kind, recording.units, size);
                plot->SetCursorTime(20.0);
                const QImage picture = plot->grab().toImage(); // the cursor's box is placed as it is painted
                QVERIFY(RenderCheck::Save(plot.get(), file));
                if (recording.kind == CJumpRecording::None) {
                    // "No recording" in the middle, nothing else.
                    QVERIFY(!plot->HasCursor() && plot->AltitudeArea().isEmpty());
                    const QRect middle(QPoint(size.width() / 3, size.height() / 3), size / 3);
                    QImage blank = picture.copy(middle);
                    blank.fill(picture.pixel(0, 0));
                    QVERIFY2(picture.copy(middle) != blank, qPrintable(file));
                    continue;
                }
                // Every panel whole within the widget, none over another, each large enough to read.
                const QRectF panels[] = {plot->AltitudeArea(), plot->SpeedArea(), plot->GroundArea(), plot->WindArea()};
                for (int i = 0; i < 4; ++i) {
                    if (panels[i].isEmpty())
                        continue;
                    QVERIFY2(QRectF(plot->rect()).contains(panels[i]), qPrintable(file));
                    for (int j = i + 1; j < 4; ++j)
                        QVERIFY2(!panels[i].intersects(panels[j]),
                                 qPrintable(file + QStringLiteral(" %1 %2").arg(i).arg(j)));
                }
                QVERIFY2(plot->AltitudeArea().height() >= 40 && plot->AltitudeArea().width() >= 120, qPrintable(file));
                QCOMPARE(plot->GroundArea().isEmpty(), recording.kind == CJumpRecording::Barometric);
                if (!plot->GroundArea().isEmpty())
                    QVERIFY2(std::min(plot->GroundArea().width(), plot->GroundArea().height()) >= 60, qPrintable(file));
                QVERIFY2(QRectF(plot->rect()).contains(plot->CursorBox()), qPrintable(file));
            }
    }

    void hoverShowsTheValuesAtTheCursor()
    {
        const CUnitSettings units(CUnitSettings::Imperial, CUnitSettings::PerHour, 0);
        auto plot = ShowPlot(CJumpRecording::Satellite, units, QSize(360, 640));
        QSignalSpy moved(plot.get(), &CRecordingPlot::cursorMoved);
        const double secondsPerPixel = plot->TimeAtX(1) - plot->TimeAtX(0);
        QCOMPARE(CPlotAxis::Label(12000.0, 2000.0), QStringLiteral("12.000"));
        QCOMPARE(CPlotAxis::Label(2.5, 0.5), QStringLiteral("2,5"));
        // In the climb, in freefall at terminal speed, under canopy.
        for (double t : {-60.0, 30.0, 120.0}) {
            QTest::mouseMove(plot.get(), QPoint(qRound(plot->XOfTime(t)), qRound(plot->AltitudeArea().center().y())));
            QVERIFY(plot->HasCursor());
            QVERIFY(std::abs(plot->CursorTime() - t) <= secondsPerPixel);
            const QStringList texts = plot->CursorTexts();
            QCOMPARE(texts.size(), 3);
            QVERIFY2(QRegularExpression(QStringLiteral("^-?\\d+,\\d s$")).match(texts[0]).hasMatch(),
                     qPrintable(texts[0]));
            QVERIFY2(QRegularExpression(QStringLiteral("^\\d{1,2}\\.\\d{3} ft$")).match(texts[1]).hasMatch(),
                     qPrintable(texts[1]));
            const double at = plot->CursorTime();
            QVERIFY(std::abs(Number(texts[0]) - at) <= 0.05);
            QVERIFY2(std::abs(Number(texts[1]) - SyntheticJump::Altitude(at) / 0.3048) <= 2, qPrintable(texts[1]));
            QVERIFY2(texts[2].endsWith(QStringLiteral(" mph")), qPrintable(texts[2]));
            QVERIFY2(std::abs(Number(texts[2]) - SyntheticJump::VerticalSpeed(at) / 0.44704) <= 2,
                     qPrintable(texts[2]));
            // The box is painted inside the widget.
            plot->repaint();
            QVERIFY(QRectF(plot->rect()).contains(plot->CursorBox()) && !plot->CursorBox().isEmpty());
        }
        QCOMPARE(moved.size(), 3);
    }

    void fingerAndGroundTrackPlaceTheCursor()
    {
        auto plot = ShowPlot(CJumpRecording::Satellite, CUnitSettings(CUnitSettings::Metric, 0, 0), QSize(1024, 768));
        const double secondsPerPixel = plot->TimeAtX(1) - plot->TimeAtX(0);
        const auto timeAt = [&](double t) {
            return QPoint(qRound(plot->XOfTime(t)), qRound(plot->SpeedArea().center().y()));
        };
        // One device for the whole run, as Qt keeps it registered until the program ends.
        static QPointingDevice* const screen = QTest::createTouchDevice();
        QTest::touchEvent(plot.get(), screen).press(0, timeAt(-20));
        QVERIFY(std::abs(plot->CursorTime() + 20) <= secondsPerPixel);
        QTest::touchEvent(plot.get(), screen).move(0, timeAt(40));
        QVERIFY(std::abs(plot->CursorTime() - 40) <= secondsPerPixel);
        // A second finger does not take the cursor over.
        QTest::touchEvent(plot.get(), screen).stationary(0).press(1, timeAt(100));
        QVERIFY(std::abs(plot->CursorTime() - 40) <= secondsPerPixel);
        QTest::touchEvent(plot.get(), screen).release(0, timeAt(40)).release(1, timeAt(100));

        // A tap on the ground track picks the moment the jumper was there.
        for (double t : {10.0, 45.0, 140.0}) {
            QTest::mouseClick(plot.get(), Qt::LeftButton, {}, plot->GroundPointAt(t).toPoint());
            QVERIFY2(std::abs(plot->CursorTime() - t) <= 2.0, qPrintable(QString::number(plot->CursorTime())));
        }
        QVERIFY(plot->hasFocus());
    }

    void keysMoveTheCursor()
    {
        auto plot = ShowPlot(CJumpRecording::Barometric, CUnitSettings(), QSize(320, 240));
        const CRecordingSeries::Range range = plot->Series().TimeRange();
        // The first key shows the cursor at the exit.
        QTest::keyClick(plot.get(), Qt::Key_Right);
        QCOMPARE(plot->CursorTime(), 0.0);
        const struct
        {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            double from, to;
        } steps[] = {{Qt::Key_Right, {}, 10, 11},
                     {Qt::Key_Left, {}, 10, 9},
                     {Qt::Key_Right, Qt::ShiftModifier, 10, 20},
                     {Qt::Key_Left, Qt::ShiftModifier, 10, 0},
                     {Qt::Key_Left, {}, range.min, range.min},
                     {Qt::Key_Right, {}, range.max, range.max},
                     {Qt::Key_Home, {}, 50, range.min},
                     {Qt::Key_End, {}, 50, range.max}};
        for (const auto& step : steps) {
            plot->SetCursorTime(step.from);
            QTest::keyClick(plot.get(), step.key, step.modifiers);
            QCOMPARE(plot->CursorTime(), step.to);
        }
    }
};

QTEST_MAIN(TestRecordingPlot)
#include "RecordingPlotTest.moc"
