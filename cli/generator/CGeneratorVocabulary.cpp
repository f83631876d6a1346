#include "cli/generator/CGeneratorVocabulary.h"

#include <array>

namespace {

using namespace std::string_view_literals;

constexpr std::array kFinnishAircraft{"Cessna 206"sv, "Cessna 182"sv, "Pilatus PC-6 Porter"sv};
constexpr std::array kGermanAircraft{"Pilatus PC-6 Porter"sv, "Dornier Do 28"sv, "Cessna 208 Caravan"sv};
constexpr std::array kCzechAircraft{"Let L-410 Turbolet"sv, "Antonov An-2"sv};
constexpr std::array kSpanishAircraft{"DHC-6 Twin Otter"sv, "Pilatus PC-6 Porter"sv, "Short Skyvan"sv};
constexpr std::array kAmericanAircraft{"DHC-6 Twin Otter"sv, "Beech King Air 90"sv, "Short Skyvan"sv};
constexpr std::array kSwedishAircraft{"Cessna 208 Caravan"sv, "GippsAero GA8 Airvan"sv};

constexpr std::array kDropZones{
    CDropZoneInfo{"Tervola", kFinnishAircraft, 180, 66.0836, 24.8047, 6},
    CDropZoneInfo{"Jämijärvi", kFinnishAircraft, 180, 61.7786, 22.7161, 5},
    CDropZoneInfo{"Utti", kFinnishAircraft, 180, 60.8964, 26.9383, 3},
    CDropZoneInfo{"Kemi-Tornio", kFinnishAircraft, 180, 65.7787, 24.5821, 2},
    CDropZoneInfo{"Östersund", kSwedishAircraft, 120, 63.1944, 14.5003, 2},
    CDropZoneInfo{"Saulgau", kGermanAircraft, 120, 48.0297, 9.5064, 2},
    CDropZoneInfo{"Fehrbellin", kGermanAircraft, 120, 52.7933, 12.7603, 2},
    CDropZoneInfo{"Gransee", kGermanAircraft, 120, 53.0069, 13.2050, 1},
    CDropZoneInfo{"Klatovy", kCzechAircraft, 120, 49.4183, 13.3219, 1},
    CDropZoneInfo{"Empuriabrava", kSpanishAircraft, 120, 42.2581, 3.1089, 3},
    CDropZoneInfo{"Eloy, Arizona", kAmericanAircraft, -420, 32.8070, -111.5865, 1},
};

constexpr std::array kBellyTypes{"Belly"sv,     "FS 4-way"sv, "FS 8-way"sv,   "Big-way (Großformation)"sv,
                                 "Hop & Pop"sv, "CRW"sv,      "Coach jump"sv, "Accuracy"sv,
                                 "Video"sv};
constexpr std::array kVerticalTypes{"Freefly"sv, "Head down"sv, "Sit fly"sv, "Angle"sv, "VFS 2-way"sv};
constexpr std::array kSlowTypes{"Wingsuit"sv, "Tracking"sv, "Wingsuit formation"sv};
constexpr std::array kLandings{"Stand-up"sv,
                               "Stand-up"sv,
                               "Stand-up"sv,
                               "Slide"sv,
                               "PLF"sv,
                               "Target (Zielkreuz)"sv,
                               "Off landing, Feld nördlich"sv};
constexpr std::array kRigDescriptions{"Rental rig, Navigator 240"sv, "Borrowed \"Sabre2\" 150"sv, "Student rig Nr. 7"sv,
                                      "Tandem rig (Sigma 340)"sv};
constexpr std::array kTeams{"Lapland Flyers"sv, "Nordlichter"sv, "Revontulet 4"sv, "Team Käärmeet"sv,
                            "Sky Pilots & Friends"sv};
constexpr std::array kMalfunctions{"Line twists"sv, "Hard opening"sv, "Slider hang-up"sv,
                                   "Pilot chute in tow, cutaway"sv, "Lineover, Reserve gezogen"sv};
constexpr std::array kSigners{"Matti Virtanen"sv, "Jürgen Müller"sv, "Sanna Hämäläinen"sv,
                              "Björn Öberg"sv,    "Zoë Laurent"sv,   "Kalle Äijälä"sv};
constexpr std::array kSignerIds{"SIL-D-1042"sv, "DFV-D-22871"sv, "SIL-D-3315"sv,
                                "SFF-D-0871"sv, "FFP-D-5521"sv,  "SIL-C-4410"sv};
constexpr std::array kNoteLines{
    "Schöner Sprung, ruhige Öffnung."sv,
    "Sehr böig in der Landephase, gegen den Wind gelandet."sv,
    "Hyvä hyppy! Exit ja irtautuminen onnistuivat."sv,
    "Übung: Rückenlage und Drehungen um die Längsachse."sv,
    "Große Formation, zweiter Punkt nicht geschafft."sv,
    "Spotting selbst gemacht, Öffnung über dem Flugplatz."sv,
    "Kalter Tag: −5 °C am Boden, Handschuhe nötig."sv,
    "Coach: \"Beine mehr strecken\", \"Arme lockerer\"."sv,
    "Sunset load, Polarlicht beim Abstieg gesehen."sv,
    "Landing pattern linksrum, Windsack drehte kurz vor dem Aufsetzen."sv,
    "Video vom Kameraflieger, Ausstieg etwas zu früh."sv,
    "Äußerst ruhige Luft, 3 Kreise über dem Zielkreuz."sv,
};
constexpr std::array kAnnotationTexts{"Exit"sv, "Öffnung"sv, "Landung"sv};

} // namespace

std::span<const CDropZoneInfo> CGeneratorVocabulary::DropZones()
{
    return kDropZones;
}
std::span<const std::string_view> CGeneratorVocabulary::BellyTypes()
{
    return kBellyTypes;
}
std::span<const std::string_view> CGeneratorVocabulary::VerticalTypes()
{
    return kVerticalTypes;
}
std::span<const std::string_view> CGeneratorVocabulary::SlowTypes()
{
    return kSlowTypes;
}
std::span<const std::string_view> CGeneratorVocabulary::Landings()
{
    return kLandings;
}
std::span<const std::string_view> CGeneratorVocabulary::RigDescriptions()
{
    return kRigDescriptions;
}
std::span<const std::string_view> CGeneratorVocabulary::Teams()
{
    return kTeams;
}
std::span<const std::string_view> CGeneratorVocabulary::Malfunctions()
{
    return kMalfunctions;
}
std::span<const std::string_view> CGeneratorVocabulary::Signers()
{
    return kSigners;
}
std::span<const std::string_view> CGeneratorVocabulary::SignerIds()
{
    return kSignerIds;
}
std::span<const std::string_view> CGeneratorVocabulary::NoteLines()
{
    return kNoteLines;
}
std::span<const std::string_view> CGeneratorVocabulary::AnnotationTexts()
{
    return kAnnotationTexts;
}
