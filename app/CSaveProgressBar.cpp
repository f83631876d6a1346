#include "app/CSaveProgressBar.h"

#include "app/CBackgroundSaver.h"

CSaveProgressBar::CSaveProgressBar(const CBackgroundSaver& saver, QWidget* window)
    : QProgressBar(window), m_saver(saver)
{
    setObjectName(QStringLiteral("saveProgressBar"));
    setRange(0, 1000);
    setFormat(tr("Saving %p%"));
    setAlignment(Qt::AlignCenter);
    hide();
    m_timer.setInterval(100);
    connect(&m_timer, &QTimer::timeout, this, &CSaveProgressBar::Tick);
    connect(&saver, &CBackgroundSaver::started, this, [this] {
        if (!m_timer.isActive()) {
            m_clock.start();
            m_timer.start();
        }
    });
    connect(&saver, &CBackgroundSaver::idle, this, [this] {
        m_timer.stop();
        hide();
    });
}

void CSaveProgressBar::Tick()
{
    if (m_clock.elapsed() < kDelayMs)
        return;
    const QWidget* window = parentWidget();
    const int height = fontMetrics().height() + 4;
    setGeometry(0, window->height() - height, window->width(), height);
    setValue(static_cast<int>(m_saver.Progress().Fraction() * 1000));
    if (isHidden()) {
        show();
        raise();
    }
}
