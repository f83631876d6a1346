#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

struct CIoProgress;
class QProgressDialog;
class QWidget;

// Keeps the window painted while it waits for work on another thread (a load, the end of a
// save): runs the event loop, holds back the user's input to the window meanwhile so that no
// command starts in the middle, and after a short delay shows a progress dialog that follows a
// CIoProgress.
class CProgressWait : public QObject
{
    Q_OBJECT

public:
    // The dialog appears over window with label once the wait has lasted kDelayMs.
    CProgressWait(QWidget* window, QString label, const CIoProgress& progress);
    ~CProgressWait() override;

    // Ends Exec; may come before Exec is called.
    void Finish();
    // Waits until Finish.
    void Exec();

    static constexpr int kDelayMs = 400;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Tick();

    QPointer<QWidget> m_window;
    QString m_label;
    const CIoProgress& m_progress;
    QEventLoop m_loop;
    QTimer m_timer;
    QElapsedTimer m_clock;
    QProgressDialog* m_dialog = nullptr;
    bool m_finished = false;
};
