#pragma once

#include <QDialog>

class QLineEdit;

// The small editor behind the membership page's "Edit...": the owner's name and member number,
// which the page itself only shows.
class CDlgUserOwner : public QDialog
{
    Q_OBJECT

public:
    CDlgUserOwner(const QString& name, const QString& memberNumber, QWidget* parent = nullptr);

    QString Name() const;
    QString MemberNumber() const;
    QLineEdit* NameEdit() const { return m_name; }
    QLineEdit* NumberEdit() const { return m_number; }

private:
    QLineEdit* m_name;
    QLineEdit* m_number;
};
