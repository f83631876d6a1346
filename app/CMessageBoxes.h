#pragma once

#include "controls/IMessageSink.h"

#include <QPointer>
#include <QStyle>
#include <QWidget>

#include <memory>

class CMessageDlg;

// The program's real message boxes, modal over the main window, titled with the program's name,
// each fitted to the screen it is shown on (CMessageDlg).
class CMessageBoxes final : public IMessageSink
{
public:
    // Boxes are centred over this window once it is set (null: the active window).
    void SetParent(QWidget* parent) { m_parent = parent; }

    // Critical icon, OK.
    void Error(const QString& text) override;
    // Information icon, OK.
    void Information(const QString& text) override;
    // Warning icon, OK.
    void Warning(const QString& text) override;
    // Question icon, Yes and No (No is the default button).
    bool AskYesNo(const QString& text) override;
    // Question icon, Yes, No and Cancel (Yes is the default button).
    Answer AskYesNoCancel(const QString& text) override;
    // The platform's About box.
    void About(const QString& title, const QString& text) override;
    // Question icon, the given buttons and Cancel.
    int AskChoice(const QString& text, const QStringList& buttons) override;

    // The boxes of AskYesNoCancel and AskChoice as they are shown, to look at them unshown.
    static std::unique_ptr<CMessageDlg> YesNoCancelBox(const QString& text, QWidget* parent = nullptr);
    static std::unique_ptr<CMessageDlg> ChoiceBox(const QString& text, const QStringList& buttons,
                                                  QWidget* parent = nullptr);

private:
    QWidget* Parent() const;
    // A box with an OK button.
    std::unique_ptr<CMessageDlg> Box(QStyle::StandardPixmap icon, const QString& text);
    QPointer<QWidget> m_parent;
};
