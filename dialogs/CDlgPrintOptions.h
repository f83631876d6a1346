#pragma once

#include "editing/CPrintOptionsEdit.h"

#include <QDialog>

class CLogbookDoc;
class IMessageSink;
class QCheckBox;
class QComboBox;
class QRadioButton;
class QSpinBox;

// The print options before "Print..." and "Export PDF...": the whole logbook, the jumps numbered
// from..to, or the jumps the window shows (offered when the caller gives them); the paper
// (landscape A4 or Letter) and whether jumps with a recording get a page with its plot. OK checks
// the range; the command then prints Edit().Selection().
class CDlgPrintOptions : public QDialog
{
    Q_OBJECT

public:
    // The options for doc; shown are the positions of the jumps the window shows (may be empty).
    CDlgPrintOptions(const CLogbookDoc& doc, std::vector<std::size_t> shown, CPrintOptionsEdit::Paper defaultPaper,
                     IMessageSink* messages, QWidget* parent = nullptr);

    const CPrintOptionsEdit& Edit() const { return m_edit; }

public slots:
    void accept() override;

private:
    // The range's fields take input only while the range is chosen.
    void UpdateRange();

    const CLogbookDoc& m_doc;
    IMessageSink* m_messages;
    CPrintOptionsEdit m_edit;
    QRadioButton* m_all = nullptr;
    QRadioButton* m_range = nullptr;
    QRadioButton* m_shown = nullptr;
    QSpinBox* m_from = nullptr;
    QSpinBox* m_to = nullptr;
    QComboBox* m_paper = nullptr;
    QCheckBox* m_recordings = nullptr;
};
