#include "editing/CJumpEdit.h"

#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/CJumpEditChecks.h"
#include "editing/CPickList.h"
#include "editing/TrimBlanks.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"
#include "units/ISettingsStore.h"
#include "units/RoundValue.h"

#include <cmath>
#include <cstdio>
#include <exception>
#include <memory>

namespace {

int RoundToInt(double value)
{
    return static_cast<int>(RoundValue(value, RoundHalfUp, 0));
}

// "(" text ")": the keyword entries at the top of the type and malfunction lists.
std::string InParentheses(std::string_view text)
{
    return "(" + std::string(text) + ")";
}

} // namespace

CJumpEdit::CJumpEdit(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store, const IClock& clock,
                     const CJump* jump)
    : m_doc(doc), m_units(units), m_store(store), m_clock(clock), m_jump(jump)
{
    m_source = jump;
    if (jump)
        LoadJump(*jump);
    else
        LoadDefaults();
    m_loaded = m_values;
}

int CJumpEdit::HeightToDisplay(int metres) const
{
    return RoundToInt(m_units.HeightToDisplay(metres) / 10.0) * 10;
}

void CJumpEdit::LoadFallrateValues(const CJump& jump)
{
    m_values.delay = jump.GetStoredFreefallTime();
    m_values.vMax = RoundToInt(m_units.SpeedToDisplay(jump.GetMaxSpeed()));
    m_values.vAvg = RoundToInt(m_units.SpeedToDisplay(jump.GetAvgSpeed()));
}

void CJumpEdit::LoadJump(const CJump& jump)
{
    const CDateTime& when = jump.GetTimestamp().dateTime;
    m_values.number = jump.GetNumber();
    // A jump without a valid time stamp has no date: the user fills it in, nothing is made up.
    m_values.date = when.IsValid() ? when.DateOnly() : CDateTime();
    m_values.noTime = !jump.HasTimeOfDay();
    if (!m_values.noTime)
        m_values.timeText = TimeText(when.Hour(), when.Minute(), when.Second());
    m_values.exitHeight = HeightToDisplay(jump.GetExitHeight());
    m_values.openHeight = HeightToDisplay(jump.GetOpenHeight());
    m_values.equipment = jump.GetEquipmentText(m_doc.GetSettings().GetEquipmentList());
    m_values.malfunction = jump.GetMalfunction();
    m_values.kind = jump.GetFallrateKind();
    if (m_values.kind == FallrateKind::Manual || m_values.kind == FallrateKind::Import)
        LoadFallrateValues(jump);
    else
        Recompute(); // the computed kinds show their freefall time and speed from the start
    if (m_values.kind == FallrateKind::Import) {
        m_hasImport = true;
        m_import = {m_values.date,       m_values.noTime, m_values.timeText, m_values.exitHeight,
                    m_values.openHeight, m_values.delay,  m_values.vMax,     m_values.vAvg};
    }
    const CJumpWind& wind = jump.GetWind();
    m_values.noWind = !wind.IsSet();
    if (!m_values.noWind) {
        m_values.windSpeed = RoundToInt(m_units.WindToDisplay(wind.speed));
        m_values.windDirection = wind.direction;
    }
    m_values.place = jump.GetPlace();
    m_values.aircraft = jump.GetAircraft();
    m_values.type = jump.GetType();
    m_values.landing = jump.GetLanding();
    m_values.size = jump.GetSize();
    m_values.points = jump.GetPoints();
    m_values.team = jump.GetTeam();
    m_values.noteHasFormat = jump.NoteHasFormat();
    if (m_values.noteHasFormat)
        m_values.note = jump.GetNote();
    else
        jump.GetNoteText(m_values.note);
    m_values.signer = jump.GetSignature().GetName();
    m_values.signerLicence = jump.GetSignature().GetLicence();
    m_values.strokes = jump.GetSignature().GetStrokes();
    m_viewOnly = jump.IsSigned();
}

void CJumpEdit::LoadDefaults()
{
    const CDateTime now = m_clock.Now();
    m_values.date = now.DateOnly();
    const bool hasTime = !m_store || m_store->GetInt(kSection, kHasTime, 1) == 1;
    const bool hasWind = !m_store || m_store->GetInt(kSection, kHasWind, 1) == 1;
    m_values.noTime = !hasTime;
    // The time proposed is the current one, to the minute.
    m_values.timeText = TimeText(now.Hour(), now.Minute(), 0);
    m_values.landing = "OK";

    const CJump* last = m_doc.GetLastJump();
    // A wind is proposed only when there is one to take over: a wind of 0 is one the check
    // refuses, and an untouched new jump must pass its own checks.
    m_values.noWind = !(hasWind && last && last->GetWind().IsSet());
    m_source = last;
    if (!last) {
        Recompute();
        return;
    }
    m_values.number = last->GetNumber() + 1;
    m_values.exitHeight = HeightToDisplay(last->GetExitHeight());
    m_values.openHeight = HeightToDisplay(last->GetOpenHeight());
    m_values.equipment = last->GetEquipmentText(m_doc.GetSettings().GetEquipmentList());
    m_values.kind = last->GetFallrateKind() == FallrateKind::Import ? FallrateKind::Standard : last->GetFallrateKind();
    if (m_values.kind == FallrateKind::Manual)
        LoadFallrateValues(*last);
    else
        Recompute();
    if (!m_values.noWind) {
        m_values.windSpeed = RoundToInt(m_units.WindToDisplay(last->GetWind().speed));
        m_values.windDirection = last->GetWind().direction;
    }
    m_values.place = last->GetPlace();
    m_values.aircraft = last->GetAircraft();
    m_values.type = last->GetType();
    m_values.size = last->GetSize();
    m_values.points = last->GetPoints();
    m_values.team = last->GetTeam();
    if (last->GetFallrateKind() != FallrateKind::Import && !last->NoteHasFormat())
        last->GetNoteText(m_values.note);
}

CCheckResult CJumpEdit::Validate(Page page)
{
    if (m_viewOnly)
        return CCheckResult::Pass();
    CJumpEditChecks checks(m_doc, m_jump, m_values, m_loaded);
    switch (page) {
    case PageDetails: {
        CCheckResult result = checks.ValidateDetails();
        // The computed fall rates follow the heights just read back.
        if (result.Passed())
            Recompute();
        return result;
    }
    case PageFallrate:
        return checks.ValidateFallrate();
    case PageInfo:
        return checks.ValidateInfo();
    case PageNote:
        if (!m_values.noteHasFormat)
            m_values.note = StripTrailingBreaks(std::move(m_values.note));
        return CCheckResult::Pass();
    case PageSignature:
        return checks.ValidateSignature();
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

CJumpEdit::PickLists CJumpEdit::BuildPickLists() const
{
    const CLogbookSettings& settings = m_doc.GetSettings();
    const CEquipmentList& rigs = settings.GetEquipmentList();
    CPickList equipment, malfunction, type, landing, place, aircraft, team, signer;

    for (std::size_t i = 0; i < rigs.GetCount(); ++i) {
        const std::string text = rigs.Get(i).GetDisplayText();
        if (rigs.Get(i).IsActive() || text == m_values.equipment)
            equipment.Add(text);
    }
    malfunction.Add(InParentheses(settings.GetKeyword(CLogbookSettings::ReserveActivated)));
    type.Add(InParentheses(settings.GetKeyword(CLogbookSettings::CoachJump)));
    type.Add(InParentheses(settings.GetKeyword(CLogbookSettings::NightJump)));
    type.Add(InParentheses(settings.GetKeyword(CLogbookSettings::VideoJump)));
    landing.Add("OK");

    for (const auto& jump : m_doc.GetJumps()) {
        const CJumpEquipmentRef& ref = jump->GetEquipmentRef();
        if (ref.mode == CJumpEquipmentRef::ByDescription)
            equipment.Add(ref.description);
        else if (ref.mode == CJumpEquipmentRef::ByIndex)
            equipment.Add(jump->GetEquipmentText(rigs));
        malfunction.Add(jump->GetMalfunction());
        place.Add(jump->GetPlace());
        aircraft.Add(jump->GetAircraft());
        type.Add(jump->GetType());
        landing.Add(jump->GetLanding());
        team.Add(jump->GetTeam());
        if (jump->IsSigned())
            signer.Add(jump->GetSignature().GetName());
    }
    for (const CKnownSigner& known : settings.GetSigners())
        signer.Add(known.name);
    team.Sort();
    signer.Sort();
    return {equipment.Items(), malfunction.Items(), type.Items(), landing.Items(),
            place.Items(),     aircraft.Items(),    team.Items(), signer.Items()};
}

std::string CJumpEdit::KnownLicence(std::string_view signer) const
{
    if (signer.empty())
        return {};
    const std::string_view remembered = m_doc.GetSettings().GetSignerLicence(signer);
    if (!remembered.empty())
        return std::string(remembered);
    for (std::size_t i = m_doc.GetJumpCount(); i-- > 0;) {
        const CJumpSignature& signature = m_doc.GetJump(i).GetSignature();
        if (signature.GetName() == signer && !signature.GetLicence().empty())
            return signature.GetLicence();
    }
    return {};
}

SealState CJumpEdit::GetSealState() const
{
    return m_jump ? m_jump->GetSealState() : SealState::NotSigned;
}

bool CJumpEdit::RemoveSignature(CLogbookDoc& doc, std::size_t index, const CDateTime& now)
{
    return doc.ChangeJump(index, [&now](CJump& jump) {
        if (!jump.IsSigned())
            return false;
        jump.Signature().Clear();
        jump.SetModified(now);
        return true;
    });
}

void CJumpEdit::TakeImport(CJumpRecording recording, const CJumpFallrate& fallrate, const CZonedDateTime& exitTime)
{
    const CDateTime& when = exitTime.dateTime;
    m_values.kind = FallrateKind::Import;
    m_values.date = when.DateOnly();
    m_values.noTime = false;
    m_values.timeText = TimeText(when.Hour(), when.Minute(), when.Second());
    m_values.exitHeight = HeightToDisplay(fallrate.exitHeight);
    m_values.openHeight = HeightToDisplay(fallrate.openHeight);
    m_values.delay = fallrate.freefallTime;
    m_values.vMax = RoundToInt(m_units.SpeedToDisplay(fallrate.maxSpeed));
    m_values.vAvg = RoundToInt(m_units.SpeedToDisplay(fallrate.avgSpeed));
    m_hasImport = true;
    m_import = {m_values.date,       m_values.noTime, m_values.timeText, m_values.exitHeight,
                m_values.openHeight, m_values.delay,  m_values.vMax,     m_values.vAvg};
    // A new jump that found no wind to take over has none, rather than a wind of 0 that the
    // check refuses: the track does not know the wind.
    if (!m_jump && m_values.windSpeed == 0)
        m_values.noWind = true;
    CJumpFallrate imported = fallrate;
    imported.kind = FallrateKind::Import;
    m_taken = TakenImport{std::move(recording), imported, exitTime.offsetMinutes};
}

const CJumpRecording* CJumpEdit::Recording() const
{
    if (m_taken)
        return &m_taken->recording;
    if (m_jump && m_jump->GetRecording().IsPresent())
        return &m_jump->GetRecording();
    return nullptr;
}

const CJumpFallrate* CJumpEdit::ImportedFallrate() const
{
    if (m_taken)
        return &m_taken->fallrate;
    if (m_jump && m_jump->GetFallrateKind() == FallrateKind::Import)
        return &m_jump->GetFallrate();
    return nullptr;
}

void CJumpEdit::PickKind(FallrateKind kind)
{
    m_values.kind = kind;
    if (kind == FallrateKind::Import && m_hasImport) {
        m_values.date = m_import.date;
        m_values.noTime = m_import.noTime;
        m_values.timeText = m_import.timeText;
        m_values.exitHeight = m_import.exitHeight;
        m_values.openHeight = m_import.openHeight;
        m_values.delay = m_import.delay;
        m_values.vMax = m_import.vMax;
        m_values.vAvg = m_import.vAvg;
    }
    Recompute();
}

void CJumpEdit::Recompute()
{
    if (!FallrateKindIsComputed(m_values.kind) || m_values.exitHeight < m_values.openHeight)
        return;
    const double distance = m_units.HeightFromDisplay(m_values.exitHeight - m_values.openHeight);
    const double speed = m_doc.GetSettings().FallrateSpeed(m_values.kind);
    const int shown = static_cast<int>(std::trunc(RoundValue(m_units.SpeedToDisplay(speed), RoundHalfUp, 2)));
    m_values.vMax = shown;
    m_values.vAvg = shown;
    m_values.delay = RoundToInt(CJump::ComputeFreefallTime(distance, speed));
}

int CJumpEdit::StepHeight(int value, int steps)
{
    if (steps > 0)
        return value - value % 10 + 10 * steps;
    if (steps < 0)
        return (value % 10 == 0 ? value : value - value % 10 + 10) + 10 * steps;
    return value;
}

bool CJumpEditPages::ParseTime(std::string_view text, int& hour, int& minute, int& second)
{
    int parts[3] = {0, 0, 0};
    int count = 0;
    int digits = 0;
    for (char c : text) {
        if (c == ':') {
            if (digits == 0 || (count > 0 && digits != 2) || ++count > 2)
                return false;
            digits = 0;
        } else if (c >= '0' && c <= '9' && digits < 2) {
            parts[count] = parts[count] * 10 + (c - '0');
            ++digits;
        } else {
            return false;
        }
    }
    // Minutes and seconds take two digits; the hour one or two.
    if (count == 0 || digits != 2)
        return false;
    hour = parts[0];
    minute = parts[1];
    second = count == 2 ? parts[2] : 0;
    return hour < 24 && minute < 60 && second < 60;
}

std::string CJumpEdit::TimeText(int hour, int minute, int second)
{
    char text[16];
    if (second != 0)
        std::snprintf(text, sizeof text, "%02d:%02d:%02d", hour, minute, second);
    else
        std::snprintf(text, sizeof text, "%02d:%02d", hour, minute);
    return text;
}

std::string CJumpEdit::StripTrailingBreaks(std::string note)
{
    while (note.size() >= 2 && note.compare(note.size() - 2, 2, "\r\n") == 0)
        note.resize(note.size() - 2);
    return note;
}
