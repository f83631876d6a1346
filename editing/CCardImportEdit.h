#pragma once

#include "editing/CCheckResult.h"
#include "formats/CTrackCardScan.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class CLogbookDoc;
class CUnitSettings;
class IClock;
class ISettingsStore;

// The working values of importing a card's tracks: per track found whether it is imported and
// whether it becomes a new jump or goes into a jump of the same day that has no recording yet.
// OK imports the ticked tracks in the order of their exits.
class CCardImportEdit
{
public:
    struct Row
    {
        CCardTrack track;
        bool ticked = true;
        // The number of the jump the track goes into; 0 for a new jump.
        int into = 0;
        // The logbook's jumps it may go into: same local day, no recording, not signed.
        std::vector<int> candidates;
    };

    // The logbook's jumps with a time of day, by the UTC time of their exit, for the scan to
    // tell the jumps it already holds.
    static std::vector<CKnownExit> KnownExits(const CLogbookDoc& doc);

    // The tracks a scan found, in the order of their exits.
    CCardImportEdit(const CLogbookDoc& doc, std::vector<CCardTrack> found);

    const std::vector<Row>& Rows() const { return m_rows; }
    void SetTicked(std::size_t row, bool ticked);
    // A candidate's number, or 0 for a new jump; any other number is ignored.
    void SetInto(std::size_t row, int number);

    // A track must be ticked (IDS_CARD_NONE_TICKED) and no jump may take two tracks
    // (IDS_CARD_SAME_JUMP, the field is the second row).
    CCheckResult Check() const;
    // Imports the ticked tracks in exit order as the jump editor would (a new jump takes the
    // details of the last jump); progress(done, total) before each, false stops. Returns how
    // many were imported; refused gets the editor's check when it refused one, error the reason
    // when writing one failed.
    std::size_t Apply(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store, const IClock& clock,
                      const std::function<bool(std::size_t, std::size_t)>& progress, CCheckResult& refused,
                      std::string& error);

private:
    std::vector<Row> m_rows;
};
