#include "app/CProgressWait.h"

#include "xml/CIoProgress.h"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QProgressDialog>
#include <QScreen>

CProgressWait::CProgressWait(QWidget* window, QString label, const CIoProgress& progress)
    : m_window(window), m_label(std::move(label)), m_progress(progress)
{
    m_timer.setInterval(50);
    connect(&m_timer, &QTimer::timeout, this, &CProgressWait::Tick);
}

CProgressWait::~CProgressWait()
{
    delete m_dialog;
}

void CProgressWait::Finish()
{
    m_finished = true;
    m_loop.quit();
}

void CProgressWait::Exec()
{
    if (m_finished)
        return;
    m_clock.start();
    m_timer.start();
    qApp->installEventFilter(this);
    m_loop.exec();
    qApp->removeEventFilter(this);
    m_timer.stop();
    if (m_dialog)
        m_dialog->hide();
}

void CProgressWait::Tick()
{
    if (!m_dialog && m_clock.elapsed() >= kDelayMs) {
        m_dialog = new QProgressDialog(m_label, QString(), 0, 1000, m_window);
        m_dialog->setObjectName(QStringLiteral("progressWaitDialog"));
        m_dialog->setWindowModality(Qt::WindowModal);
        m_dialog->setMinimumDuration(0);
        m_dialog->setAutoClose(false);
        m_dialog->setAutoReset(false);
        const QScreen* screen = m_window ? m_window->screen() : QGuiApplication::primaryScreen();
        if (screen) {
            // Wide enough for its title where the screen allows.
            m_dialog->setMinimumWidth(std::min(320, screen->availableGeometry().width() * 9 / 10));
            if (!m_window || !m_window->isVisible()) {
                // At start-up the window is not shown yet: the dialog goes to the middle of the
                // screen rather than to the corner where the hidden window sits.
                m_dialog->adjustSize();
                m_dialog->move(screen->availableGeometry().center() - m_dialog->rect().center());
            }
        }
        m_dialog->show();
    }
    if (m_dialog)
        m_dialog->setValue(static_cast<int>(m_progress.Fraction() * 1000));
}

bool CProgressWait::eventFilter(QObject* watched, QEvent* event)
{
    // Only the window's own input is held back: a message box that the waited-for work shows
    // (a question about the file, an error) is a window of its own and gets its clicks.
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (!widget || !m_window || widget->window() != m_window)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Wheel:
        return true;
    case QEvent::Close:
        // The window cannot close in the middle of the work it waits for.
        if (watched == m_window) {
            event->ignore();
            return true;
        }
        return QObject::eventFilter(watched, event);
    default:
        return QObject::eventFilter(watched, event);
    }
}
