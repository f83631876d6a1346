#pragma once

#include <string>

// A small logbook written by hand for the statistics, shared by the core's tests and the tool's:
// 40 jumps and 20:00 of freefall before the logbook, a licence entry that names no level, one
// rig inspected on 2024-02-01, and seven jumps across year, month and leap-day boundaries.
//  1 2023-12-31 no time   Utti     Cessna 206 Belly   Manual 4000-1000 60 s, rig by position, signed
//  2 2024-01-01 10:15+02  Utti     Skyvan     Belly   Manual 4000-1200 50 s, 60.5 m/s, cutaway, "Rental"
//  3 2024-02-29 09:00     Tervola  Skyvan     Freefly Import 3000-900 45 s, 200 s canopy, 70.5 m/s,
//                                                     the rig by its full text
//  4 2024-02-29 15:00     Tervola  Skyvan     -       Manual 4000-1000 58 s, no rig
//  5 2025-03-01 11:00     Utti     Cessna 206 -       Standard 1000-1000 (0 s), no rig
//  6 2025-03-02 12:00     Utti     Cessna 206 -       Manual 4000-1000 61 s, rig by position
//  7 2026-01-05 10:00     Utti     Cessna 206 -       Manual 4000-1000 40 s
namespace StatsLogbook {

inline std::string Jump(int number, const std::string& stamp, const std::string& content)
{
    return "<jump n=\"" + std::to_string(number) + "\" ts=\"" + stamp + "\" mod=\"2026-01-06T10:00:00Z\">" + content +
           "</jump>";
}

inline std::string Xml()
{
    const std::string settings =
        R"(<settings><licenses><license>Drone pilot</license></licenses><equipments><equipment n="1" active="true">)"
        R"(<previousJumps>5</previousJumps><harness>Javelin</harness><mainCanopy>Sabre2</mainCanopy>)"
        R"(<reserveCanopy>PD</reserveCanopy><inspectionDate>2024-02-01T00:00:00Z</inspectionDate></equipment>)"
        R"(</equipments><previousJumps>40</previousJumps><previousDelay>1200</previousDelay></settings>)";
    const std::string manual = R"(<fallrate name="Manual"/>)";
    return R"(<?xml version="1.0" encoding="UTF-8" ?><tvl version="1.2">)" + settings + "<log>" +
           Jump(1, "2023-12-31T00:00:00Z",
                "<dz>Utti</dz><ac>Cessna 206</ac><type>Belly</type>" + manual +
                    R"(<exit>4000</exit><open>1000</open><ffTime>60</ffTime><equipment n="0"/>)"
                    R"(<signature name="M"><id>1</id><lines size="1"><line size="2"><p x="1" y="2"/><p x="3" y="4"/>)"
                    R"(</line></lines></signature>)") +
           Jump(2, "2024-01-01T10:15:00+02",
                "<dz>Utti</dz><ac>Skyvan</ac><type>Belly</type>" + manual +
                    R"(<exit>4000</exit><open>1200</open><ffTime>50</ffTime><vMax>60.5</vMax>)"
                    R"(<equipment description="Rental"/><malfunction>Line twist</malfunction>)") +
           Jump(3, "2024-02-29T09:00:00Z",
                R"(<dz>Tervola</dz><ac>Skyvan</ac><type>Freefly</type><fallrate name="Import"/><exit>3000</exit>)"
                R"(<open>900</open><ffTime>45</ffTime><cpTime>200</cpTime><vMax>70.5</vMax>)"
                R"(<equipment description="[1] Javelin / Sabre2 / PD"/>)") +
           Jump(4, "2024-02-29T15:00:00Z",
                "<dz>Tervola</dz><ac>Skyvan</ac>" + manual + "<exit>4000</exit><open>1000</open><ffTime>58</ffTime>") +
           Jump(5, "2025-03-01T11:00:00Z",
                R"(<dz>Utti</dz><ac>Cessna 206</ac><fallrate name="Standard"/><exit>1000</exit><open>1000</open>)") +
           Jump(6, "2025-03-02T12:00:00Z",
                "<dz>Utti</dz><ac>Cessna 206</ac>" + manual +
                    R"(<exit>4000</exit><open>1000</open><ffTime>61</ffTime><equipment n="0"/>)") +
           Jump(7, "2026-01-05T10:00:00Z",
                "<dz>Utti</dz><ac>Cessna 206</ac>" + manual + "<exit>4000</exit><open>1000</open><ffTime>40</ffTime>") +
           "</log></tvl>";
}

} // namespace StatsLogbook
