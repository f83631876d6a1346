#include "app/CSplashWnd.h"

#include "app/CArtwork.h"

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

CSplashWnd* CSplashWnd::s_instance = nullptr;

CSplashWnd* CSplashWnd::ShowSplash(QWidget* client)
{
    if (s_instance)
        return s_instance;
    s_instance = new CSplashWnd(client);
    s_instance->show();
    s_instance->raise();
    return s_instance;
}

void CSplashWnd::EndSplash()
{
    if (!s_instance)
        return;
    if (s_instance->m_timerFired)
        s_instance->HideSplash();
    else
        s_instance->m_closable = true;
}

CSplashWnd::CSplashWnd(QWidget* client) : QWidget(client)
{
    setObjectName(QStringLiteral("splash"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setGeometry(client ? client->rect() : QRect(0, 0, 240, 320));
    if (client)
        client->installEventFilter(this);
    qApp->installEventFilter(this);

    m_timer.setSingleShot(true);
    m_timer.setInterval(kDisplayMs);
    connect(&m_timer, &QTimer::timeout, this, &CSplashWnd::OnTimer);
    m_timer.start();
}

CSplashWnd::~CSplashWnd()
{
    if (s_instance == this)
        s_instance = nullptr;
}

void CSplashWnd::OnTimer()
{
    m_timerFired = true;
    if (m_closable)
        HideSplash();
}

void CSplashWnd::HideSplash()
{
    if (s_instance == this)
        s_instance = nullptr;
    qApp->removeEventFilter(this);
    if (parentWidget())
        parentWidget()->removeEventFilter(this);
    m_timer.stop();
    hide();
    deleteLater();
}

bool CSplashWnd::eventFilter(QObject* watched, QEvent* event)
{
    // Follow the client area's size while it is laid out.
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        raise();
        return false;
    }
    if (!m_closable || s_instance != this)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Claim the key so that no shortcut fires; the key press itself then closes the splash.
        event->accept();
        return true;
    case QEvent::KeyPress:
        HideSplash();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto button = static_cast<QMouseEvent*>(event)->button();
        if (button != Qt::LeftButton && button != Qt::RightButton && button != Qt::MiddleButton)
            return false;
        HideSplash();
        return true;
    }
    case QEvent::TouchBegin:
        HideSplash();
        return true;
    default:
        return false;
    }
}

void CSplashWnd::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = rect();
    CArtwork::PaintStretched(painter, QStringLiteral("splash_sky.svg"), area);
    // The emblem keeps its proportions, centred in the sky above the horizon.
    const QRectF emblem =
        area.adjusted(area.width() * 0.1, area.height() * 0.06, -area.width() * 0.1, -area.height() * 0.16);
    CArtwork::PaintFitted(painter, QStringLiteral("splash_logo.svg"), emblem);
}
