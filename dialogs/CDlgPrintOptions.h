#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CPrintOptionsEdit.h"

class CLogbookDoc;

// The print options before "Print..." and "Export PDF...", a sheet of one page: the whole
// logbook, the jumps numbered from..to, or the jumps the window shows (offered when the caller
// gives them); the paper (landscape A4 or Letter) and whether jumps with a recording get a page
// with its plot. OK checks the range; the command then prints Edit().Selection().
class CDlgPrintOptions : public CKqPropertySheet
{
    Q_OBJECT

public:
    // The options for doc; shown are the positions of the jumps the window shows (may be empty).
    CDlgPrintOptions(const CLogbookDoc& doc, std::vector<std::size_t> shown, CPrintOptionsEdit::Paper defaultPaper,
                     IMessageSink* messages, QWidget* parent = nullptr);

    const CPrintOptionsEdit& Edit() const { return m_edit; }

private:
    CPrintOptionsEdit m_edit;
};
