#include "app/CSummaryPane.h"

#include "translations/MessageText.h"

#include "app/CDateText.h"
#include "bridge/CoreText.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr int kMargin = 10;
constexpr int kColumnGap = 10;

QFont TahomaOrSans(int pixels, int weight)
{
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(pixels);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setStyleHint(QFont::SansSerif);
    // Where Tahoma is missing the font matcher may pick anything; ask for the platform's
    // sans-serif instead.
    if (QFontInfo(font).family().compare(QStringLiteral("Tahoma"), Qt::CaseInsensitive) != 0)
        font.setFamily(QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
    return font;
}

using CoreText::ToQt;

} // namespace

QFont CSummaryPane::LabelFont()
{
    return TahomaOrSans(11, 400);
}

QFont CSummaryPane::ValueFont()
{
    return TahomaOrSans(16, 700);
}

CSummaryPane::CSummaryPane(QWidget* parent) : QWidget(parent), m_grid(new QGridLayout(this))
{
    setObjectName(QStringLiteral("summary"));
    setAttribute(Qt::WA_TranslucentBackground);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    m_grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_grid->setHorizontalSpacing(kColumnGap);
    m_grid->setVerticalSpacing(4);

    const QFont labelFont = LabelFont();
    const QFont valueFont = ValueFont();
    for (int row = 0; row < RowCount; ++row) {
        m_labels[row] = new QLabel(this);
        m_labels[row]->setObjectName(QStringLiteral("summaryLabel%1").arg(row));
        m_labels[row]->setFont(labelFont);
        m_values[row] = new QLabel(this);
        m_values[row]->setObjectName(QStringLiteral("summaryValue%1").arg(row));
        m_values[row]->setFont(valueFont);
        QPalette palette = m_values[row]->palette();
        palette.setColor(QPalette::WindowText, QColor(16, 50, 110));
        m_values[row]->setPalette(palette);
        m_shown[row] = new QLabel(this);
        m_shown[row]->setObjectName(QStringLiteral("summaryShown%1").arg(row));
        m_shown[row]->setFont(valueFont);
        palette.setColor(QPalette::WindowText, QColor(0, 110, 90));
        m_shown[row]->setPalette(palette);
        m_shown[row]->hide();
    }
    m_logbookTitle = new QLabel(tr("Logbook"), this);
    m_logbookTitle->setObjectName(QStringLiteral("summaryLogbookTitle"));
    m_shownTitle = new QLabel(tr("Shown"), this);
    m_shownTitle->setObjectName(QStringLiteral("summaryShownTitle"));
    for (QLabel* title : {m_logbookTitle, m_shownTitle}) {
        title->setFont(labelFont);
        title->hide();
    }
    Arrange(false, true);
}

QString CSummaryPane::ValueText(const CSummaryRow& row)
{
    switch (row.kind) {
    case CSummaryRow::Kind::Number:
        // Whole numbers, grouped as the locale groups them.
        return QLocale().toString(row.number, 'f', 0);
    case CSummaryRow::Kind::Date:
        return CDateText::ShortDate(row.date);
    case CSummaryRow::Kind::Duration:
        return ToQt(row.value);
    }
    return {};
}

void CSummaryPane::SetSummary(const CSummaryRows::Rows& rows)
{
    for (int row = 0; row < RowCount; ++row) {
        const CSummaryRow& shown = rows[static_cast<std::size_t>(row)];
        m_labels[row]->setText(MessageText::Text(shown.labelId) + ToQt(shown.unit));
        m_values[row]->setText(ValueText(shown));
    }
    ArrangeForWidth(m_availableWidth);
}

void CSummaryPane::SetShownSummary(const CSummaryRows::Rows& rows)
{
    for (int row = 0; row < RowCount; ++row)
        m_shown[row]->setText(ValueText(rows[static_cast<std::size_t>(row)]));
    if (!m_shownActive) {
        m_shownActive = true;
        Arrange(m_stacked, true);
    }
    ArrangeForWidth(m_availableWidth);
}

void CSummaryPane::ClearShownSummary()
{
    if (!m_shownActive)
        return;
    m_shownActive = false;
    for (QLabel* shown : m_shown)
        shown->clear();
    Arrange(m_stacked, true);
    ArrangeForWidth(m_availableWidth);
}

QString CSummaryPane::ShownText(int row) const
{
    return m_shownActive && row >= 0 && row < RowCount ? m_shown[row]->text() : QString();
}

void CSummaryPane::FitWidth(int width)
{
    m_availableWidth = width;
    ArrangeForWidth(width);
}

QString CSummaryPane::LabelText(int row) const
{
    return row >= 0 && row < RowCount ? m_labels[row]->text() : QString();
}

QString CSummaryPane::ValueText(int row) const
{
    return row >= 0 && row < RowCount ? m_values[row]->text() : QString();
}

int CSummaryPane::SideBySideWidth() const
{
    int labels = 0;
    int values = m_shownActive ? m_logbookTitle->sizeHint().width() : 0;
    int shown = m_shownActive ? m_shownTitle->sizeHint().width() : 0;
    for (int row = 0; row < RowCount; ++row) {
        labels = std::max(labels, m_labels[row]->sizeHint().width());
        values = std::max(values, m_values[row]->sizeHint().width());
        if (m_shownActive)
            shown = std::max(shown, m_shown[row]->sizeHint().width());
    }
    return labels + kColumnGap + values + 2 * kMargin + (m_shownActive ? kColumnGap + shown : 0);
}

void CSummaryPane::ArrangeForWidth(int width)
{
    // Beside each other when the room the view can give allows it, else one below the other.
    Arrange(width > 0 && SideBySideWidth() > width);
}

void CSummaryPane::Arrange(bool stacked, bool force)
{
    if (stacked == m_stacked && !force)
        return;
    m_stacked = stacked;
    for (int row = 0; row < RowCount; ++row) {
        m_grid->removeWidget(m_labels[row]);
        m_grid->removeWidget(m_values[row]);
        m_grid->removeWidget(m_shown[row]);
    }
    m_grid->removeWidget(m_logbookTitle);
    m_grid->removeWidget(m_shownTitle);
    // With the shown jumps' column, a row of titles comes first.
    const int first = m_shownActive ? 1 : 0;
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    if (m_shownActive) {
        m_grid->addWidget(m_logbookTitle, 0, stacked ? 0 : 1, right);
        m_grid->addWidget(m_shownTitle, 0, stacked ? 1 : 2, right);
    }
    for (int row = 0; row < RowCount; ++row) {
        if (stacked) {
            m_grid->addWidget(m_labels[row], first + 2 * row, 0, 1, m_shownActive ? 2 : 1,
                              Qt::AlignLeft | Qt::AlignBottom);
            m_grid->addWidget(m_values[row], first + 2 * row + 1, 0,
                              (m_shownActive ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
            if (m_shownActive)
                m_grid->addWidget(m_shown[row], first + 2 * row + 1, 1, Qt::AlignRight | Qt::AlignTop);
        } else {
            m_grid->addWidget(m_labels[row], first + row, 0, Qt::AlignLeft | Qt::AlignVCenter);
            m_grid->addWidget(m_values[row], first + row, 1, right);
            if (m_shownActive)
                m_grid->addWidget(m_shown[row], first + row, 2, right);
        }
    }
    for (QWidget* part : {static_cast<QWidget*>(m_logbookTitle), static_cast<QWidget*>(m_shownTitle)})
        part->setVisible(m_shownActive);
    for (QLabel* shown : m_shown)
        shown->setVisible(m_shownActive);
    m_grid->setVerticalSpacing(stacked ? 0 : 4);
    updateGeometry();
}

void CSummaryPane::PaintCard(QPainter& painter, const QRect& rect)
{
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath card;
    card.addRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    painter.fillPath(card, QColor(255, 255, 255, 200));
    painter.setPen(QPen(QColor(24, 100, 171, 120), 1));
    painter.drawPath(card);
}

void CSummaryPane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintCard(painter, rect());
}
