#include "model/CJumpRecording.h"

#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "model/JumpElements.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <cstddef>
#include <typeinfo>

void CJumpRecording::Clear()
{
    m_kind = None;
    m_qne = 0.0;
    m_samples.Clear();
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
    if (sample)
        m_samples.Add(*sample);
}

void CJumpRecording::Write(CXmlWriter& writer) const
{
    if (!IsPresent())
        return;
    writer.StartElement(JumpElementName(JumpElement::Profile), "type", m_kind == Barometric ? "baro" : "gps");
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
            m_samples.Emplace<CBaroSample>(altitude, time);
        else if (m_kind == Satellite)
            m_samples.Emplace<CGpsSample>(altitude, time);
        else
            return false; // a waypoint needs to know what kind of sample it is
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
        CJumpSample* last = m_samples.Last();
        if (m_kind == Satellite && last != nullptr && typeid(*last) == typeid(CGpsSample) &&
            XmlDoubleFromBytes(parser.GetElementTextRaw(), value, true)) {
            auto* gps = static_cast<CGpsSample*>(last);
            if (name == "lat")
                gps->SetLatitude(value);
            else
                gps->SetLongitude(value);
        }
    } else if (name == JumpElementName(JumpElement::Profile)) {
        // The samples were collected in a doubling block; what is left over goes back now.
        m_samples.ShrinkToFit();
    }
    return true;
}

bool operator==(const CJumpRecording& a, const CJumpRecording& b)
{
    if (a.m_kind != b.m_kind || a.m_qne != b.m_qne || a.m_apply != b.m_apply || a.m_annotations != b.m_annotations ||
        a.m_winds != b.m_winds || a.m_samples.size() != b.m_samples.size())
        return false;
    for (std::size_t i = 0; i < a.m_samples.size(); ++i) {
        if (!a.m_samples[i]->Equals(*b.m_samples[i]))
            return false;
    }
    return true;
}
