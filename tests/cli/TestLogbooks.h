#pragma once

#include <string>

// Logbook texts written by hand for the tool's tests.
namespace TestLogbooks {

// A logbook file: declaration, root "tvl" of the given version and body as its content.
inline std::string File(const std::string& body, const std::string& version = "1.2")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl version=\"" + version +
           "\" creator=\"test\" mod=\"2024-01-01T10:00:00Z\">" + body + "</tvl>";
}

// A jump element with the three required attributes and the given content.
inline std::string Jump(int number, const std::string& timestamp, const std::string& content)
{
    return "<jump n=\"" + std::to_string(number) + "\" ts=\"" + timestamp + "\" mod=\"2024-07-01T20:00:00Z\">" +
           content + "</jump>";
}

// The reference logbook: a profile, one rig, a Standard speed of 50 in the file (the program keeps
// its fixed 52.5), a Custom speed of 30.5, 100 previous jumps and 600 s of previous freefall, and
// three jumps written out of order (500, 498, 499).
//  500 Manual, 4000 -> 1000 m, 61 s typed, wind, rig by position, formation, picture, video,
//      a two-line note with a comma and quotes, a signature with one stroke;
//  498 Standard, 3000 -> 1000 m, rig by text, a GPS recording of two waypoints;
//  499 Custom, 2000 -> 1200 m, no time of day, place with a comma, a two-line note.
inline std::string Reference()
{
    const std::string settings =
        R"(<settings><owner>Jörg Ödegaard</owner><membership name="M-77">)"
        R"(<expirationDate>2026-03-31T00:00:00Z</expirationDate><alarmDays>20</alarmDays></membership>)"
        R"(<licenses><license>D-1234</license><license></license></licenses><ratings><rating>AFF-I</rating></ratings>)"
        R"(<equipments><inspectionCycle>180</inspectionCycle><alarmDays>10</alarmDays><equipment n="1" active="true">)"
        R"(<previousJumps>5</previousJumps><harness>Javelin</harness><mainCanopy>Sabre2</mainCanopy>)"
        R"(<mainSize>170</mainSize><reserveCanopy>PD</reserveCanopy>)"
        R"(<inspectionDate>2025-01-15T00:00:00Z</inspectionDate></equipment></equipments>)"
        R"(<fallrates><fallrate name="Standard" speed="50"/><fallrate name="Vertical" speed="76"/>)"
        R"(<fallrate name="Custom" speed="30.5"/></fallrates>)"
        R"(<previousJumps>100</previousJumps><previousDelay>600</previousDelay></settings>)";
    const std::string log =
        R"(<log size="3">)" +
        Jump(500, "2024-06-02T14:30:00+02",
             R"(<dz>Tervola</dz><ac>Cessna 206</ac><type>FS 4-way</type><fallrate name="Manual"/><exit>4000</exit>)"
             R"(<open>1000</open><ffTime>61</ffTime><vMax>55.5</vMax><vAvg>49.25</vAvg>)"
             R"(<wind direction="270" speed="5.5"/><landing>Stand-up</landing><equipment n="0"/><size>4</size>)"
             R"(<points>12</points><team>Team A, B</team><image name="pics\a.jpg" thumbnail="pics\a_t.jpg"/>)"
             R"(<video name="v.mp4" offset="2.5"/><note>&lt;p style="margin: 0"&gt;Line one, with comma&lt;/p&gt;)"
             R"(&lt;p style="margin: 0"&gt;Say "hi" über Tervola&lt;/p&gt;</note>)"
             R"(<signature name="Matti Virtanen"><id>X1</id><lines size="1"><line size="2">)"
             R"(<p x="1" y="2"/><p x="3" y="4"/></line></lines></signature>)") +
        Jump(498, "2024-06-01T09:05:00Z",
             R"(<dz>Utti</dz><fallrate name="Standard"/><exit>3000</exit><open>1000</open>)"
             R"(<equipment description="Rental"/><profile type="gps"><qne>1013.25</qne><waypoints size="2">)"
             R"(<wpt a="3000.0" t="0.0"><lat>60.5</lat><lon>26.25</lon></wpt>)"
             R"(<wpt a="1000.0" t="40.5"><lat>60.51</lat><lon>26.26</lon></wpt></waypoints>)"
             R"(<annotations size="1"><annotation a="3000.0" t="0.0" txt="Exit"/></annotations>)"
             R"(<winds apply="true" size="1"><wind direction="90" speed="3.5" altitude="1500"/></winds></profile>)") +
        Jump(499, "2024-06-01T00:00:00Z",
             R"(<dz>Eloy, Arizona</dz><fallrate name="Custom"/><exit>2000</exit><open>1200</open>)"
             R"(<note>&lt;p style="margin: 0"&gt;Zwei Zeilen&lt;/p&gt;)"
             R"(&lt;p style="margin: 0"&gt;ohne Komma&lt;/p&gt;</note>)") +
        "</log>";
    return File(settings + log, "1.1");
}

} // namespace TestLogbooks
