#pragma once

#include "document/CLogbookDoc.h"
#include "model/CEquipment.h"
#include "model/CJump.h"

#include <memory>
#include <string>
#include <vector>

// A small logbook that gives every search term something to find and something to miss:
//    1  2023-12-31 Jämijärvi, Cessna 206, Belly, Standard 1000 -> 800 m, rig [1] by position,
//       signed by Matti Virtanen, a note
//    2  2024-01-01 Skydive Spa, DHC-6 Twin Otter, Wingsuit, Manual 4000 -> 1219 m (13123 -> 3999 ft)
//       95 s, rig [2], wind, picture, video, malfunction "Line twists"
//    3  2024-02-29 Spa, Wingsuit formation, Import 3048 -> 1220 m (10000 -> 4003 ft) 70 s, team
//       "Sky Pilots & Friends", a rental rig by text, a GPS recording
//  100  no date, "Øresund Ωmega", Freefly, Vertical 3500 -> 1500 m, note "12:30 Exit"
//  400  2024-05-31 "Eloy, Arizona", FS 4-way, Custom 1000 -> 1000 m, team "Team A"
namespace QueryTestLogbook {

inline std::unique_ptr<CJump> Jump(int number, CDateTime when, const std::string& place, const std::string& type)
{
    auto jump = std::make_unique<CJump>(number, CZonedDateTime{when, 0}, CDateTime(2024, 6, 1));
    jump->SetPlace(place);
    jump->SetType(type);
    return jump;
}

inline void Fill(CLogbookDoc& doc)
{
    CLogbookSettings settings = doc.GetSettings();
    for (const auto& [number, harness] : {std::pair{1, "Javelin"}, std::pair{2, "Vector"}}) {
        auto rig = std::make_unique<CEquipment>(number);
        rig->SetHarness(harness);
        settings.GetEquipmentList().Add(std::move(rig));
    }
    doc.ReplaceSettings(settings);

    auto one = Jump(1, CDateTime(2023, 12, 31, 10, 0, 0), "Jämijärvi", "Belly");
    one->SetAircraft("Cessna 206");
    one->SetFallrate(FallrateKind::Standard, 1000, 800, 0, 0, 0);
    one->SetEquipmentByIndex(0);
    one->SetLanding("Stand-up");
    one->SetSignature("Matti Virtanen", {});
    one->SetNoteText("Schöner Sprung");

    auto two = Jump(2, CDateTime(2024, 1, 1), "Skydive Spa", "Wingsuit");
    two->SetAircraft("DHC-6 Twin Otter");
    two->SetFallrate(FallrateKind::Manual, 4000, 1219, 95, 0, 0);
    two->SetEquipmentByIndex(1);
    two->SetWind(270, 4.5);
    two->AddImage("a.jpg", "a_t.jpg");
    two->SetVideo("v.mp4", 0);
    two->SetMalfunction("Line twists");

    auto three = Jump(3, CDateTime(2024, 2, 29, 23, 59, 0), "Spa", "Wingsuit formation");
    three->SetFallrateValues(CJumpFallrate{FallrateKind::Import, 3048, 1220, 70, 90, 0, 0});
    three->SetTeam("Sky Pilots & Friends");
    three->SetEquipmentByDescription("Rental rig, Navigator 240");
    three->Recording().SetKind(CJumpRecording::Satellite);

    auto hundred = Jump(100, CDateTime(), "Øresund Ωmega", "Freefly");
    hundred->SetFallrate(FallrateKind::Vertical, 3500, 1500, 0, 0, 0);
    hundred->SetNoteText("12:30 Exit");

    auto four = Jump(400, CDateTime(2024, 5, 31), "Eloy, Arizona", "FS 4-way");
    four->SetFallrate(FallrateKind::Custom, 1000, 1000, 0, 0, 0);
    four->SetTeam("Team A");

    for (auto* jump : {&four, &one, &hundred, &two, &three})
        doc.AddJump(std::move(*jump));
}

// The numbers of the jumps at the positions.
inline std::vector<int> Numbers(const CLogbookDoc& doc, const std::vector<std::size_t>& positions)
{
    std::vector<int> numbers;
    for (const std::size_t i : positions)
        numbers.push_back(doc.GetJumps()[i]->GetNumber());
    return numbers;
}

} // namespace QueryTestLogbook
