#pragma once

#include <QAbstractButton>
#include <QColor>

// The keypads' key: a button that paints itself as a coloured face with a bold label. Pressed
// keys look pushed in and darker, the focused key carries a highlight ring, and disabled keys
// are washed out with grey text. Labels that do not fit the face shrink instead of being cut.
// An icon, when set, is drawn left of the label (or alone, centred).
class CKqButton : public QAbstractButton
{
    Q_OBJECT

public:
    // A key with its label; the face starts in the button colour of the palette.
    explicit CKqButton(const QString& text, QWidget* parent = nullptr);
    // A key with its label and face colour.
    CKqButton(const QString& text, const QColor& face, QWidget* parent = nullptr);

    // Gives the key's face this colour.
    void SetFaceColour(const QColor& face);

    // The pads' key font: bold "Tahoma" 14 pixels high, or the platform's sans-serif where Tahoma
    // is missing.
    static QFont PadFont();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // The key font, made smaller until the label fits the given width (never below 8 pixels).
    QFont FittingFont(int width) const;
    // The label's colour: the button text colour, grey when disabled.
    QColor LabelColour() const;

    QColor m_face;
};
