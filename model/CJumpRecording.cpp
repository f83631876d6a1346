#include "model/CJumpRecording.h"

#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <cstddef>

CJumpRecording::CJumpRecording(const CJumpRecording& other)
    : CXmlHandler(other),
      m_kind(other.m_kind),
      m_qne(other.m_qne),
      m_annotations(other.m_annotations),
      m_winds(other.m_winds),
      m_apply(other.m_apply)
{
    m_samples.reserve(other.m_samples.size());
    for (const auto& sample : other.m_samples)
        m_samples.push_back(sample ? sample->Clone() : nullptr);
}

CJumpRecording& CJumpRecording::operator=(const CJumpRecording& other)
{
    if (this != &other) {
        CJumpRecording copy(other);
        *this = std::move(copy);
    }
    return *this;
}

void CJumpRecording::Clear()
{
    m_kind = None;
    m_qne = 0.0;
    m_samples.clear();
    m_annotations.clear();
    m_winds.clear();
    m_apply = false;
}

void CJumpRecording::SetKindFromName(std::string_view type)
{
    if (type == "baro")
        m_kind = Barometric;
    else if (type == "gps")
        m_kind = Satellite;
}

void CJumpRecording::AddSample(std::unique_ptr<CJumpSample> sample)
{
    m_samples.push_back(std::move(sample));
}

void CJumpRecording::Write(CXmlWriter& writer) const
{
    if (!IsPresent())
        return;
    writer.StartElement("profile", "type", m_kind == Barometric ? "baro" : "gps");
    writer.WriteElement("qne", XmlDoubleToString(m_qne, false));
    if (!m_samples.empty()) {
        writer.StartElement("waypoints", "size", XmlIntToString(static_cast<int>(m_samples.size()), true));
        for (const auto& sample : m_samples) {
            if (sample)
                sample->Write(writer);
        }
        writer.EndElement();
    }
    if (!m_annotations.empty()) {
        writer.StartElement("annotations", "size", XmlIntToString(static_cast<int>(m_annotations.size()), true));
        for (const CJumpAnnotation& note : m_annotations) {
            writer.WriteElement("annotation", "",
                                {{"a", XmlDoubleToString(note.altitude, true)},
                                 {"t", XmlDoubleToString(note.time, true)},
                                 {"txt", note.text}});
        }
        writer.EndElement();
    }
    if (!m_winds.empty()) {
        writer.StartElement("winds", {{"apply", m_apply ? "true" : "false"},
                                      {"size", XmlIntToString(static_cast<int>(m_winds.size()), true)}});
        for (const CRecordingWind& wind : m_winds) {
            writer.WriteElement("wind", "",
                                {{"direction", XmlIntToString(wind.direction, true)},
                                 {"speed", XmlDoubleToString(wind.speed, false)},
                                 {"altitude", XmlIntToString(wind.altitude, true)}});
        }
        writer.EndElement();
    }
    writer.EndElement();
}

bool CJumpRecording::OnOpenTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    if (name == "wpt") {
        double altitude = 0.0;
        double time = 0.0;
        if (!parser.GetAttributeDouble("a", altitude, true) || !parser.GetAttributeDouble("t", time, true))
            return false;
        if (m_kind == Barometric)
            m_samples.push_back(std::make_unique<CBaroSample>(altitude, time));
        else if (m_kind == Satellite)
            m_samples.push_back(std::make_unique<CGpsSample>(altitude, time));
        else
            return false;   // a waypoint needs to know what kind of sample it is
        return true;
    }
    if (name == "annotation") {
        CJumpAnnotation note;
        if (!parser.GetAttributeDouble("a", note.altitude, true) || !parser.GetAttributeDouble("t", note.time, true) ||
            !parser.GetAttribute("txt", note.text))
            return false;
        m_annotations.push_back(std::move(note));
        return true;
    }
    if (name == "winds") {
        bool apply = false;
        if (parser.GetAttributeBool("apply", apply))
            m_apply = apply;
        return true;
    }
    if (name == "wind") {
        CRecordingWind wind;
        if (!parser.GetAttributeInt("direction", wind.direction, true) ||
            !parser.GetAttributeDouble("speed", wind.speed, true) ||
            !parser.GetAttributeInt("altitude", wind.altitude, true))
            return false;
        m_winds.push_back(wind);
        return true;
    }
    // "waypoints", "annotations" and their "size" are not needed: records come as they come.
    return true;
}

bool CJumpRecording::OnCloseTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    double value = 0.0;
    if (name == "qne") {
        if (XmlDoubleFromBytes(parser.GetElementTextRaw(), value, true))
            m_qne = value;
    } else if (name == "lat" || name == "lon") {
        // Positions belong to satellite samples only; in a barometric recording they are ignored.
        if (m_kind == Satellite && !m_samples.empty() && XmlDoubleFromBytes(parser.GetElementTextRaw(), value, true)) {
            if (auto* gps = dynamic_cast<CGpsSample*>(m_samples.back().get())) {
                if (name == "lat")
                    gps->SetLatitude(value);
                else
                    gps->SetLongitude(value);
            }
        }
    }
    return true;
}

bool operator==(const CJumpRecording& a, const CJumpRecording& b)
{
    if (a.m_kind != b.m_kind || a.m_qne != b.m_qne || a.m_apply != b.m_apply ||
        a.m_annotations != b.m_annotations || a.m_winds != b.m_winds || a.m_samples.size() != b.m_samples.size())
        return false;
    for (std::size_t i = 0; i < a.m_samples.size(); ++i) {
        const CJumpSample* x = a.m_samples[i].get();
        const CJumpSample* y = b.m_samples[i].get();
        if ((x == nullptr) != (y == nullptr) || (x && !x->Equals(*y)))
            return false;
    }
    return true;
}
