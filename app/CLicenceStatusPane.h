#pragma once

// Hidden from moc, which cannot parse the standard <compare> that the dates bring in.
#ifndef Q_MOC_RUN
#include "stats/CLicenceRules.h"
#endif

#include <QLabel>
#include <QWidget>

// Licence progress and currency at a glance: two lines on a small card, each with a coloured
// mark for its state (progress: the next level's requirements met or not; currency: current
// green, due amber, lapsed red, no jump grey). It shows figures computed elsewhere, so any
// window can place it.
class CLicenceStatusPane : public QWidget
{
    Q_OBJECT

public:
    explicit CLicenceStatusPane(QWidget* parent = nullptr);

    // Shows the figures in the user's language and notation.
    void SetStatus(const CLicenceStatus& status);
    // The width the window can give; the texts wrap within it.
    void FitWidth(int width);
    // Short texts, one line each where the width allows, for a screen with little height.
    void SetCompact(bool compact);
    bool IsCompact() const { return m_compact; }

    QString ProgressText() const { return m_progress->text(); }
    QString CurrencyText() const { return m_currency->text(); }
    // The colours of the two marks as last set.
    QColor ProgressColour() const { return m_progressColour; }
    QColor CurrencyColour() const { return m_currencyColour; }

    // The marks' colours by state.
    static QColor CurrencyColour(CCurrency::State state);
    static const QColor kMetColour;
    static const QColor kOpenColour;

    // The texts of the figures, for this pane and the statistics window.
    static QString ProgressLine(const CLicenceProgress& progress, bool compact = false);
    static QString CurrencyLine(const CCurrency& currency, bool compact = false);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowTexts();

    void ApplyWidth();

    CLicenceStatus m_status;
    bool m_compact = false;
    int m_room = 0; // the width the window gives; 0: not told
    QLabel* m_progress;
    QLabel* m_currency;
    QColor m_progressColour;
    QColor m_currencyColour;
};
