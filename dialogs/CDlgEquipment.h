#pragma once

#include "editing/CEquipmentEdit.h"

#include <QDialog>

#include <memory>

class CEquipment;
class IMessageSink;
class QCheckBox;
class CKqDateEdit;
class QLineEdit;
class QSpinBox;

// The rig editor "Equipment": harness, canopies and activation device with their serial numbers,
// the canopy sizes, the last inspection date, the jumps before the logbook and the active flag.
// OK checks the values (the first failure shows one message and takes the focus) and keeps the
// edited rig; Cancel leaves the rig alone.
class CDlgEquipment : public QDialog
{
    Q_OBJECT

public:
    // The editor on a copy of the rig; messages go to the sink (not owned).
    CDlgEquipment(const CEquipment& rig, IMessageSink* messages, QWidget* parent = nullptr);
    ~CDlgEquipment() override;

    // The rig with the values of the last OK (the original number kept).
    std::unique_ptr<CEquipment> Result() const;
    // The control of a field of CEquipmentEdit.
    QWidget* ControlFor(int field) const;
    // The text controls in the order of the form, for tests.
    QLineEdit* HarnessEdit() const { return m_harness; }
    QLineEdit* MainEdit() const { return m_main; }
    QLineEdit* MainSizeEdit() const { return m_mainSize; }
    QLineEdit* ReserveSizeEdit() const { return m_reserveSize; }
    CKqDateEdit* DateEdit() const { return m_date; }
    QSpinBox* PreviousJumpsSpin() const { return m_previousJumps; }
    QCheckBox* ActiveBox() const { return m_active; }

public slots:
    void accept() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLineEdit* AddText(class QGridLayout* grid, int row, const QString& label, const QString& name);

    IMessageSink* m_messages;
    std::unique_ptr<CEquipment> m_rig;
    CEquipmentEdit m_edit;
    QLineEdit* m_harness;
    QLineEdit* m_harnessSerial;
    QLineEdit* m_main;
    QLineEdit* m_mainSize;
    QLineEdit* m_mainSerial;
    QLineEdit* m_reserve;
    QLineEdit* m_reserveSize;
    QLineEdit* m_reserveSerial;
    QLineEdit* m_aad;
    QLineEdit* m_aadSerial;
    CKqDateEdit* m_date;
    QSpinBox* m_previousJumps;
    QCheckBox* m_active;
    bool m_fitted = false;
};
