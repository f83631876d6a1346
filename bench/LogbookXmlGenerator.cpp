#include "LogbookXmlGenerator.h"

#include "xml/CXmlStringOutput.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <random>

namespace {

const char* const kDropZones[] = {"Tervola",
                                  "Skydive Rovaniemi",
                                  "Fallschirmsport Marl",
                                  "Empuriabrava",
                                  "Z\xC3\xBC"
                                  "rich-Hausen",
                                  "Saulgau"};
const char* const kAircraft[] = {"Cessna 206", "Pilatus PC-6 Porter", "Twin Otter", "Dornier Do 28", "Skyvan"};
const char* const kTypes[] = {"Belly", "Freefly", "Tracking", "Wingsuit", "CRW", "Hop & Pop"};
const char* const kFallrates[] = {"Standard", "Vertical", "Custom", "Manual", "Import"};
const char* const kNoteWords[] = {"Exit",
                                  "sauber",
                                  "\xC3\xBC"
                                  "ber",
                                  "Wolken",
                                  "<tight>",
                                  "Gr\xC3\xB6\xC3\x9F"
                                  "e",
                                  "R&W",
                                  "\"Docks\"",
                                  "K\xC3\xA4lte",
                                  "Spot",
                                  "perfekt",
                                  "l\xC3\xA4"
                                  "nding"};
const char* const kSigners[] = {"J\xC3\xBCrgen M\xC3\xBCller", "Anna Virtanen", "Pierre L'\xC3\x89toile",
                                "Sami Ker\xC3\xA4nen"};

class Generator
{
public:
    Generator(const LogbookXmlOptions& options, CXmlWriter& writer)
        : m_options(options), m_writer(writer), m_random(options.seed)
    {
    }

    int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    template <std::size_t N>
    const char* Pick(const char* const (&words)[N])
    {
        return words[Number(0, static_cast<int>(N) - 1)];
    }

    void Settings()
    {
        m_writer.StartElement("settings");
        m_writer.WriteElement("owner", "Matti \xC3\x84hl\xC3\xA9n");
        m_writer.StartElement("membership", "name", "FI-12345");
        m_writer.WriteElement("expirationDate", XmlDateTimeToString(CDateTime(2031, 5, 1)));
        m_writer.WriteElement("alarmDays", "30");
        m_writer.EndElement();
        m_writer.StartElement("licenses");
        m_writer.WriteElement("license", "D-12345");
        m_writer.EndElement();
        m_writer.StartElement("equipments", "size", "2");
        for (int i = 0; i < 2; ++i) {
            m_writer.StartElement("equipment");
            m_writer.WriteElement("harness", i == 0 ? "Vector 3" : "Javelin Odyssey");
            m_writer.WriteElement("mainCanopy", i == 0 ? "Sabre 2" : "Stiletto");
            m_writer.WriteElement("mainSize", i == 0 ? "170" : "135");
            m_writer.EndElement();
        }
        m_writer.EndElement();
        m_writer.StartElement("fallrates");
        m_writer.WriteElement("fallrate", "", "name", "Standard", "speed", "52.5");
        m_writer.WriteElement("fallrate", "", "name", "Vertical", "speed", "76.0");
        m_writer.WriteElement("fallrate", "", "name", "Custom", "speed", "22.3");
        m_writer.EndElement();
        m_writer.WriteElement("previousJumps", "120");
        m_writer.EndElement();
    }

    void Jump(int number)
    {
        const CDateTime day = CDateTime(2004, 1, 1).AddDays(number / 4);
        const CDateTime ts(day.Year(), day.Month(), day.Day(), Number(8, 19), Number(0, 59), Number(0, 59));
        const CZonedDateTime zoned{ts, 120};
        const std::string mod = XmlDateTimeToString(ts.AddDays(Number(0, 30)));
        const std::string n = XmlIntToString(number, true);
        const std::string stamp = XmlZonedDateTimeToString(zoned);
        m_writer.StartElement("jump", {{"n", n}, {"ts", stamp}, {"mod", mod}});
        m_writer.WriteElement("dz", Pick(kDropZones));
        m_writer.WriteElement("ac", Pick(kAircraft));
        m_writer.WriteElement("type", Pick(kTypes));
        const int kind = Number(0, 4);
        m_writer.WriteElement("fallrate", "", "name", kFallrates[kind]);
        const int exit = Number(10, 45) * 100;
        m_writer.WriteElement("exit", XmlIntToString(exit, false));
        m_writer.WriteElement("open", XmlIntToString(Number(7, 12) * 100, false));
        if (kind >= 3) {
            m_writer.WriteElement("ffTime", XmlIntToString(Number(10, 70), false));
            if (kind == 4)
                m_writer.WriteElement("cpTime", XmlIntToString(Number(120, 400), false));
            m_writer.WriteElement("vMax", XmlDoubleToString(Real(40, 90), false));
            m_writer.WriteElement("vAvg", XmlDoubleToString(Real(30, 60), false));
        }
        m_writer.WriteElement("wind", "", "direction", XmlIntToString(Number(0, 359), true), "speed",
                              XmlDoubleToString(Real(0.5, 12), false));
        m_writer.WriteElement("landing", Number(0, 3) == 0 ? "Stand-up \xE2\x9C\x93" : "Stand-up");
        m_writer.WriteElement("equipment", "", "n", XmlIntToString(Number(0, 1), true));
        m_writer.WriteElement("size", XmlIntToString(Number(0, 8), false));
        m_writer.WriteElement("points", XmlIntToString(Number(0, 3), false));
        m_writer.WriteElement("team", Number(0, 2) == 0 ? "Team \"Nordlicht\"" : "");
        Note();
        if (m_options.profileEvery > 0 && number % m_options.profileEvery == 0)
            Profile();
        Signature();
        m_writer.EndElement();
    }

    void Note()
    {
        std::string note;
        for (int line = Number(0, 3); line > 0; --line) {
            note += "<p style=\"margin: 0\">";
            for (int w = Number(3, 14); w > 0; --w) {
                note += Pick(kNoteWords);
                note += ' ';
            }
            note += "</p>";
        }
        m_writer.WriteElement("note", note);
    }

    void Profile()
    {
        m_writer.StartElement("profile", "type", "gps");
        m_writer.WriteElement("qne", XmlDoubleToString(Real(990, 1030), false));
        const int count = Number(50, 200);
        m_writer.StartElement("waypoints", "size", XmlIntToString(count, true));
        double altitude = 4000;
        double lat = Real(60, 67);
        double lon = Real(20, 28);
        for (int i = 0; i < count; ++i) {
            altitude -= Real(5, 50);
            lat += Real(-0.0001, 0.0001);
            lon += Real(-0.0001, 0.0001);
            m_writer.StartElement("wpt", {{"a", XmlDoubleToString(altitude, true)}, {"t", XmlDoubleToString(i, true)}});
            m_writer.WriteElement("lat", XmlDoubleToString(lat, true));
            m_writer.WriteElement("lon", XmlDoubleToString(lon, true));
            m_writer.EndElement();
        }
        m_writer.EndElement();
        m_writer.EndElement();
    }

    void Signature()
    {
        if (Number(0, 3) == 0)
            return;
        m_writer.StartElement("signature", "name", Pick(kSigners));
        m_writer.WriteElement("id", "D-" + std::to_string(Number(1000, 99999)));
        const int lines = Number(1, 6);
        m_writer.StartElement("lines", "size", XmlIntToString(lines, true));
        for (int l = 0; l < lines; ++l) {
            const int points = Number(5, 30);
            m_writer.StartElement("line", "size", XmlIntToString(points, true));
            int x = Number(0, 200);
            int y = Number(0, 80);
            for (int p = 0; p < points; ++p) {
                x += Number(-4, 6);
                y += Number(-3, 3);
                m_writer.WriteElement("p", "", "x", XmlIntToString(x, true), "y", XmlIntToString(y, true));
            }
            m_writer.EndElement();
        }
        m_writer.EndElement();
        m_writer.EndElement();
    }

private:
    const LogbookXmlOptions& m_options;
    CXmlWriter& m_writer;
    std::mt19937_64 m_random;
};

} // namespace

std::string GenerateLogbookXml(const LogbookXmlOptions& options)
{
    const unsigned writerOptions = options.compact ? (Compact | SkipEmpty) : SkipEmpty;
    int count = options.jumps;
    if (options.minBytes > 0) {
        // The "log" element states its size up front, so a first pass counts the jumps needed;
        // the second pass draws the same random values and so writes the same jumps.
        CXmlWriter counter(Utf8, XmlPlainFile, writerOptions);
        auto output = std::make_unique<CXmlStringOutput>();
        const auto bytes = output->Bytes();
        counter.Open(std::move(output));
        Generator generator(options, counter);
        count = 0;
        while (count < options.jumps || bytes->size() < options.minBytes)
            generator.Jump(++count);
        counter.Close();
    }

    CXmlWriter writer(Utf8, XmlPlainFile, writerOptions);
    auto output = std::make_unique<CXmlStringOutput>();
    const auto bytes = output->Bytes();
    writer.Open(std::move(output));
    writer.StartElement("tvl", {{"version", "1.2"},
                                {"creator", "Tervola Pocket 1.0.0 - https://tervola.example.org"},
                                {"mod", "2024-06-01T12:00:00Z"}});
    Generator generator(options, writer);
    generator.Settings();
    writer.StartElement("log", "size", XmlIntToString(count, true));
    for (int i = 1; i <= count; ++i)
        generator.Jump(i);
    writer.Close();
    return *bytes;
}
