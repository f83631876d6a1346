#pragma once

#include <regex>
#include <string>
#include <string_view>

// Logbook texts written by hand for the tool's tests.
namespace TestLogbooks {

// A logbook file: declaration, root "tvl" with the given version attribute text (none when
// version is null) and body as its content.
inline std::string File(std::string_view body, const char* version = "1.2")
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl";
    if (version)
        text.append(" version=\"").append(version).append("\"");
    text.append(" creator=\"test\" mod=\"2024-01-01T10:00:00Z\">");
    text.append(body);
    text.append("</tvl>");
    return text;
}

// The saved text without the root's save time, which differs from save to save.
inline std::string WithoutRootMod(const std::string& xml)
{
    return std::regex_replace(xml, std::regex("(<tvl[^>]*) mod=\"[^\"]*\""), "$1",
                              std::regex_constants::format_first_only);
}

// A jump element with the three required attributes and the given content.
inline std::string Jump(int number, std::string_view timestamp, std::string_view content)
{
    std::string text = "<jump n=\"" + std::to_string(number) + "\" ts=\"";
    text.append(timestamp).append("\" mod=\"2024-07-01T20:00:00Z\">").append(content).append("</jump>");
    return text;
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
        "<settings><owner>Jörg Ödegaard</owner>"
        "<membership name=\"M-77\"><expirationDate>2026-03-31T00:00:00Z</expirationDate>"
        "<alarmDays>20</alarmDays></membership>"
        "<licenses><license>D-1234</license><license></license></licenses>"
        "<ratings><rating>AFF-I</rating></ratings>"
        "<equipments><inspectionCycle>180</inspectionCycle><alarmDays>10</alarmDays>"
        "<equipment n=\"1\" active=\"true\"><previousJumps>5</previousJumps><harness>Javelin</harness>"
        "<mainCanopy>Sabre2</mainCanopy><mainSize>170</mainSize><reserveCanopy>PD</reserveCanopy>"
        "<inspectionDate>2025-01-15T00:00:00Z</inspectionDate></equipment></equipments>"
        "<fallrates><fallrate name=\"Standard\" speed=\"50\"/><fallrate name=\"Vertical\" speed=\"76\"/>"
        "<fallrate name=\"Custom\" speed=\"30.5\"/></fallrates>"
        "<previousJumps>100</previousJumps><previousDelay>600</previousDelay></settings>";
    const std::string note = "&lt;p style=\"margin: 0\"&gt;Line one, with comma&lt;/p&gt;"
                             "&lt;p style=\"margin: 0\"&gt;Say \"hi\" über Tervola&lt;/p&gt;";
    const std::string log =
        "<log size=\"3\">" +
        Jump(500, "2024-06-02T14:30:00+02",
             "<dz>Tervola</dz><ac>Cessna 206</ac><type>FS 4-way</type><fallrate name=\"Manual\"/>"
             "<exit>4000</exit><open>1000</open><ffTime>61</ffTime><vMax>55.5</vMax><vAvg>49.25</vAvg>"
             "<wind direction=\"270\" speed=\"5.5\"/><landing>Stand-up</landing><equipment n=\"0\"/>"
             "<size>4</size><points>12</points><team>Team A, B</team>"
             "<image name=\"pics\\a.jpg\" thumbnail=\"pics\\a_t.jpg\"/><video name=\"v.mp4\" offset=\"2.5\"/>"
             "<note>" +
                 note +
                 "</note>"
                 "<signature name=\"Matti Virtanen\"><id>X1</id><lines size=\"1\"><line size=\"2\">"
                 "<p x=\"1\" y=\"2\"/><p x=\"3\" y=\"4\"/></line></lines></signature>") +
        Jump(498, "2024-06-01T09:05:00Z",
             "<dz>Utti</dz><fallrate name=\"Standard\"/><exit>3000</exit><open>1000</open>"
             "<equipment description=\"Rental\"/>"
             "<profile type=\"gps\"><qne>1013.25</qne><waypoints size=\"2\">"
             "<wpt a=\"3000.0\" t=\"0.0\"><lat>60.5</lat><lon>26.25</lon></wpt>"
             "<wpt a=\"1000.0\" t=\"40.5\"><lat>60.51</lat><lon>26.26</lon></wpt></waypoints>"
             "<annotations size=\"1\"><annotation a=\"3000.0\" t=\"0.0\" txt=\"Exit\"/></annotations>"
             "<winds apply=\"true\" size=\"1\"><wind direction=\"90\" speed=\"3.5\" altitude=\"1500\"/></winds>"
             "</profile>") +
        Jump(499, "2024-06-01T00:00:00Z",
             "<dz>Eloy, Arizona</dz><fallrate name=\"Custom\"/><exit>2000</exit><open>1200</open>"
             "<note>&lt;p style=\"margin: 0\"&gt;Zwei Zeilen&lt;/p&gt;&lt;p style=\"margin: 0\"&gt;ohne "
             "Komma&lt;/p&gt;</note>") +
        "</log>";
    return File(settings + log, "1.1");
}

} // namespace TestLogbooks
