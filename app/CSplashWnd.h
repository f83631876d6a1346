#pragma once

#include <QTimer>
#include <QWidget>

// The start-up picture, drawn over the main window's client area while the program starts.
// At most one exists. It stays up at least its display time (500 ms); after start-up it closes
// when that time is over or at the first key press or tap, whichever comes first, and that
// first input is swallowed.
class CSplashWnd : public QWidget
{
    Q_OBJECT

public:
    // How long the splash stays up at least, in milliseconds.
    static constexpr int kDisplayMs = 500;

    // Shows the splash over client (the frame's client area) unless one is already up.
    static CSplashWnd* ShowSplash(QWidget* client);
    // Start-up is over: close now if the display time has passed, else allow closing.
    static void EndSplash();
    // The splash on screen, or null.
    static CSplashWnd* Instance() { return s_instance; }

    // Clears the program-wide pointer.
    ~CSplashWnd() override;

protected:
    // The sky stretched over the client area, the emblem centred with its proportions.
    void paintEvent(QPaintEvent* event) override;
    // Follows the client area's size; after start-up closes at the first key or tap.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit CSplashWnd(QWidget* client);
    void OnTimer();
    void HideSplash();

    static CSplashWnd* s_instance;
    QTimer m_timer;
    bool m_timerFired = false;
    bool m_closable = false;
};
