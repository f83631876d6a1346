#pragma once

// Hidden from moc, which cannot parse the standard <compare> that the rows' date brings in and
// needs nothing from the rows.
#ifndef Q_MOC_RUN
#include "document/CSummaryRows.h"
#endif

#include <QFont>
#include <QLabel>
#include <QWidget>

#include <array>

class QPainter;
class QGridLayout;

// The logbook summary of the home page: five labels, each with its value beside it (or below
// it when the pane is too narrow for both), on a translucent card over the page's background.
// While a search shows some of the jumps, a second column beside the logbook's values shows the
// totals of the jumps shown, under the titles "Logbook" and "Shown".
class CSummaryPane : public QWidget
{
    Q_OBJECT

public:
    // Rows of the summary: NumberOfJumps ... LastJump, RowCount.
    using enum CSummaryRows::Row;

    // Labels and values without text until SetSummary.
    explicit CSummaryPane(QWidget* parent = nullptr);

    // Shows the rows, with numbers and the date in the user's notation and the labels in the
    // user's language.
    void SetSummary(const CSummaryRows::Rows& rows);
    // Shows the totals of the jumps a search shows beside the logbook's, or hides them.
    void SetShownSummary(const CSummaryRows::Rows& rows);
    void ClearShownSummary();
    bool HasShownSummary() const { return m_shownActive; }
    // The shown jumps' value of a row ("" without a search).
    QString ShownText(int row) const;

    // The width the view can give the pane; decides between side by side and stacked.
    void FitWidth(int width);

    // The texts on screen, by row.
    QString LabelText(int row) const;
    QString ValueText(int row) const;
    // True when every value sits below its label instead of beside it.
    bool IsStacked() const { return m_stacked; }

    // Label font: Tahoma (or the platform's sans-serif) 11 pixels; values: 16 pixels, bold.
    static QFont LabelFont();
    static QFont ValueFont();
    // The panes' card: a rounded, slightly see-through white rectangle with a thin blue rim.
    static void PaintCard(QPainter& painter, const QRect& rect);

protected:
    // The translucent card behind the texts.
    void paintEvent(QPaintEvent* event) override;

private:
    void Arrange(bool stacked, bool force = false);
    static QString ValueText(const CSummaryRow& row);
    void ArrangeForWidth(int width);
    int SideBySideWidth() const;

    QGridLayout* m_grid;
    std::array<QLabel*, RowCount> m_labels{};
    std::array<QLabel*, RowCount> m_values{};
    std::array<QLabel*, RowCount> m_shown{};
    QLabel* m_logbookTitle = nullptr;
    QLabel* m_shownTitle = nullptr;
    bool m_shownActive = false;
    bool m_stacked = false;
    int m_availableWidth = 0;
};
