#include "app/CSummaryPane.h"

#include "translations/MessageText.h"

#include "app/CDateText.h"

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

QString FromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

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
    }
    Arrange(false);
}

void CSummaryPane::SetSummary(const CSummaryRows::Rows& rows)
{
    for (int row = 0; row < RowCount; ++row) {
        const CSummaryRow& shown = rows[static_cast<std::size_t>(row)];
        m_labels[row]->setText(MessageText::Text(shown.labelId) + FromUtf8(shown.unit));
        switch (shown.kind) {
        case CSummaryRow::Kind::Number:
            // Whole numbers, grouped as the locale groups them.
            m_values[row]->setText(QLocale().toString(shown.number, 'f', 0));
            break;
        case CSummaryRow::Kind::Date:
            m_values[row]->setText(CDateText::ShortDate(shown.date));
            break;
        case CSummaryRow::Kind::Duration:
            m_values[row]->setText(FromUtf8(shown.value));
            break;
        }
    }
    ArrangeForWidth(m_availableWidth);
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
    int values = 0;
    for (int row = 0; row < RowCount; ++row) {
        labels = std::max(labels, m_labels[row]->sizeHint().width());
        values = std::max(values, m_values[row]->sizeHint().width());
    }
    return labels + kColumnGap + values + 2 * kMargin;
}

void CSummaryPane::ArrangeForWidth(int width)
{
    // Beside each other when the room the view can give allows it, else one below the other.
    Arrange(width > 0 && SideBySideWidth() > width);
}

void CSummaryPane::Arrange(bool stacked)
{
    if (stacked == m_stacked && m_grid->count() == 2 * RowCount)
        return;
    m_stacked = stacked;
    for (int row = 0; row < RowCount; ++row) {
        m_grid->removeWidget(m_labels[row]);
        m_grid->removeWidget(m_values[row]);
    }
    for (int row = 0; row < RowCount; ++row) {
        if (stacked) {
            m_grid->addWidget(m_labels[row], 2 * row, 0, Qt::AlignLeft | Qt::AlignBottom);
            m_grid->addWidget(m_values[row], 2 * row + 1, 0, Qt::AlignLeft | Qt::AlignTop);
        } else {
            m_grid->addWidget(m_labels[row], row, 0, Qt::AlignLeft | Qt::AlignVCenter);
            m_grid->addWidget(m_values[row], row, 1, Qt::AlignRight | Qt::AlignVCenter);
        }
    }
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
