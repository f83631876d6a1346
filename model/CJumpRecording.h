#pragma once

#include "model/CJumpAnnotation.h"
#include "model/CJumpSample.h"
#include "model/CRecordingWind.h"
#include "model/CSampleList.h"
#include "xml/CXmlHandler.h"

#include <memory>
#include <string_view>
#include <vector>

class CXmlWriter;

// A flight recording imported from an altimeter or a GPS device. The handheld keeps and writes
// it back but never computes with it. Element "profile".
class CJumpRecording : public CXmlHandler
{
public:
    enum Kind
    {
        None = 0,
        Barometric = 1,
        Satellite = 2
    };

    CJumpRecording() = default;
    CJumpRecording(const CJumpRecording& other) = default;
    CJumpRecording& operator=(const CJumpRecording& other) = default;
    CJumpRecording(CJumpRecording&&) noexcept = default;
    CJumpRecording& operator=(CJumpRecording&&) noexcept = default;
    ~CJumpRecording() override = default;

    // Removes every sample, annotation and wind; kind none, qne 0, apply off.
    void Clear();
    // True when the recording is written (kind barometric or satellite).
    bool IsPresent() const { return m_kind == Barometric || m_kind == Satellite; }

    int GetKind() const { return m_kind; }
    void SetKind(int kind) { m_kind = kind; }
    // Sets the kind from the "type" attribute: "baro" or "gps"; any other text changes nothing.
    void SetKindFromName(std::string_view type);
    double GetQne() const { return m_qne; }
    void SetQne(double qne) { m_qne = qne; }
    bool GetApply() const { return m_apply; }
    void SetApply(bool apply) { m_apply = apply; }

    // The samples in order; each element reads like an owning pointer (get, ->, test for null).
    const CSampleList& GetSamples() const { return m_samples; }
    // Appends a copy of the sample, of its own type; a null sample adds nothing.
    void AddSample(std::unique_ptr<CJumpSample> sample);
    const std::vector<CJumpAnnotation>& GetAnnotations() const { return m_annotations; }
    void AddAnnotation(CJumpAnnotation annotation) { m_annotations.push_back(std::move(annotation)); }
    const std::vector<CRecordingWind>& GetWinds() const { return m_winds; }
    void AddWind(CRecordingWind wind) { m_winds.push_back(wind); }

    // Writes "profile" with its children; nothing unless the kind is barometric or satellite.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "profile" (the jump reads "type" and delegates).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    friend bool operator==(const CJumpRecording& a, const CJumpRecording& b);

private:
    int m_kind = None;
    double m_qne = 0.0;
    CSampleList m_samples;
    std::vector<CJumpAnnotation> m_annotations;
    std::vector<CRecordingWind> m_winds;
    bool m_apply = false;
};
