// The jump editor's page checks and the write-back on OK.

#include "editing/CJumpEdit.h"

#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/TrimBlanks.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"
#include "units/ISettingsStore.h"
#include "units/RoundValue.h"

#include <exception>
#include <memory>
#include <stdexcept>

namespace {

int RoundToInt(double value)
{
    return static_cast<int>(RoundValue(value, RoundHalfUp, 0));
}

// Runs checks in order and stops at the first failure.
template <typename... Checks>
CCheckResult FirstFailure(Checks&&... checks)
{
    CCheckResult result;
    ((result.Passed() ? (void)(result = checks()) : (void)0), ...);
    return result;
}

} // namespace

CJumpEdit::Page CJumpEdit::PageOf(int field)
{
    if (field <= FieldMalfunction)
        return PageDetails;
    if (field <= FieldDirection)
        return PageFallrate;
    if (field <= FieldTeam)
        return PageInfo;
    if (field == FieldNote)
        return PageNote;
    return PageSignature;
}

CCheckResult CJumpEdit::Validate(Page page)
{
    if (m_viewOnly)
        return CCheckResult::Pass();
    switch (page) {
    case PageDetails: {
        CCheckResult result = ValidateDetails();
        // The computed fall rates follow the heights just read back.
        if (result.Passed())
            Recompute();
        return result;
    }
    case PageFallrate:
        return ValidateFallrate();
    case PageInfo:
        return ValidateInfo();
    case PageNote:
        if (!m_values.noteHasFormat)
            m_values.note = StripTrailingBreaks(std::move(m_values.note));
        return CCheckResult::Pass();
    case PageSignature:
        return ValidateSignature();
    default:
        return CCheckResult::Pass();
    }
}

CCheckResult CJumpEdit::ValidateAll(Page* failedPage)
{
    for (int page = PageDetails; page < PageCount; ++page) {
        CCheckResult result = Validate(static_cast<Page>(page));
        if (!result.Passed()) {
            if (failedPage)
                *failedPage = static_cast<Page>(page);
            return result;
        }
    }
    return CCheckResult::Pass();
}

CCheckResult CJumpEdit::ValidateDetails()
{
    CJumpValues& v = m_values;
    v.equipment = TrimBlanks(v.equipment);
    v.malfunction = TrimBlanks(v.malfunction);
    return FirstFailure([&] { return CheckChangedRange(v.number, m_loaded.number, 1, kMaxNumber, FieldNumber); },
                        [&] {
                            return m_doc.HasJumpNumber(v.number, m_jump)
                                       ? CCheckResult::Fail(StringTable::IDS_DUPLICATE_NUMBER, FieldNumber)
                                       : CCheckResult::Pass();
                        },
                        [&] {
                            // A jump loaded without a valid time stamp shows no date until one is picked.
                            return v.date.IsValid() ? CCheckResult::Pass()
                                                    : CCheckResult::Fail(StringTable::IDS_INVALID_VALUE, FieldDate);
                        },
                        [&] {
                            if (v.noTime)
                                return CCheckResult::Pass();
                            int hour = 0, minute = 0, second = 0;
                            const std::string text = TrimBlanks(v.timeText);
                            if (text.empty())
                                return CCheckResult::Fail(StringTable::IDS_NEED_TIME, FieldTime);
                            if (!ParseTime(text, hour, minute, second))
                                return CCheckResult::Fail(StringTable::IDS_INVALID_VALUE, FieldTime);
                            return CCheckResult::Pass();
                        },
                        [&] { return CheckChangedRange(v.exitHeight, m_loaded.exitHeight, 0, kMaxHeight, FieldExit); },
                        [&] { return CheckChangedRange(v.openHeight, m_loaded.openHeight, 0, kMaxHeight, FieldOpen); },
                        [&] {
                            // Equal heights pass, although the message speaks of "less than".
                            return v.openHeight > v.exitHeight
                                       ? CCheckResult::Fail(StringTable::IDS_OPEN_ABOVE_EXIT, FieldOpen)
                                       : CCheckResult::Pass();
                        },
                        [&] {
                            const std::string& text = v.equipment;
                            if (text.empty() || text.front() != '[' || text.find(']') == std::string::npos)
                                return CCheckResult::Pass();
                            return m_doc.GetSettings().GetEquipmentList().FindByDisplayText(text) >= 0
                                       ? CCheckResult::Pass()
                                       : CCheckResult::Fail(StringTable::IDS_BAD_EQUIPMENT, FieldEquipment);
                        });
}

CCheckResult CJumpEdit::ValidateFallrate() const
{
    const CJumpValues& v = m_values;
    const bool manual = v.kind == FallrateKind::Manual;
    // Typed values are checked; values still as the file gave them (a manual fall rate, a wind)
    // pass as they are.
    const bool manualLoaded = m_loaded.kind == FallrateKind::Manual;
    const bool windLoaded = !m_loaded.noWind;
    const auto check = [](bool loaded, int value, int loadedValue, int lower, int upper, int field) {
        return loaded ? CheckChangedRange(value, loadedValue, lower, upper, field)
                      : CheckRange(value, lower, upper, field);
    };
    return FirstFailure(
        [&] {
            return manual ? check(manualLoaded, v.delay, m_loaded.delay, 0, kMaxDelay, FieldDelay)
                          : CCheckResult::Pass();
        },
        [&] {
            return manual ? check(manualLoaded, v.vMax, m_loaded.vMax, 0, kMaxSpeed, FieldVMax) : CCheckResult::Pass();
        },
        [&] {
            return manual ? check(manualLoaded, v.vAvg, m_loaded.vAvg, 0, kMaxSpeed, FieldVAvg) : CCheckResult::Pass();
        },
        [&] {
            return v.noWind ? CCheckResult::Pass()
                            : check(windLoaded, v.windSpeed, m_loaded.windSpeed, kMinWind, kMaxWind, FieldWind);
        },
        [&] {
            return v.noWind
                       ? CCheckResult::Pass()
                       : check(windLoaded, v.windDirection, m_loaded.windDirection, 0, kMaxDirection, FieldDirection);
        });
}

CCheckResult CJumpEdit::ValidateInfo()
{
    CJumpValues& v = m_values;
    for (std::string* text : {&v.place, &v.aircraft, &v.type, &v.landing, &v.team})
        *text = TrimBlanks(*text);
    return FirstFailure([&] { return CheckChangedRange(v.size, m_loaded.size, 0, kMaxSize, FieldSize); },
                        [&] { return CheckChangedRange(v.points, m_loaded.points, 0, kMaxPoints, FieldPoints); });
}

CCheckResult CJumpEdit::ValidateSignature()
{
    m_values.signer = TrimBlanks(m_values.signer);
    m_values.signerLicence = TrimBlanks(m_values.signerLicence);
    // The name is what stands before the first comma: a leading comma leaves no name.
    const bool noSigner = m_values.signer.empty() || m_values.signer.front() == ',';
    const bool noStrokes = m_values.strokes.empty();
    if (noSigner && !noStrokes)
        return CCheckResult::Fail(StringTable::IDS_NEED_SIGNER, FieldSigner);
    if (!noSigner && noStrokes)
        return CCheckResult::Fail(StringTable::IDS_NEED_SIGNATURE, FieldSignature);
    return CCheckResult::Pass();
}

bool CJumpEdit::WriteImport(CJump& jump) const
{
    if (!m_taken)
        return false;
    // The recording goes with the jump whatever kind was picked at the end; the imported values
    // only while the kind is still Import (setting the kind never touches them).
    jump.Recording() = m_taken->recording;
    if (m_values.kind == FallrateKind::Import)
        jump.SetFallrateValues(m_taken->fallrate);
    return true;
}

CJumpEdit::ApplyResult CJumpEdit::Apply()
{
    ApplyResult result;
    result.jump = m_jump;
    if (m_viewOnly)
        return result;

    const CJumpValues& v = m_values;
    CJumpEdits edits;
    edits.number = v.number;
    int hour = 0, minute = 0, second = 0;
    if (!v.noTime)
        ParseTime(TrimBlanks(v.timeText), hour, minute, second);
    edits.timestamp.dateTime = CDateTime(v.date.Year(), v.date.Month(), v.date.Day(), hour, minute, second);
    edits.timestamp.offsetMinutes = m_taken  ? m_taken->offsetMinutes
                                    : m_jump ? m_jump->GetTimestamp().offsetMinutes
                                             : m_clock.UtcOffsetMinutes();
    edits.fallrateKind = v.kind;
    edits.exitHeight = RoundToInt(m_units.HeightFromDisplay(v.exitHeight));
    edits.openHeight = RoundToInt(m_units.HeightFromDisplay(v.openHeight));
    edits.freefallTime = v.delay;
    edits.maxSpeed = m_units.SpeedFromDisplay(v.vMax);
    edits.avgSpeed = m_units.SpeedFromDisplay(v.vAvg);
    edits.windDirection = v.noWind ? 0 : v.windDirection;
    edits.windSpeed = v.noWind ? 0.0 : m_units.WindFromDisplay(v.windSpeed);
    if (const CJump* source = m_source) {
        // What the user left as it was loaded (from the jump itself, or from the last jump for a
        // new one) keeps the precision it has in the file.
        // A track taken into a new jump brings heights of its own.
        const bool heightsTaken = m_jump || !m_taken;
        if (heightsTaken && v.exitHeight == m_loaded.exitHeight)
            edits.exitHeight = source->GetExitHeight();
        if (heightsTaken && v.openHeight == m_loaded.openHeight)
            edits.openHeight = source->GetOpenHeight();
        if (v.kind == FallrateKind::Manual && source->GetFallrateKind() == FallrateKind::Manual &&
            m_loaded.kind == FallrateKind::Manual) {
            if (v.vMax == m_loaded.vMax)
                edits.maxSpeed = source->GetMaxSpeed();
            if (v.vAvg == m_loaded.vAvg)
                edits.avgSpeed = source->GetAvgSpeed();
        }
        if (!v.noWind && !m_loaded.noWind && v.windSpeed == m_loaded.windSpeed)
            edits.windSpeed = source->GetWind().speed;
    }
    edits.equipment = v.equipment;
    edits.malfunction = v.malfunction;
    edits.place = v.place;
    edits.aircraft = v.aircraft;
    edits.type = v.type;
    edits.landing = v.landing;
    edits.size = v.size;
    edits.points = v.points;
    edits.team = v.team;
    edits.keepNote = v.noteHasFormat;
    edits.noteText = v.note;
    edits.signer = v.signer;
    // A licence number belongs to a signature; without one it is dropped.
    edits.signerLicence = v.strokes.empty() && v.signer.empty() ? std::string() : v.signerLicence;
    edits.strokes = v.strokes;

    const CDateTime now = m_clock.Now();
    const CEquipmentList& rigs = m_doc.GetSettings().GetEquipmentList();
    try {
        if (m_jump) {
            const int index = m_doc.IndexOf(m_jump);
            if (index < 0)
                throw std::runtime_error("The jump is no longer in the logbook.");
            result.changed = m_doc.ChangeJump(static_cast<std::size_t>(index), [&](CJump& jump) {
                bool changed = jump.ApplyEdits(edits, rigs);
                changed |= WriteImport(jump);
                if (changed) {
                    jump.SetModified(now);
                    Seal(jump);
                }
                return changed;
            });
        } else {
            auto jump = std::make_unique<CJump>(v.number, edits.timestamp, now);
            jump->ApplyEdits(edits, rigs);
            WriteImport(*jump);
            Seal(*jump);
            result.jump = m_doc.AddJump(std::move(jump));
            result.changed = true;
            if (m_store) {
                m_store->SetInt(kSection, kHasTime, v.noTime ? 0 : 1);
                m_store->SetInt(kSection, kHasWind, v.noWind ? 0 : 1);
            }
        }
    } catch (const std::exception& error) {
        // A new jump went with its unique_ptr; the document kept its totals right for a jump
        // changed half-way.
        result.ok = false;
        result.error = error.what();
        result.jump = m_jump;
        return result;
    }
    if (result.changed && !edits.signer.empty() && !edits.signerLicence.empty()) {
        CLogbookSettings settings = m_doc.GetSettings();
        if (settings.RememberSigner(edits.signer, edits.signerLicence))
            m_doc.ReplaceSettings(settings);
    }
    return result;
}

void CJumpEdit::Seal(CJump& jump) const
{
    // Only an unsigned jump is edited, so a signature here was given in this editor: it is
    // sealed over the jump as it now stands. A jump left without one keeps no id.
    if (jump.IsSigned())
        jump.Signature().SetId(JumpSeal::Compute(jump, m_doc.GetSettings()));
    else
        jump.Signature().Clear();
}
