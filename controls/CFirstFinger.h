#pragma once

#include <QEvent>
#include <QTouchEvent>

// Touch for a control that follows one finger: the one that came down first. Further fingers
// are ignored until it is lifted. Touch events are accepted, so that Qt makes no mouse events
// from them as well.
class CFirstFinger
{
public:
    // For a touch event: calls follow(point) for each point of the first finger, with its state
    // (pressed, moved, released), or cancelled() when the system takes the touch away; the
    // finger is forgotten when it is lifted or the touch ends. Returns false, doing nothing, for
    // any other event.
    template <class Follow, class Cancelled>
    bool Handle(QEvent* event, Follow&& follow, Cancelled&& cancelled)
    {
        const QEvent::Type type = event->type();
        if (type != QEvent::TouchBegin && type != QEvent::TouchUpdate && type != QEvent::TouchEnd &&
            type != QEvent::TouchCancel)
            return false;
        event->accept();
        if (type == QEvent::TouchCancel) {
            Forget();
            cancelled();
            return true;
        }
        const auto* touch = static_cast<const QTouchEvent*>(event);
        if (type == QEvent::TouchBegin && !touch->points().isEmpty())
            m_id = touch->points().first().id();
        for (const QEventPoint& point : touch->points()) {
            if (point.id() != m_id)
                continue;
            if (point.state() == QEventPoint::Released)
                Forget();
            follow(point);
        }
        if (type == QEvent::TouchEnd)
            Forget();
        return true;
    }

    // No finger is followed until the next touch begins.
    void Forget() { m_id = -1; }

private:
    int m_id = -1;
};
