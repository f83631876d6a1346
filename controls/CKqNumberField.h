#pragma once

#include <QString>
#include <QWidget>

class CKqSpinBox;
class QToolButton;

// A whole-number field for finger and keyboard: a spin box to type into, and beside it a pad
// button that opens the number pad on the field's value. The pad runs through the sheet of the
// page the field lies on, so tests can script it.
class CKqNumberField : public QWidget
{
    Q_OBJECT

public:
    // A field whose pad carries padTitle; negative values only when allowNegative.
    explicit CKqNumberField(const QString& padTitle, bool allowNegative = false, QWidget* parent = nullptr);

    CKqSpinBox* Spin() const { return m_spin; }
    QToolButton* PadButton() const { return m_pad; }
    int Value() const;
    void SetValue(int value);
    // Read-only: the value is shown but neither typed, stepped nor padded.
    void SetReadOnly(bool readOnly);

signals:
    // The user changed the value (typing, arrows or the pad).
    void valueEdited(int value);

private:
    void OpenPad();

    QString m_padTitle;
    bool m_allowNegative;
    CKqSpinBox* m_spin;
    QToolButton* m_pad;
};
