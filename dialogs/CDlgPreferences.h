#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CPreferencesEdit.h"

class CLogbookDoc;
class CUnitSettings;
class ISettingsStore;

// "Preferences": the unit system and speed display of the program, and the custom fall rate,
// previous jumps and previous freefall time of the open logbook, on a sheet of one page. The
// custom fall rate and the freefall time are typed on the number and duration pads. OK checks
// the values; the command then stores the three unit choices together and gives the logbook its
// values (Edit().Apply); Cancel changes nothing.
class CDlgPreferences : public CKqPropertySheet
{
    Q_OBJECT

public:
    // The most hours the previous freefall time's pad takes.
    static constexpr int kMaxFreefallHours = 999;

    // The dialog on the frame's units and the document; the settings store (may be null) is the
    // one the command's Edit().Apply writes the units to.
    CDlgPreferences(CUnitSettings& units, ISettingsStore* store, const CLogbookDoc& doc, IMessageSink* messages,
                    QWidget* parent = nullptr);

    CPreferencesEdit& Edit() { return m_edit; }

private:
    CPreferencesEdit m_edit;
};
