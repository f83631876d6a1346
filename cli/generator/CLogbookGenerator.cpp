#include "cli/generator/CLogbookGenerator.h"

#include "cli/generator/CFlightProfileMaker.h"
#include "cli/generator/CGeneratorVocabulary.h"
#include "document/CLogbookDoc.h"
#include "model/CEquipment.h"
#include "model/CJump.h"
#include "model/CLogbookSettings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

// The jumping season: from mid April to October.
constexpr int kSeasonStartMonth = 4;
constexpr int kSeasonStartDay = 10;
constexpr int kSeasonEndMonth = 10;
// The newest jumps are still waiting for a witness.
constexpr int kUnsignedTail = 6;

std::string Numbered(const char* pattern, int number)
{
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, pattern, number);
    return buffer;
}

bool IsFormation(std::string_view type)
{
    return type.starts_with("FS") || type.starts_with("VFS") || type.starts_with("Big-way") ||
           type.starts_with("CRW") || type == "Wingsuit formation";
}

} // namespace

CLogbookGenerator::CLogbookGenerator(const CGeneratorOptions& options) : m_options(options), m_random(options.seed)
{
    m_options.jumps = std::max(0, m_options.jumps);
    m_options.recordings = std::clamp(m_options.recordings, 0, m_options.jumps);
    m_options.samples = std::max(0, m_options.samples);
}

CDateTime CLogbookGenerator::LastJumpDay()
{
    return CDateTime(2025, 9, 27);
}

void CLogbookGenerator::Fill(CLogbookDoc& doc)
{
    doc.Clear();
    CLogbookSettings settings;
    FillSettings(settings);
    doc.ReplaceSettings(settings);

    const std::vector<JumpDay> days = PlanDays();
    const std::vector<Recording> recordings = PlanRecordings();
    const auto zones = CGeneratorVocabulary::DropZones();
    int number = doc.GetSettings().GetPreviousJumps();
    m_index = 0;
    for (const JumpDay& day : days) {
        const CDropZoneInfo& zone = zones[day.zone];
        const std::string aircraft(m_random.Pick(zone.aircraft));
        const bool hasTime = m_random.Chance(0.85);
        const int start = m_random.Int(9 * 60, 12 * 60);
        const int spacing = std::max(1, std::min(m_random.Int(45, 100), (21 * 60 - start) / day.jumps));
        const CDateTime date = CDateTime::FromDayNumber(day.dayNumber);
        for (int k = 0; k < day.jumps; ++k, ++m_index) {
            // Now and then a jump was never logged, so numbers skip.
            number += m_random.Chance(0.01) ? 2 : 1;
            const int minute = hasTime ? std::min(start + k * spacing, 23 * 60 + 59) : 0;
            const CZonedDateTime when{CDateTime(date.Year(), date.Month(), date.Day(), minute / 60, minute % 60),
                                      zone.offsetMinutes};
            const bool mayBeSigned = m_index < m_options.jumps - kUnsignedTail;
            doc.AddJump(
                MakeJump(number, when, zone, aircraft, recordings[static_cast<std::size_t>(m_index)], mayBeSigned));
        }
    }
    doc.SetModified(false);
}

void CLogbookGenerator::FillSettings(CLogbookSettings& settings)
{
    const CDateTime last = LastJumpDay();
    settings.SetOwnerName("Aino Mäkelä");
    settings.SetPreviousJumps(120);
    settings.SetPreviousDelay(120 * 35);

    CMembership& membership = settings.GetMembership();
    membership.SetMemberNumber("SIL 20417");
    membership.SetExpirationDate(last.AddDays(96));
    membership.SetAlarmDays(30);
    settings.SetLicenses({"FAI A Nr. 1187", "FAI B", "FAI C", "FAI D Nr. 2891"});
    settings.SetRatings({"AFF Instructor", "Tandem Instructor (Sigma)"});
    settings.SetAwards({"FAI 1000 Jumps", "10 h Freefall", "Wingsuit Gold Ä"});

    m_customSpeed = 24.5;
    settings.SetCustomFallrateSpeed(m_customSpeed);
    settings.SetKeyword(CLogbookSettings::NightJump, "Nachtsprung");

    CEquipmentList& rigs = settings.GetEquipmentList();
    rigs.SetAlarm(true, 14, 180);
    struct RigText
    {
        const char* harness;
        const char* main;
        int mainSize;
        const char* reserve;
        int reserveSize;
        const char* aad;
        int inspectedDaysAgo;
        bool active;
        int previousJumps;
    };
    constexpr std::array kRigs{
        RigText{"Javelin Odyssey", "Sabre2", 170, "PD Reserve", 160, "Cypres 2", 170, true, 80},
        RigText{"Mirage G4", "Pilot", 150, "Smart", 150, "Vigil II", 60, true, 0},
        RigText{"Vector 3", "Stiletto", 135, "Micro Raven", 135, "Cypres", 900, false, 40},
    };
    int serial = 23817;
    for (const RigText& text : kRigs) {
        auto rig = std::make_unique<CEquipment>(rigs.NextNumber());
        rig->SetActive(text.active);
        rig->SetPreviousJumps(text.previousJumps);
        rig->SetHarness(text.harness);
        rig->SetHarnessSerial(Numbered("H-%05d", serial++));
        rig->SetMainCanopy(text.main);
        rig->SetMainSize(text.mainSize);
        rig->SetMainSerial(Numbered("M-%05d", serial++));
        rig->SetReserveCanopy(text.reserve);
        rig->SetReserveSize(text.reserveSize);
        rig->SetReserveSerial(Numbered("R-%05d", serial++));
        rig->SetAad(text.aad);
        rig->SetAadSerial(Numbered("A-%05d", serial++));
        rig->SetInspectionDate(last.AddDays(-text.inspectedDaysAgo));
        rigs.Add(std::move(rig));
    }
    m_rigCount = static_cast<int>(rigs.GetCount());
}

std::vector<CLogbookGenerator::JumpDay> CLogbookGenerator::PlanDays()
{
    // Up to five jumps a day; very large logbooks squeeze more into a day so that their dates
    // stay within about a century.
    const int perDayMax = std::max(5, (m_options.jumps + 4999) / 5000);
    const auto zones = CGeneratorVocabulary::DropZones();
    int totalWeight = 0;
    for (const CDropZoneInfo& zone : zones)
        totalWeight += zone.weight;

    // Walk back from the last jump day through the seasons (mid April to late October), a few
    // days between two jump days, the winters skipped.
    std::vector<JumpDay> days;
    int remaining = m_options.jumps;
    CDateTime day = LastJumpDay();
    while (remaining > 0) {
        JumpDay planned;
        planned.dayNumber = day.DayNumber();
        planned.jumps = std::min(remaining, m_random.Int(1, perDayMax));
        int pick = m_random.Int(0, totalWeight - 1);
        while (pick >= zones[planned.zone].weight) {
            pick -= zones[planned.zone].weight;
            ++planned.zone;
        }
        days.push_back(planned);
        remaining -= planned.jumps;

        day = day.AddDays(-m_random.Int(1, 7));
        if (day < CDateTime(day.Year(), kSeasonStartMonth, kSeasonStartDay))
            day = CDateTime(day.Year() - 1, kSeasonEndMonth, m_random.Int(1, 20));
    }
    std::reverse(days.begin(), days.end());
    return days;
}

std::vector<CLogbookGenerator::Recording> CLogbookGenerator::PlanRecordings() const
{
    const auto count = static_cast<std::size_t>(m_options.jumps);
    std::vector<Recording> plan(count, Recording::None);
    if (count == 0)
        return plan;
    // GPS recordings spread evenly over the logbook.
    const auto gps = static_cast<std::size_t>(m_options.recordings);
    for (std::size_t k = 0; k < gps; ++k)
        plan[(2 * k + 1) * count / (2 * gps)] = Recording::Gps;
    // Barometric ones in between, on the next jump without a recording.
    const int wanted = m_options.barometric < 0 ? m_options.jumps / 100 : m_options.barometric;
    const auto baro = static_cast<std::size_t>(std::clamp(wanted, 0, m_options.jumps - m_options.recordings));
    for (std::size_t k = 0; k < baro; ++k) {
        std::size_t at = (4 * k + 1) * count / (4 * baro);
        while (plan[at] != Recording::None)
            at = (at + 1) % count;
        plan[at] = Recording::Barometric;
    }
    return plan;
}

std::unique_ptr<CJump> CLogbookGenerator::MakeJump(int number, const CZonedDateTime& when, const CDropZoneInfo& zone,
                                                   const std::string& aircraft, Recording recording, bool mayBeSigned)
{
    // Entered into the logbook the same evening or a few days later.
    const int lateDays = m_random.Int(0, 3);
    const int lateMinute = m_random.Int(18 * 60, 23 * 60 + 59);
    const int lateSecond = m_random.Int(0, 59);
    const CDateTime day = when.dateTime;
    const CDateTime modified =
        CDateTime(day.Year(), day.Month(), day.Day(), lateMinute / 60, lateMinute % 60, lateSecond).AddDays(lateDays);

    auto jump = std::make_unique<CJump>(number, when, modified);
    jump->SetPlace(std::string(zone.name));
    jump->SetAircraft(aircraft);
    const int style = m_random.Int(0, 99);
    m_style = style < 62 ? Style::Belly : style < 88 ? Style::Vertical : Style::Slow;
    const auto types = m_style == Style::Belly      ? CGeneratorVocabulary::BellyTypes()
                       : m_style == Style::Vertical ? CGeneratorVocabulary::VerticalTypes()
                                                    : CGeneratorVocabulary::SlowTypes();
    jump->SetType(std::string(m_random.Pick(types)));
    FillFallrate(*jump, zone, recording);
    FillDetails(*jump);
    FillMedia(*jump);
    if (mayBeSigned)
        FillSignature(*jump);
    return jump;
}

void CLogbookGenerator::FillFallrate(CJump& jump, const CDropZoneInfo& zone, Recording recording)
{
    CJumpFallrate fallrate;
    const bool hopAndPop = jump.GetType() == "Hop & Pop";
    if (hopAndPop) {
        fallrate.exitHeight = 10 * m_random.Int(120, 160);
        fallrate.openHeight = 50 * m_random.Int(18, 22);
    } else {
        fallrate.exitHeight = 100 * m_random.Int(30, 42);
        fallrate.openHeight = 50 * (m_style == Style::Slow ? m_random.Int(20, 26) : m_random.Int(15, 26));
    }
    const double terminalSpeed = m_style == Style::Belly ? m_random.Rounded(49.0, 56.0, 1)
                                 : m_style == Style::Vertical
                                     ? m_random.Rounded(70.0, 82.0, 1)
                                     : m_random.Rounded(m_customSpeed - 4.0, m_customSpeed + 4.0, 1);

    if (recording != Recording::None) {
        CFlightProfileMaker maker(m_random);
        const int samples = recording == Recording::Gps
                                ? m_options.samples
                                : (m_options.samples > 0 ? std::min(m_options.samples, 120) : 60);
        const CFlightProfileMaker::Figures figures =
            recording == Recording::Gps ? maker.MakeGps(jump.Recording(), zone, fallrate.exitHeight,
                                                        fallrate.openHeight, terminalSpeed, samples)
                                        : maker.MakeBarometric(jump.Recording(), fallrate.exitHeight,
                                                               fallrate.openHeight, terminalSpeed, samples);
        fallrate.kind = FallrateKind::Import;
        fallrate.freefallTime = figures.freefallTime;
        fallrate.canopyTime = figures.canopyTime;
        fallrate.maxSpeed = figures.maxSpeed;
        fallrate.avgSpeed = figures.avgSpeed;
    } else if (m_random.Chance(0.1)) {
        // Typed by hand from the altimeter's read-out.
        const double seconds =
            CFlightProfileMaker::TimeToFall(fallrate.exitHeight - fallrate.openHeight, terminalSpeed);
        fallrate.kind = FallrateKind::Manual;
        fallrate.freefallTime = static_cast<int>(std::lround(seconds)) + m_random.Int(-3, 3);
        fallrate.maxSpeed = m_random.Rounded(terminalSpeed, terminalSpeed + 6.0, 1);
        fallrate.avgSpeed = m_random.Rounded(terminalSpeed - 12.0, terminalSpeed - 4.0, 1);
    } else {
        fallrate.kind = m_style == Style::Belly      ? FallrateKind::Standard
                        : m_style == Style::Vertical ? FallrateKind::Vertical
                                                     : FallrateKind::Custom;
    }
    jump.SetFallrateValues(fallrate);
}

void CLogbookGenerator::FillDetails(CJump& jump)
{
    if (m_random.Chance(0.8)) {
        const int direction = m_random.Int(0, 359);
        jump.SetWind(direction, m_random.Rounded(0.5, 11.0, 1));
    }
    jump.SetLanding(std::string(m_random.Pick(CGeneratorVocabulary::Landings())));

    const int rig = m_random.Int(0, 99);
    if (rig < 75 && m_rigCount > 0) {
        // The old rig in the first third of the logbook, the two current ones afterwards.
        const bool early = m_index * 3 < m_options.jumps;
        jump.SetEquipmentByIndex(early ? m_rigCount - 1 : m_random.Int(0, std::min(1, m_rigCount - 1)));
    } else if (rig < 87) {
        jump.SetEquipmentByDescription(std::string(m_random.Pick(CGeneratorVocabulary::RigDescriptions())));
    }

    const std::string_view type = jump.GetType();
    if (IsFormation(type)) {
        const int size = type.find("4-way") != std::string_view::npos   ? 4
                         : type.find("8-way") != std::string_view::npos ? 8
                         : type.find("2-way") != std::string_view::npos ? 2
                                                                        : m_random.Int(3, 40);
        jump.SetSize(size);
        if (size <= 8 && m_random.Chance(0.5))
            jump.SetPoints(m_random.Int(3, 24));
        if (m_random.Chance(0.6))
            jump.SetTeam(std::string(m_random.Pick(CGeneratorVocabulary::Teams())));
    }
    if (m_random.Chance(0.015))
        jump.SetMalfunction(std::string(m_random.Pick(CGeneratorVocabulary::Malfunctions())));
}

void CLogbookGenerator::FillMedia(CJump& jump)
{
    const int number = jump.GetNumber();
    if (m_random.Chance(0.1)) {
        jump.AddImage(Numbered("Bilder\\Sprung_%05d.jpg", number), Numbered("Bilder\\Sprung_%05d_t.jpg", number));
        if (m_random.Chance(0.2))
            jump.AddImage(Numbered("Bilder\\Sprung_%05d_b.jpg", number), "");
    }
    if (m_random.Chance(0.07))
        jump.SetVideo(Numbered("Video\\jump%05d.mp4", number), m_random.Rounded(0.0, 30.0, 1));

    if (m_random.Chance(0.45)) {
        const auto lines = CGeneratorVocabulary::NoteLines();
        const int count = m_random.Int(1, 3);
        std::vector<std::size_t> chosen;
        while (static_cast<int>(chosen.size()) < count) {
            const std::size_t line = m_random.Index(lines.size());
            if (std::find(chosen.begin(), chosen.end(), line) == chosen.end())
                chosen.push_back(line);
        }
        std::string text;
        for (std::size_t line : chosen) {
            if (!text.empty())
                text += "\r\n";
            text += lines[line];
        }
        jump.SetNoteText(text);
    }
}

void CLogbookGenerator::FillSignature(CJump& jump)
{
    if (!m_random.Chance(0.72))
        return;
    const std::size_t signer = m_random.Index(CGeneratorVocabulary::Signers().size());
    std::vector<CJumpSignature::Stroke> strokes;
    if (m_random.Chance(0.85)) {
        // A hand-written name: a few strokes wandering left to right over the 240 x 80 area.
        const int strokeCount = m_random.Int(1, 4);
        int x = m_random.Int(8, 40);
        for (int s = 0; s < strokeCount; ++s) {
            CJumpSignature::Stroke stroke;
            int y = m_random.Int(20, 60);
            const int points = m_random.Int(12, 36);
            for (int p = 0; p < points; ++p) {
                stroke.push_back({x, y});
                x = std::min(239, x + m_random.Int(1, 6));
                y = std::clamp(y + m_random.Int(-9, 9), 0, 79);
            }
            strokes.push_back(std::move(stroke));
            x = std::min(239, x + m_random.Int(4, 14));
        }
    }
    jump.SetSignature(std::string(CGeneratorVocabulary::Signers()[signer]), std::move(strokes));
    if (m_random.Chance(0.9))
        jump.Signature().SetId(std::string(CGeneratorVocabulary::SignerIds()[signer]));
}
