#pragma once

#include "editing/CCheckResult.h"
#include "editing/CJumpEditPages.h"
#include "editing/CJumpValues.h"

class CJump;
class CLogbookDoc;

// The jump editor's checks of its pages' working values. A check trims the texts of its page as
// the page reads them back; a failure names the message and the field to put the focus on.
// Values still as they were loaded pass where the file may hold what the editor would refuse.
class CJumpEditChecks : public CJumpEditPages
{
public:
    // doc: the logbook (numbers in use, rigs); jump: the edited jump (null for a new one); values:
    // the working values; loaded: the working values as loaded. All outlive the checks.
    CJumpEditChecks(const CLogbookDoc& doc, const CJump* jump, CJumpValues& values, const CJumpValues& loaded);

    // Number, date, time, heights and rig.
    CCheckResult ValidateDetails();
    // A typed fall rate and the wind.
    CCheckResult ValidateFallrate() const;
    // Size and points.
    CCheckResult ValidateInfo();
    // Signer and strokes go together.
    CCheckResult ValidateSignature();

private:
    const CLogbookDoc& m_doc;
    const CJump* m_jump;
    CJumpValues& m_values;
    const CJumpValues& m_loaded;
};
