#pragma once

#include <QFont>
#include <QLabel>
#include <QWidget>

#include <array>

class QGridLayout;
struct CLogbookSummary;
class CUnitSettings;

// The logbook summary of the home page: five labels, each with its value beside it (or below
// it when the pane is too narrow for both), on a translucent card over the page's background.
class CSummaryPane : public QWidget
{
    Q_OBJECT

public:
    // Rows of the summary.
    enum Row
    {
        NumberOfJumps = 0,
        FreefallTime,
        FreefallDistance,
        CanopyDistance,
        LastJump,
        RowCount
    };

    // Labels and values without text until SetSummary.
    explicit CSummaryPane(QWidget* parent = nullptr);

    // Shows the document's numbers in the user's units.
    void SetSummary(const CLogbookSummary& summary, const CUnitSettings& units);

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
    // A distance in metres as whole kilometres or miles, by the unit preference.
    static QString DistanceText(double metres, const CUnitSettings& units);

protected:
    // The translucent card behind the texts.
    void paintEvent(QPaintEvent* event) override;

private:
    void Arrange(bool stacked);
    void ArrangeForWidth(int width);
    int SideBySideWidth() const;

    QGridLayout* m_grid;
    std::array<QLabel*, RowCount> m_labels{};
    std::array<QLabel*, RowCount> m_values{};
    bool m_stacked = false;
    int m_availableWidth = 0;
};
