#include "model/CJump.h"

#include "model/CEquipmentList.h"
#include "model/CLogbookSettings.h"
#include "model/CNoteTextCollector.h"
#include "model/JumpElements.h"
#include "units/RoundValue.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// Stores value into field; true when it differed.
template <typename T>
bool Assign(T& field, T value)
{
    if (field == value)
        return false;
    field = std::move(value);
    return true;
}

// The opening tag of each note paragraph.
constexpr std::string_view kParagraphStart = "<p style=\"margin: 0\">";
constexpr std::string_view kParagraphEnd = "</p>";

// Speeds and distances are in metres and metres per second; times in seconds.
constexpr double kTimeStep = 0.1;
constexpr double kGravityStep = 0.981; // 9.81 m/s² over one step
// A fall that has not ended after this many steps never will (an unstable tiny speed).
constexpr long kMaxSteps = 10'000'000;

// Seconds to fall distance metres from rest with terminal speed terminalSpeed, in 0.1 s steps.
double SimulateFall(double distance, double terminalSpeed)
{
    if (std::fabs(terminalSpeed) < 1e-8 || distance <= 0)
        return 0;
    const double vt2 = terminalSpeed * terminalSpeed;
    double v = 0;
    double s = 0;
    double t = 0;
    long steps = 0;
    do {
        v = v + (1 - v * v / vt2) * kGravityStep;
        s = s + v * kTimeStep;
        t = t + kTimeStep;
        if (!std::isfinite(s) || ++steps >= kMaxSteps)
            return 0;
    } while (s < distance);
    return t;
}

} // namespace

CJump::CJump(int number, const CZonedDateTime& timestamp, const CDateTime& modified)
    : m_number(number), m_timestamp(timestamp), m_modified(modified)
{
}

bool CJump::SetNumber(int number)
{
    return Assign(m_number, number);
}
bool CJump::SetTimestamp(const CZonedDateTime& timestamp)
{
    return Assign(m_timestamp, timestamp);
}
bool CJump::SetModified(const CDateTime& modified)
{
    return Assign(m_modified, modified);
}
bool CJump::SetPlace(std::string text)
{
    return Assign(m_place, std::move(text));
}
bool CJump::SetAircraft(std::string text)
{
    return Assign(m_aircraft, std::move(text));
}
bool CJump::SetType(std::string text)
{
    return Assign(m_type, std::move(text));
}
bool CJump::SetLanding(std::string text)
{
    return Assign(m_landing, std::move(text));
}
bool CJump::SetTeam(std::string text)
{
    return Assign(m_team, std::move(text));
}
bool CJump::SetMalfunction(std::string text)
{
    return Assign(m_malfunction, std::move(text));
}
bool CJump::SetSize(int size)
{
    return Assign(m_size, size);
}
bool CJump::SetPoints(int points)
{
    return Assign(m_points, points);
}
bool CJump::SetNote(std::string markup)
{
    return Assign(m_note, std::move(markup));
}
bool CJump::SetImages(std::vector<CJumpImage> images)
{
    return Assign(m_images, std::move(images));
}

bool CJump::SetFallrate(FallrateKind kind, int exitHeight, int openHeight, int freefallTime, double maxSpeed,
                        double avgSpeed)
{
    bool changed = Assign(m_fallrate.kind, kind);
    if (kind == FallrateKind::Import)
        return changed; // imported values come from the recording and are never edited
    changed |= Assign(m_fallrate.exitHeight, exitHeight);
    changed |= Assign(m_fallrate.openHeight, openHeight);
    if (kind != FallrateKind::Manual) {
        changed |= Assign(m_fallrate.freefallTime, 0);
        changed |= Assign(m_fallrate.canopyTime, 0);
        for (double* speed : {&m_fallrate.maxSpeed, &m_fallrate.avgSpeed}) {
            if (std::fabs(*speed) > 1e-8) {
                *speed = 0.0;
                changed = true;
            }
        }
        return changed;
    }
    changed |= Assign(m_fallrate.freefallTime, freefallTime);
    // A change of sign alone does not count: only the magnitude of a speed is compared.
    auto storeSpeed = [&changed](double& speed, double value) {
        if (std::fabs(std::fabs(speed) - std::fabs(value)) > 1e-8) {
            speed = value;
            changed = true;
        }
    };
    storeSpeed(m_fallrate.maxSpeed, maxSpeed);
    storeSpeed(m_fallrate.avgSpeed, avgSpeed);
    return changed;
}

int CJump::FreefallTime(const CLogbookSettings& settings) const
{
    const FallrateKind kind = m_fallrate.kind;
    if (FallrateKindIsComputed(kind)) {
        const double seconds = ComputeFreefallTime(GetFreefallDistance(), settings.FallrateSpeed(kind));
        return static_cast<int>(RoundValue(seconds, RoundHalfUp, 0));
    }
    if (kind == FallrateKind::Manual || kind == FallrateKind::Import)
        return m_fallrate.freefallTime;
    return 0;
}

double CJump::ComputeFreefallTime(double distance, double terminalSpeed)
{
    // Jumps repeat the same heights and speeds again and again, and summing a logbook asks for
    // each of its jumps: every distinct pair is simulated once and then looked up. The table is
    // per thread, so that it needs no lock; a clash of two pairs only costs a new simulation.
    struct Entry
    {
        std::uint64_t distance = 0;
        std::uint64_t speed = 0;
        double seconds = -1.0; // negative: empty
    };
    thread_local std::array<Entry, 1024> known;
    std::uint64_t distanceBits = 0;
    std::uint64_t speedBits = 0;
    std::memcpy(&distanceBits, &distance, sizeof distance);
    std::memcpy(&speedBits, &terminalSpeed, sizeof terminalSpeed);
    const std::uint64_t mixed = (distanceBits ^ (speedBits * 0x9E3779B97F4A7C15ull)) * 0xBF58476D1CE4E5B9ull;
    Entry& entry = known[static_cast<std::size_t>(mixed >> 54)];
    if (entry.seconds >= 0 && entry.distance == distanceBits && entry.speed == speedBits)
        return entry.seconds;
    const double seconds = SimulateFall(distance, terminalSpeed);
    entry = Entry{distanceBits, speedBits, seconds};
    return seconds;
}

bool CJump::SetWind(int direction, double speed)
{
    return Assign(m_wind, CJumpWind{direction, speed});
}

bool CJump::SetEquipmentByIndex(int index)
{
    return Assign(m_equipment, CJumpEquipmentRef{CJumpEquipmentRef::ByIndex, index, {}});
}

bool CJump::SetEquipmentByDescription(std::string description)
{
    if (description.empty())
        return ClearEquipment();
    return Assign(m_equipment, CJumpEquipmentRef{CJumpEquipmentRef::ByDescription, 0, std::move(description)});
}

bool CJump::ClearEquipment()
{
    return Assign(m_equipment, CJumpEquipmentRef{});
}

std::string CJump::GetEquipmentText(const CEquipmentList& rigs) const
{
    switch (m_equipment.mode) {
    case CJumpEquipmentRef::ByIndex:
        if (m_equipment.index >= 0 && static_cast<std::size_t>(m_equipment.index) < rigs.GetCount())
            return rigs.Get(static_cast<std::size_t>(m_equipment.index)).GetDisplayText();
        return {};
    case CJumpEquipmentRef::ByDescription:
        return m_equipment.description;
    default:
        return {};
    }
}

void CJump::AddImage(std::string name, std::string thumbnail)
{
    m_images.push_back(CJumpImage{std::move(name), std::move(thumbnail)});
}

std::string CJump::GetPictureName() const
{
    return m_images.empty() ? std::string() : m_images.front().name;
}

bool CJump::SetVideo(std::string name, double offset)
{
    return Assign(m_video, CJumpVideo{std::move(name), offset});
}

bool CJump::SetSignature(std::string signer, std::vector<CJumpSignature::Stroke> strokes)
{
    bool changed = false;
    if (m_signature.GetName() != signer) {
        m_signature.SetName(std::move(signer));
        changed = true;
    }
    if (m_signature.GetStrokes() != strokes) {
        m_signature.SetStrokes(std::move(strokes));
        changed = true;
    }
    return changed;
}

bool CJump::ApplyEdits(const CJumpEdits& edits, const CEquipmentList& rigs)
{
    bool changed = SetNumber(edits.number);
    changed |= SetTimestamp(edits.timestamp);
    changed |= SetFallrate(edits.fallrateKind, edits.exitHeight, edits.openHeight, edits.freefallTime, edits.maxSpeed,
                           edits.avgSpeed);
    changed |= SetWind(edits.windDirection, edits.windSpeed);
    const int rig = rigs.FindByDisplayText(edits.equipment);
    changed |= rig >= 0 ? SetEquipmentByIndex(rig) : SetEquipmentByDescription(edits.equipment);
    changed |= SetMalfunction(edits.malfunction);
    changed |= SetPlace(edits.place);
    changed |= SetAircraft(edits.aircraft);
    changed |= SetType(edits.type);
    changed |= SetLanding(edits.landing);
    changed |= SetSize(edits.size);
    changed |= SetPoints(edits.points);
    changed |= SetTeam(edits.team);
    if (!edits.keepNote)
        changed |= SetNoteText(edits.noteText);
    changed |= SetSignature(edits.signer, edits.strokes);
    if (m_signature.GetLicence() != edits.signerLicence) {
        m_signature.SetLicence(edits.signerLicence);
        changed = true;
    }
    return changed;
}

bool CJump::NoteHasFormat() const
{
    std::string text;
    if (m_note.empty())
        return false;
    if (!GetNoteText(text))
        return true;
    CJump plain(0, {}, {});
    plain.SetNoteText(text);
    return plain.m_note != m_note;
}

bool CJump::NoteIsMarkupBroken() const
{
    std::string ignored;
    return !m_note.empty() && !CNoteTextCollector::Collect(m_note, ignored);
}

bool CJump::GetNoteText(std::string& text) const
{
    text.clear();
    if (m_note.empty())
        return true;
    return CNoteTextCollector::Collect(m_note, text);
}

bool CJump::SetNoteText(std::string_view text)
{
    if (NoteIsMarkupBroken())
        return false;
    if (text.empty()) {
        if (m_note.empty())
            return false;
        m_note.clear();
        return true;
    }
    std::string current;
    GetNoteText(current);
    if (text == current)
        return false;
    // One paragraph per line, the lines put in as they are: no escaping, on purpose.
    std::string note;
    std::string_view rest = text;
    for (std::size_t i = rest.find("\r\n"); i != std::string_view::npos; i = rest.find("\r\n")) {
        note.append(kParagraphStart).append(rest.substr(0, i)).append(kParagraphEnd);
        rest.remove_prefix(i + 2);
    }
    if (!rest.empty())
        note.append(kParagraphStart).append(rest).append(kParagraphEnd);
    m_note = std::move(note);
    return true;
}

void CJump::Write(CXmlWriter& writer) const
{
    using enum JumpElement;
    const auto name = JumpElementName;
    writer.StartElement(name(Jump), {{"n", XmlIntToString(m_number, true)},
                                     {"ts", XmlZonedDateTimeToString(m_timestamp)},
                                     {"mod", XmlDateTimeToString(m_modified)}});
    writer.WriteElement(name(Place), m_place);
    writer.WriteElement(name(Aircraft), m_aircraft);
    writer.WriteElement(name(Type), m_type);

    const FallrateKind kind = m_fallrate.kind;
    writer.WriteElement(name(Fallrate), "", "name", FallrateKindName(kind));
    writer.WriteElement(name(ExitHeight), XmlIntToString(m_fallrate.exitHeight, false));
    writer.WriteElement(name(OpenHeight), XmlIntToString(m_fallrate.openHeight, false));
    if (kind == FallrateKind::Manual || kind == FallrateKind::Import)
        writer.WriteElement(name(FreefallTime), XmlIntToString(m_fallrate.freefallTime, false));
    if (kind == FallrateKind::Import)
        writer.WriteElement(name(CanopyTime), XmlIntToString(m_fallrate.canopyTime, false));
    if (kind == FallrateKind::Manual || kind == FallrateKind::Import) {
        writer.WriteElement(name(MaxSpeed), XmlDoubleToString(m_fallrate.maxSpeed, false));
        writer.WriteElement(name(AvgSpeed), XmlDoubleToString(m_fallrate.avgSpeed, false));
    }

    if (m_wind.IsSet())
        writer.WriteElement(name(Wind), "", "direction", XmlIntToString(m_wind.direction, true), "speed",
                            XmlDoubleToString(m_wind.speed, false));
    writer.WriteElement(name(Landing), m_landing);
    if (m_equipment.mode == CJumpEquipmentRef::ByIndex)
        writer.WriteElement(name(Equipment), "", "n", XmlIntToString(m_equipment.index, true));
    else if (m_equipment.mode == CJumpEquipmentRef::ByDescription)
        writer.WriteElement(name(Equipment), "", "description", m_equipment.description);
    writer.WriteElement(name(Size), XmlIntToString(m_size, false));
    writer.WriteElement(name(Points), XmlIntToString(m_points, false));
    writer.WriteElement(name(Team), m_team);
    writer.WriteElement(name(Malfunction), m_malfunction);
    for (const CJumpImage& image : m_images)
        writer.WriteElement(name(Image), "", "name", image.name, "thumbnail", image.thumbnail);
    if (m_video.IsSet())
        writer.WriteElement(name(Video), "", "name", m_video.name, "offset", XmlDoubleToString(m_video.offset, true));
    writer.WriteElement(name(Note), m_note);
    m_recording.Write(writer);
    m_signature.Write(writer);
    writer.EndElement();
}

bool CJump::OnOpenTag(CXmlParser& parser)
{
    switch (JumpElementOfTag(parser)) {
    case JumpElement::Fallrate: {
        std::string kindName;
        FallrateKind kind = m_fallrate.kind;
        if (parser.GetAttribute("name", kindName) && FallrateKindFromName(kindName, kind))
            m_fallrate.kind = kind;
        break;
    }
    case JumpElement::Wind: {
        CJumpWind wind;
        if (!parser.GetAttributeInt("direction", wind.direction, true) ||
            !parser.GetAttributeDouble("speed", wind.speed, true))
            return false;
        m_wind = wind;
        break;
    }
    case JumpElement::Equipment: {
        int index = 0;
        std::string description;
        if (parser.HasAttribute("n")) {
            if (parser.GetAttributeInt("n", index, true))
                m_equipment = CJumpEquipmentRef{CJumpEquipmentRef::ByIndex, index, {}};
        } else if (parser.GetAttribute("description", description) && !description.empty()) {
            m_equipment = CJumpEquipmentRef{CJumpEquipmentRef::ByDescription, 0, std::move(description)};
        }
        break;
    }
    case JumpElement::Image: {
        CJumpImage image;
        parser.GetAttribute("name", image.name);
        parser.GetAttribute("thumbnail", image.thumbnail);
        if (!image.name.empty() || !image.thumbnail.empty())
            m_images.push_back(std::move(image));
        break;
    }
    case JumpElement::Video: {
        CJumpVideo video;
        if (!parser.GetAttribute("name", video.name))
            return false;
        if (!parser.GetAttributeDouble("offset", video.offset, true))
            video.offset = 0.0;
        m_video = std::move(video);
        break;
    }
    case JumpElement::Profile: {
        std::string type;
        if (!parser.GetAttribute("type", type))
            return false;
        m_recording.SetKindFromName(type);
        parser.Delegate(&m_recording);
        break;
    }
    case JumpElement::Signature: {
        std::string signer;
        if (!parser.GetAttribute("name", signer))
            return false;
        m_signature.SetName(std::move(signer));
        parser.Delegate(&m_signature);
        break;
    }
    default:
        break;
    }
    return true;
}

bool CJump::OnCloseTag(CXmlParser& parser)
{
    const std::string_view raw = parser.GetElementTextRaw();
    std::string* text = nullptr;
    int* number = nullptr;
    double* real = nullptr;
    switch (JumpElementOfTag(parser)) {
    case JumpElement::Place:
        text = &m_place;
        break;
    case JumpElement::Aircraft:
        text = &m_aircraft;
        break;
    case JumpElement::Type:
        text = &m_type;
        break;
    case JumpElement::Landing:
        text = &m_landing;
        break;
    case JumpElement::Team:
        text = &m_team;
        break;
    case JumpElement::Malfunction:
        text = &m_malfunction;
        break;
    case JumpElement::Note:
        text = &m_note;
        break;
    case JumpElement::ExitHeight:
        number = &m_fallrate.exitHeight;
        break;
    case JumpElement::OpenHeight:
        number = &m_fallrate.openHeight;
        break;
    case JumpElement::FreefallTime:
        number = &m_fallrate.freefallTime;
        break;
    case JumpElement::CanopyTime:
        number = &m_fallrate.canopyTime;
        break;
    case JumpElement::Size:
        number = &m_size;
        break;
    case JumpElement::Points:
        number = &m_points;
        break;
    case JumpElement::MaxSpeed:
        real = &m_fallrate.maxSpeed;
        break;
    case JumpElement::AvgSpeed:
        real = &m_fallrate.avgSpeed;
        break;
    default:
        break;
    }

    if (text)
        parser.GetElementText(*text);
    else if (number)
        return XmlIntFromBytes(raw, *number, true);
    else if (real)
        return XmlDoubleFromBytes(raw, *real, true);
    return true;
}

bool operator==(const CJump& a, const CJump& b)
{
    return a.m_number == b.m_number && a.m_timestamp == b.m_timestamp && a.m_modified == b.m_modified &&
           a.m_place == b.m_place && a.m_aircraft == b.m_aircraft && a.m_type == b.m_type &&
           a.m_fallrate == b.m_fallrate && a.m_wind == b.m_wind && a.m_landing == b.m_landing &&
           a.m_equipment == b.m_equipment && a.m_size == b.m_size && a.m_points == b.m_points && a.m_team == b.m_team &&
           a.m_malfunction == b.m_malfunction && a.m_images == b.m_images && a.m_video == b.m_video &&
           a.m_note == b.m_note && a.m_recording == b.m_recording && a.m_signature == b.m_signature;
}
