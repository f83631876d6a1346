#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <QTimer>

class CBackgroundSaver;

// A thin bar along the bottom of the window that shows how far a save on its thread has come.
// It appears only when a save lasts longer than a moment and lies over the window's contents
// without taking part in the layout, so the screens look as they always do otherwise.
class CSaveProgressBar : public QProgressBar
{
    Q_OBJECT

public:
    // Follows saver over window (the bar's parent).
    CSaveProgressBar(const CBackgroundSaver& saver, QWidget* window);

    // A save shows the bar after this long.
    static constexpr int kDelayMs = 300;

private:
    void Tick();

    const CBackgroundSaver& m_saver;
    QTimer m_timer;
    QElapsedTimer m_clock;
};
