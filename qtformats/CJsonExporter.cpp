#include "qtformats/CJsonExporter.h"

#include "bridge/CoreText.h"
#include "document/CLogbookDoc.h"
#include "formats/CTextFormat.h"
#include "model/CGpsSample.h"
#include "model/JumpElements.h"
#include "xml/XmlValues.h"

#include <QString>

#include <array>
#include <string_view>

namespace {

// The core's UTF-8 text as a QString.
constexpr auto& Text = CoreText::ToQt;

QJsonArray TextList(const std::vector<std::string>& list)
{
    QJsonArray array;
    for (const std::string& entry : list)
        array.append(Text(entry));
    return array;
}

QJsonObject FromPairs(std::initializer_list<std::pair<std::string_view, QJsonValue>> pairs)
{
    QJsonObject object;
    for (const auto& [key, value] : pairs)
        object.insert(QLatin1String(key.data(), static_cast<qsizetype>(key.size())), value);
    return object;
}

// A jump's child as the logbook file names it.
std::string_view Key(JumpElement element)
{
    return JumpElementName(element);
}

} // namespace

QJsonObject CJsonExporter::Export(const CLogbookDoc& doc)
{
    QJsonArray jumps;
    for (const auto& jump : doc.GetJumps())
        jumps.append(Jump(*jump, doc.GetSettings()));
    return FromPairs({{"version", Text(doc.GetFileVersion())},
                      {"settings", Settings(doc.GetSettings())},
                      {"jumps", jumps},
                      {"summary", Summary(doc)}});
}

QJsonObject CJsonExporter::Export(const CLogbookDoc& doc, std::span<const std::size_t> jumps)
{
    QJsonArray chosen;
    for (const std::size_t position : jumps)
        if (position < doc.GetJumpCount())
            chosen.append(Jump(doc.GetJump(position), doc.GetSettings()));
    QJsonObject root = Export(doc);
    root.insert(QStringLiteral("jumps"), chosen);
    return root;
}

QJsonObject CJsonExporter::Settings(const CLogbookSettings& settings)
{
    const CMembership& membership = settings.GetMembership();
    QJsonArray fallrates;
    for (FallrateKind kind : {FallrateKind::Standard, FallrateKind::Vertical, FallrateKind::Custom})
        fallrates.append(FromPairs({{"name", Text(FallrateKindName(kind))}, {"speed", settings.FallrateSpeed(kind)}}));
    return FromPairs({
        {"owner", Text(settings.GetOwnerName())},
        {"membership", FromPairs({{"name", Text(membership.GetMemberNumber())},
                                  {"expirationDate", Text(XmlDateTimeToString(membership.GetExpirationDate()))},
                                  {"alarmDays", membership.GetAlarmDays()}})},
        {"licenses", TextList(settings.GetLicenses())},
        {"ratings", TextList(settings.GetRatings())},
        {"awards", TextList(settings.GetAwards())},
        {"equipments", Equipments(settings.GetEquipmentList())},
        {"fallrates", fallrates},
        {"keywords", FromPairs({{"videoJump", Text(settings.GetKeyword(CLogbookSettings::VideoJump))},
                                {"nightJump", Text(settings.GetKeyword(CLogbookSettings::NightJump))},
                                {"coachJump", Text(settings.GetKeyword(CLogbookSettings::CoachJump))},
                                {"reserveActivated", Text(settings.GetKeyword(CLogbookSettings::ReserveActivated))}})},
        {"previousJumps", settings.GetPreviousJumps()},
        {"previousDelay", settings.GetPreviousDelay()},
    });
}

QJsonObject CJsonExporter::Equipments(const CEquipmentList& rigs)
{
    QJsonArray list;
    for (std::size_t i = 0; i < rigs.GetCount(); ++i) {
        const CEquipment& rig = rigs.Get(i);
        list.append(FromPairs({
            {"n", rig.GetNumber()},
            {"active", rig.IsActive()},
            {"previousJumps", rig.GetPreviousJumps()},
            {"harness", Text(rig.GetHarness())},
            {"harnessSerial", Text(rig.GetHarnessSerial())},
            {"mainCanopy", Text(rig.GetMainCanopy())},
            {"mainSize", rig.GetMainSize()},
            {"mainSerial", Text(rig.GetMainSerial())},
            {"reserveCanopy", Text(rig.GetReserveCanopy())},
            {"reserveSize", rig.GetReserveSize()},
            {"reserveSerial", Text(rig.GetReserveSerial())},
            {"aad", Text(rig.GetAad())},
            {"aadSerial", Text(rig.GetAadSerial())},
            {"inspectionDate", Text(XmlDateTimeToString(rig.GetInspectionDate()))},
        }));
    }
    // The alarm days are -1 while the alarm is off; the cycle is kept either way.
    return FromPairs(
        {{"inspectionCycle", rigs.GetInspectionCycle()}, {"alarmDays", rigs.GetAlarmDays()}, {"equipment", list}});
}

QJsonObject CJsonExporter::Jump(const CJump& jump, const CLogbookSettings& settings)
{
    const CJumpFallrate& fallrate = jump.GetFallrate();
    const CJumpEquipmentRef& equipment = jump.GetEquipmentRef();
    QJsonArray images;
    for (const CJumpImage& image : jump.GetImages())
        images.append(FromPairs({{"name", Text(image.name)}, {"thumbnail", Text(image.thumbnail)}}));
    std::string noteText;
    jump.GetNoteText(noteText); // a note whose markup is broken has no plain text

    return FromPairs({
        {"n", jump.GetNumber()},
        {"ts", Text(XmlZonedDateTimeToString(jump.GetTimestamp()))},
        {"mod", Text(XmlDateTimeToString(jump.GetModified()))},
        {Key(JumpElement::Place), Text(jump.GetPlace())},
        {Key(JumpElement::Aircraft), Text(jump.GetAircraft())},
        {Key(JumpElement::Type), Text(jump.GetType())},
        {Key(JumpElement::Fallrate), Text(FallrateKindName(fallrate.kind))},
        {Key(JumpElement::ExitHeight), fallrate.exitHeight},
        {Key(JumpElement::OpenHeight), fallrate.openHeight},
        {Key(JumpElement::FreefallTime), fallrate.freefallTime},
        {Key(JumpElement::CanopyTime), fallrate.canopyTime},
        {Key(JumpElement::MaxSpeed), fallrate.maxSpeed},
        {Key(JumpElement::AvgSpeed), fallrate.avgSpeed},
        {Key(JumpElement::Wind), FromPairs({{"direction", jump.GetWind().direction}, {"speed", jump.GetWind().speed}})},
        {Key(JumpElement::Landing), Text(jump.GetLanding())},
        // "n" is the position in the rig list when the jump names a rig by number, else null.
        {Key(JumpElement::Equipment),
         FromPairs({{"n", equipment.mode == CJumpEquipmentRef::ByIndex ? QJsonValue(equipment.index) : QJsonValue()},
                    {"description", Text(equipment.mode == CJumpEquipmentRef::ByDescription ? equipment.description
                                                                                            : std::string())}})},
        {Key(JumpElement::Size), jump.GetSize()},
        {Key(JumpElement::Points), jump.GetPoints()},
        {Key(JumpElement::Team), Text(jump.GetTeam())},
        {Key(JumpElement::Malfunction), Text(jump.GetMalfunction())},
        {Key(JumpElement::Image), images},
        {Key(JumpElement::Video),
         FromPairs({{"name", Text(jump.GetVideo().name)}, {"offset", jump.GetVideo().offset}})},
        {Key(JumpElement::Note), Text(jump.GetNote())},
        {Key(JumpElement::Profile), Profile(jump.GetRecording())},
        {Key(JumpElement::Signature), Signature(jump.GetSignature())},
        {"freefallTime", jump.FreefallTime(settings)},
        {"noteText", Text(noteText)},
    });
}

QJsonObject CJsonExporter::Profile(const CJumpRecording& recording)
{
    const int kind = recording.GetKind();
    const char* type = kind == CJumpRecording::Barometric ? "baro" : kind == CJumpRecording::Satellite ? "gps" : "";
    QJsonArray waypoints;
    for (const auto& sample : recording.GetSamples()) {
        if (!sample)
            continue;
        QJsonObject wpt = FromPairs({{"a", sample->GetAltitude()}, {"t", sample->GetTime()}});
        // Each sample carries what its own type writes: satellite samples add their position.
        if (const auto* gps = dynamic_cast<const CGpsSample*>(sample.get())) {
            wpt.insert(QStringLiteral("lat"), gps->GetLatitude());
            wpt.insert(QStringLiteral("lon"), gps->GetLongitude());
        }
        waypoints.append(wpt);
    }
    QJsonArray annotations;
    for (const CJumpAnnotation& annotation : recording.GetAnnotations())
        annotations.append(
            FromPairs({{"a", annotation.altitude}, {"t", annotation.time}, {"txt", Text(annotation.text)}}));
    QJsonArray winds;
    for (const CRecordingWind& wind : recording.GetWinds())
        winds.append(FromPairs({{"direction", wind.direction}, {"speed", wind.speed}, {"altitude", wind.altitude}}));
    return FromPairs({{"type", QString::fromLatin1(type)},
                      {"qne", recording.GetQne()},
                      {"waypoints", waypoints},
                      {"annotations", annotations},
                      {"winds", FromPairs({{"apply", recording.GetApply()}, {"wind", winds}})}});
}

QJsonObject CJsonExporter::Signature(const CJumpSignature& signature)
{
    QJsonArray lines;
    for (const CJumpSignature::Stroke& stroke : signature.GetStrokes()) {
        QJsonArray line;
        for (const CPoint& point : stroke)
            line.append(FromPairs({{"x", point.x}, {"y", point.y}}));
        lines.append(line);
    }
    return FromPairs({{"name", Text(signature.GetName())}, {"id", Text(signature.GetId())}, {"lines", lines}});
}

QJsonObject CJsonExporter::Summary(const CLogbookDoc& doc)
{
    const CLogbookSummary summary = doc.GetSummary();
    return FromPairs({{"numberOfJumps", summary.numberOfJumps},
                      {"freefallTime", static_cast<qint64>(summary.freefallSeconds)},
                      {"freefallDistance", summary.freefallMetres},
                      {"canopyDistance", summary.canopyMetres},
                      {"lastJump", Text(CTextFormat::IsoDate(summary.lastJump))}});
}
