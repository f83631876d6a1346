#pragma once

#include <QDialog>
#include <QIcon>
#include <QList>
#include <QStringList>
#include <QStyle>

class QGridLayout;
class QLabel;
class QPushButton;
class QScrollArea;

// A message box that fits the screen it is shown on, from a handheld's 240 pixels to a desktop:
// the text wraps, and scrolls when a small screen cannot show all of it; the buttons stand in
// one row when they fit the width, in two columns or one under another when they do not.
class CMessageDlg : public QDialog
{
    Q_OBJECT

public:
    // A box with the icon, the text and the buttons in this order; Enter presses the default
    // button, Escape and the window's close button count as the cancel button.
    CMessageDlg(QStyle::StandardPixmap icon, const QString& title, const QString& text, const QStringList& buttons,
                int defaultButton, int cancelButton, QWidget* parent = nullptr);

    // Lays the box out for a screen of this size; showing it does so for its own screen.
    void FitTo(const QSize& room);
    // The index of the button that closed the box.
    int Choice() const { return m_choice; }
    const QList<QPushButton*>& Buttons() const { return m_buttons; }
    // The text of one of Qt's standard buttons (OK, Yes, No, Cancel) in the program's language.
    static QString StandardText(int standardButton);

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QIcon m_iconImage;
    QLabel* m_icon = nullptr;
    QLabel* m_text = nullptr;
    QScrollArea* m_scroller = nullptr;
    QGridLayout* m_buttonGrid = nullptr;
    QList<QPushButton*> m_buttons;
    int m_cancel = -1;
    int m_choice = -1;
    bool m_fitted = false;
};
