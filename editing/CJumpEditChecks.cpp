// The jump editor's page checks.

#include "editing/CJumpEditChecks.h"

#include "document/CLogbookDoc.h"
#include "editing/TrimBlanks.h"
#include "resources/StringTable.h"

namespace {

// Runs checks in order and stops at the first failure.
template <typename... Checks>
CCheckResult FirstFailure(Checks&&... checks)
{
    CCheckResult result;
    ((result.Passed() ? (void)(result = checks()) : (void)0), ...);
    return result;
}

} // namespace

CJumpEditPages::Page CJumpEditPages::PageOf(int field)
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

CJumpEditChecks::CJumpEditChecks(const CLogbookDoc& doc, const CJump* jump, CJumpValues& values,
                                 const CJumpValues& loaded)
    : m_doc(doc), m_jump(jump), m_values(values), m_loaded(loaded)
{
}

CCheckResult CJumpEditChecks::ValidateDetails()
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

CCheckResult CJumpEditChecks::ValidateFallrate() const
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

CCheckResult CJumpEditChecks::ValidateInfo()
{
    CJumpValues& v = m_values;
    for (std::string* text : {&v.place, &v.aircraft, &v.type, &v.landing, &v.team})
        *text = TrimBlanks(*text);
    return FirstFailure([&] { return CheckChangedRange(v.size, m_loaded.size, 0, kMaxSize, FieldSize); },
                        [&] { return CheckChangedRange(v.points, m_loaded.points, 0, kMaxPoints, FieldPoints); });
}

CCheckResult CJumpEditChecks::ValidateSignature()
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
