#include "formats/CGpxWriter.h"

#include "model/CGpsSample.h"
#include "model/CJump.h"
#include "tracks/TrackTime.h"
#include "xml/CXmlStringOutput.h"
#include "xml/CXmlWriter.h"

#include <charconv>
#include <cmath>
#include <memory>
#include <string_view>

namespace {

constexpr std::string_view kNamespace = "http://www.topografix.com/GPX/1/1";
constexpr std::string_view kCreator = "Tervola Pocket";

// The shortest text that reads back as the value.
std::string_view FormatNumber(double value, char (&buffer)[32])
{
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return ec == std::errc() ? std::string_view(buffer, static_cast<std::size_t>(end - buffer)) : std::string_view("0");
}

} // namespace

bool CGpxWriter::Write(const CJump& jump, std::string& gpx, std::string& message)
{
    const std::string name = "Jump " + std::to_string(jump.GetNumber());
    const CJumpRecording& recording = jump.GetRecording();
    bool hasPositions = false;
    if (recording.GetKind() == CJumpRecording::Satellite) {
        for (const auto& sample : recording.GetSamples())
            hasPositions = hasPositions || dynamic_cast<const CGpsSample*>(sample.get()) != nullptr;
    }
    if (!hasPositions) {
        message = name + " has no satellite recording.";
        return false;
    }
    double exitUtc = 0.0;
    if (!UtcFromZoned(jump.GetTimestamp(), exitUtc)) {
        message = name + " has no valid date and time.";
        return false;
    }

    auto output = std::make_unique<CXmlStringOutput>();
    const auto bytes = output->Bytes();
    CXmlWriter writer(Utf8, XmlPlainFile, 0);
    writer.Open(std::move(output));
    writer.StartElement("gpx", {{"version", "1.1"}, {"creator", kCreator}, {"xmlns", kNamespace}});
    writer.StartElement("trk");
    writer.WriteElement("name", name);
    if (!jump.GetPlace().empty())
        writer.WriteElement("desc", jump.GetPlace());
    writer.StartElement("trkseg");
    char lat[32], lon[32], ele[32], time[kIso8601Chars];
    for (const auto& sample : recording.GetSamples()) {
        const auto* fix = dynamic_cast<const CGpsSample*>(sample.get());
        if (fix == nullptr)
            continue;
        writer.StartElement(
            "trkpt", {{"lat", FormatNumber(fix->GetLatitude(), lat)}, {"lon", FormatNumber(fix->GetLongitude(), lon)}});
        writer.WriteElement("ele", FormatNumber(std::round(fix->GetAltitude() * 100.0) / 100.0, ele));
        writer.WriteElement("time", FormatUtcIso8601(exitUtc + fix->GetTime(), time));
        writer.EndElement();
    }
    writer.EndElement();
    writer.EndElement();
    writer.EndElement();
    if (!writer.Close()) {
        message = "The GPX text of " + name + " could not be written.";
        return false;
    }
    gpx = *bytes;
    message.clear();
    return true;
}
