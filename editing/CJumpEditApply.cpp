// The jump editor's write-back on OK.

#include "editing/CJumpEdit.h"

#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/TrimBlanks.h"
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

} // namespace

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
