#pragma once

#include <QString>
#include <QWidget>

class QLineEdit;
class QToolButton;

// A time-of-day field: a line to type "H:MM" or "H:MM:SS" into, and a pad button that opens
// the time pad on the typed time.
class CKqTimeField : public QWidget
{
    Q_OBJECT

public:
    explicit CKqTimeField(const QString& padTitle, QWidget* parent = nullptr);

    QLineEdit* Edit() const { return m_edit; }
    QToolButton* PadButton() const { return m_pad; }
    QString Text() const;
    void SetText(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void OpenPad();

    QString m_padTitle;
    QLineEdit* m_edit;
    QToolButton* m_pad;
};
