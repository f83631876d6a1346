#pragma once

#include "app/IMessageSink.h"

#include <QPointer>
#include <QWidget>

// The program's real message boxes, modal over the main window, titled with the program's name.
class CMessageBoxes final : public IMessageSink
{
public:
    // Boxes are centred over this window once it is set (null: the active window).
    void SetParent(QWidget* parent) { m_parent = parent; }

    void Error(const QString& text) override;
    void Information(const QString& text) override;
    bool AskYesNo(const QString& text) override;
    Answer AskYesNoCancel(const QString& text) override;
    void About(const QString& title, const QString& text) override;

private:
    QWidget* Parent() const;
    QPointer<QWidget> m_parent;
};
