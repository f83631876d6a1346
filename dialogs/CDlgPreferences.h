#pragma once

#include "editing/CPreferencesEdit.h"

#include <QDialog>

class CLogbookDoc;
class CUnitSettings;
class IDialogRunner;
class IMessageSink;
class ISettingsStore;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

// "Preferences": the unit system and speed display of the program, and the custom fall rate,
// previous jumps and previous freefall time of the open logbook. The custom fall rate and the
// freefall time are typed on the number and duration pads. OK checks the values; the command then
// stores the three unit choices together and gives the logbook its values (Edit().Apply);
// Cancel changes nothing.
class CDlgPreferences : public QDialog
{
    Q_OBJECT

public:
    // The most hours the previous freefall time's pad takes.
    static constexpr int kMaxFreefallHours = 999;

    // The dialog on the frame's units and the document; the settings store (may be null) is the
    // one the command's Edit().Apply writes the units to.
    CDlgPreferences(CUnitSettings& units, ISettingsStore* store, const CLogbookDoc& doc, IMessageSink* messages,
                    QWidget* parent = nullptr);

    // The runner of the two pads (null: run them for real).
    void SetDialogRunner(IDialogRunner* runner) { m_runner = runner; }
    CPreferencesEdit& Edit() { return m_edit; }

    QComboBox* UnitsCombo() const { return m_units; }
    QComboBox* SpeedCombo() const { return m_speed; }
    QComboBox* GlideCombo() const { return m_glide; }
    QLabel* FallrateLabel() const { return m_fallrateLabel; }
    QPushButton* FallrateButton() const { return m_fallrate; }
    QSpinBox* PreviousJumpsSpin() const { return m_previousJumps; }
    QPushButton* FreefallButton() const { return m_freefall; }

public slots:
    void accept() override;
    // Opens the number pad on the custom fall rate.
    void OnFallratePad();
    // Opens the duration pad on the previous freefall time.
    void OnFreefallPad();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FillSpeedList();
    // Shows the working values in the label and the two pad buttons.
    void ShowValues();
    void OnUnitsChanged(int index);
    void OnSpeedChanged(int index);

    IMessageSink* m_messages;
    IDialogRunner* m_runner = nullptr;
    CPreferencesEdit m_edit;
    bool m_filling = false;
    bool m_fitted = false;

    QComboBox* m_units;
    QComboBox* m_speed;
    QLabel* m_fallrateLabel;
    QPushButton* m_fallrate;
    QSpinBox* m_previousJumps;
    QPushButton* m_freefall;
    QLabel* m_glideLabel;
    QComboBox* m_glide;
};
