#pragma once

#include "editing/CCheckResult.h"
#include "editing/CJumpEditPages.h"
#include "editing/CJumpValues.h"
#include "model/CJumpFallrate.h"
#include "model/CJumpRecording.h"
#include "model/CJumpSeal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CJump;
class CLogbookDoc;
class CUnitSettings;
class ISettingsStore;
class IClock;

// The jump editor's rules: it copies a jump (or a new jump's defaults) into working values,
// offers the pick lists, recomputes the fall rate when a kind is picked, checks each page and
// writes everything back into the jump on OK. Nothing reaches the jump or the document before
// Apply.
class CJumpEdit : public CJumpEditPages
{
public:
    // Where new jumps remember whether the last one had a time of day and a wind.
    static constexpr std::string_view kSection = "Jump";
    static constexpr std::string_view kHasTime = "HasTime";
    static constexpr std::string_view kHasWind = "HasWind";

    // The drop-down entries of the editor's combos.
    struct PickLists
    {
        std::vector<std::string> equipment, malfunction, type, landing, place, aircraft, team, signer;
    };

    // What OK did.
    struct ApplyResult
    {
        // False when creating or changing the jump failed; error says why.
        bool ok = true;
        std::string error;
        // True when the document took a new jump or the jump changed.
        bool changed = false;
        // The jump written (the new one for a new jump); null after a failure.
        const CJump* jump = nullptr;
    };

    // An editor on jump (null: a new jump). store gives and keeps "Jump"/"HasTime" and "HasWind"
    // (may be null: both default to 1); the clock dates a new jump and stamps changes.
    CJumpEdit(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store, const IClock& clock,
              const CJump* jump);

    // A jump that carries a signature is only viewed: nothing can be edited and OK changes nothing.
    bool IsViewOnly() const { return m_viewOnly; }
    // Date, time, "None" and heights are locked when view-only or for an imported fall rate.
    bool IsLocked() const { return m_viewOnly || m_values.kind == FallrateKind::Import; }
    // The fall-rate list offers "Import" only for a jump whose fall rate was imported.
    bool OffersImport() const { return m_hasImport; }

    CJumpValues& Values() { return m_values; }
    const CJumpValues& Values() const { return m_values; }
    const CUnitSettings& Units() const { return m_units; }
    const CLogbookDoc& Document() const { return m_doc; }

    // The combos' entries, gathered in one pass over the logbook's jumps.
    PickLists BuildPickLists() const;

    // Takes a recording imported from a logger with the fall rate worked out from it (kind Import)
    // and the local time of the exit: the jump gets that date, time and fall rate, locked as for
    // any imported jump, and OK writes the recording and the exact imported values into it.
    void TakeImport(CJumpRecording recording, const CJumpFallrate& fallrate, const CZonedDateTime& exitTime);
    // The recording the jump will have after OK: an imported one, else the jump's own; null when
    // there is none.
    const CJumpRecording* Recording() const;
    // The imported fall rate (exact stored values): the taken one, else the jump's own when its
    // kind is Import; null otherwise.
    const CJumpFallrate* ImportedFallrate() const;

    // The user picked a fall-rate kind: Import brings back the recording's values, the computed
    // kinds work out delay and speeds from the heights, Manual keeps what was typed.
    void PickKind(FallrateKind kind);

    // Height spinner steps: up to the next higher multiple of ten, down to the next lower one.
    static int StepHeight(int value, int steps);
    // A typed height cut down to a multiple of ten.
    static int CutHeight(int value) { return value - value % 10; }
    // "HH:MM", or "HH:MM:SS" when the seconds are not zero.
    static std::string TimeText(int hour, int minute, int second);
    // The note without its trailing line breaks.
    static std::string StripTrailingBreaks(std::string note);

    // Checks one page's working values (texts trimmed as the page reads them); view-only passes.
    CCheckResult Validate(Page page);
    // Every page in tab order; the first failure and its page.
    CCheckResult ValidateAll(Page* failedPage = nullptr);

    // Writes the working values into the jump through the document (a new one is created and
    // added to it), keeping the stored precision of values the user did not change. Marks the document
    // modified when something changed; view-only changes nothing. A jump that leaves with a
    // signature is sealed (model/CJumpSeal.h), and a signer with a licence number is remembered in
    // the logbook's settings.
    ApplyResult Apply();

    // The licence number to fill in for a signer picked by name: the one the logbook's settings
    // remember, else the one of the latest jump this signer signed with a number; empty if none.
    std::string KnownLicence(std::string_view signer) const;
    // The seal's state of the jump being edited (NotSigned for a new one).
    SealState GetSealState() const;

    // Takes the signature off the jump at index (signer, licence, seal and strokes), stamped
    // with now: the jump can be edited and signed again. Returns whether it had one.
    static bool RemoveSignature(CLogbookDoc& doc, std::size_t index, const CDateTime& now);

private:
    void LoadJump(const CJump& jump);
    void LoadDefaults();
    void LoadFallrateValues(const CJump& jump);
    int HeightToDisplay(int metres) const;
    void Recompute();
    bool WriteImport(CJump& jump) const;
    void Seal(CJump& jump) const;

    // What the recording gave an imported jump, kept for a return to kind Import.
    struct ImportValues
    {
        CDateTime date;
        bool noTime = false;
        std::string timeText;
        int exitHeight = 0, openHeight = 0, delay = 0, vMax = 0, vAvg = 0;
    };

    // What TakeImport brought.
    struct TakenImport
    {
        CJumpRecording recording;
        CJumpFallrate fallrate;
        int offsetMinutes = 0;
    };

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    ISettingsStore* m_store;
    const IClock& m_clock;
    const CJump* m_jump;
    // The jump the working values were loaded from: the edited one, or the last jump whose values
    // a new jump takes over; null for a new jump in an empty logbook. Values left as loaded keep
    // its stored precision.
    const CJump* m_source = nullptr;
    bool m_viewOnly = false;
    bool m_hasImport = false;
    ImportValues m_import;
    std::optional<TakenImport> m_taken;
    CJumpValues m_values;
    // The working values as loaded, to tell the values the user left alone.
    CJumpValues m_loaded;
};
