#include "app/CLicenceStatusPane.h"

#include "app/CDateText.h"
#include "app/CSummaryPane.h"

#include <QGridLayout>
#include <QLocale>
#include <QPainter>

namespace {

constexpr int kMargin = 6;
constexpr int kMark = 10;

QString Freefall(int64_t seconds)
{
    return QString::fromStdString(FreefallText(seconds));
}

} // namespace

const QColor CLicenceStatusPane::kMetColour(0x2e, 0x7d, 0x32);
const QColor CLicenceStatusPane::kOpenColour(0x1f, 0x5f, 0xa8);

CLicenceStatusPane::CLicenceStatusPane(QWidget* parent)
    : QWidget(parent), m_progress(new QLabel(this)), m_currency(new QLabel(this))
{
    setObjectName(QStringLiteral("licenceStatus"));
    setAttribute(Qt::WA_TranslucentBackground);
    m_progress->setObjectName(QStringLiteral("licenceProgress"));
    m_currency->setObjectName(QStringLiteral("licenceCurrency"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(kMargin + kMark + 6, kMargin, kMargin, kMargin);
    grid->setVerticalSpacing(2);
    // The summary's label font: the card has to fit under the summary on a 240x320 screen.
    setFont(CSummaryPane::LabelFont());
    for (QLabel* label : {m_progress, m_currency}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        grid->addWidget(label);
    }
    // The wrapped lines decide the height (Maximum would hold it at the height of unwrapped ones).
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QColor CLicenceStatusPane::CurrencyColour(CCurrency::State state)
{
    switch (state) {
    case CCurrency::State::Current:
        return kMetColour;
    case CCurrency::State::Due:
        return QColor(0xd8, 0x8c, 0x00);
    case CCurrency::State::Lapsed:
        return QColor(0xc6, 0x28, 0x28);
    case CCurrency::State::NoJumps:
        break;
    }
    return QColor(0x9e, 0x9e, 0x9e);
}

QString CLicenceStatusPane::ProgressLine(const CLicenceProgress& progress, bool compact)
{
    const QLocale locale;
    const QString level =
        progress.levelName.empty() ? tr("Student") : tr("Licence %1").arg(QString::fromStdString(progress.levelName));
    if (!progress.hasNext)
        return tr("%1: the highest level").arg(level);
    const QString name = QString::fromStdString(progress.nextName);
    const QString jumps = locale.toString(progress.jumps);
    const QString needed = locale.toString(progress.nextJumps);
    const bool freefall = progress.nextFreefallSeconds > 0;
    const QString time = Freefall(progress.freefallSeconds);
    const QString neededTime = Freefall(progress.nextFreefallSeconds);
    if (compact)
        return freefall ? tr("%1: %2/%3 jumps, %4/%5 freefall").arg(name, jumps, needed, time, neededTime)
                        : tr("%1: %2/%3 jumps").arg(name, jumps, needed);
    QString next = tr("%1: %2 of %3 jumps").arg(name, jumps, needed);
    if (freefall)
        next += tr(", %1 of %2 freefall").arg(time, neededTime);
    return tr("%1 · next %2").arg(level, next);
}

QString CLicenceStatusPane::CurrencyLine(const CCurrency& currency, bool compact)
{
    switch (currency.state) {
    case CCurrency::State::Current:
        return (compact ? tr("Current: %1 of %2 days") : tr("Current: %1 of %2 days since the last jump"))
            .arg(QLocale().toString(currency.daysSinceLastJump), QLocale().toString(currency.limitDays));
    case CCurrency::State::Due:
        return tr("Recurrency jump due by %1").arg(CDateText::ShortDate(currency.currentUntil));
    case CCurrency::State::Lapsed:
        return (compact ? tr("Currency lapsed since %1") : tr("Currency lapsed since %1: a recurrency jump is needed"))
            .arg(CDateText::ShortDate(currency.lapsedSince));
    case CCurrency::State::NoJumps:
        break;
    }
    return tr("No jump logged yet");
}

void CLicenceStatusPane::SetStatus(const CLicenceStatus& status)
{
    m_status = status;
    ShowTexts();
}

void CLicenceStatusPane::SetCompact(bool compact)
{
    if (compact == m_compact)
        return;
    m_compact = compact;
    const int margin = compact ? 3 : kMargin;
    layout()->setContentsMargins(kMargin + kMark + 6, margin, kMargin, margin);
    ShowTexts();
}

void CLicenceStatusPane::ShowTexts()
{
    const CLicenceStatus& status = m_status;
    m_progress->setText(ProgressLine(status.progress, m_compact));
    m_currency->setText(CurrencyLine(status.currency, m_compact));
    m_progressColour = !status.progress.hasNext || status.progress.Met() ? kMetColour : kOpenColour;
    m_currencyColour = CurrencyColour(status.currency.state);
    // A due or lapsed currency also reads in its colour, darkened for contrast on the card.
    const bool warn =
        status.currency.state == CCurrency::State::Due || status.currency.state == CCurrency::State::Lapsed;
    QPalette palette = m_currency->palette();
    palette.setColor(QPalette::WindowText,
                     warn ? m_currencyColour.darker(130) : this->palette().color(QPalette::WindowText));
    m_currency->setPalette(palette);
    ApplyWidth();
    update();
}

void CLicenceStatusPane::FitWidth(int width)
{
    m_room = width;
    ApplyWidth();
}

void CLicenceStatusPane::ApplyWidth()
{
    if (m_room <= 0)
        return;
    // As wide as the longer line needs, wrapping only where the window is narrower.
    const QMargins margins = layout()->contentsMargins();
    const int natural = std::max(m_progress->fontMetrics().horizontalAdvance(m_progress->text()),
                                 m_currency->fontMetrics().horizontalAdvance(m_currency->text())) +
                        margins.left() + margins.right() + 2;
    setFixedWidth(std::max(120, std::min(m_room, natural)));
    updateGeometry();
}

void CLicenceStatusPane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    CSummaryPane::PaintCard(painter, rect());
    painter.setPen(Qt::NoPen);
    const std::pair<QLabel*, QColor> marks[] = {{m_progress, m_progressColour}, {m_currency, m_currencyColour}};
    for (const auto& [label, colour] : marks) {
        const int y = label->y() + label->fontMetrics().height() / 2;
        painter.setBrush(colour);
        painter.drawEllipse(QRectF(kMargin, y - kMark / 2.0, kMark, kMark));
    }
}
