#pragma once

#include "model/CPoint.h"
#include "xml/CXmlHandler.h"

#include <string>
#include <vector>

class CXmlWriter;

// The handwritten signature of the witness of a jump: the signer's name, the signer's licence or
// rating number, an id, and strokes of points. Element "signature". This program keeps its seal
// in the id (model/CJumpSeal.h); an id written by another program is kept as it is.
class CJumpSignature : public CXmlHandler
{
public:
    using Stroke = std::vector<CPoint>;

    // The space of the points: 240x100 logical points (the handheld's signature area in its own
    // pixels, so signatures already in logbooks keep their place), x to the right and y down.
    static constexpr int kLogicalWidth = 240;
    static constexpr int kLogicalHeight = 100;

    const std::string& GetName() const { return m_name; }
    void SetName(std::string name) { m_name = std::move(name); }
    // The signer's licence or rating number; empty when not given.
    const std::string& GetLicence() const { return m_licence; }
    void SetLicence(std::string licence) { m_licence = std::move(licence); }
    const std::string& GetId() const { return m_id; }
    void SetId(std::string id) { m_id = std::move(id); }
    const std::vector<Stroke>& GetStrokes() const { return m_strokes; }
    void SetStrokes(std::vector<Stroke> strokes) { m_strokes = std::move(strokes); }

    // Empty when there is neither a signer nor a stroke; an empty signature is not written.
    bool IsEmpty() const { return m_name.empty() && m_strokes.empty(); }
    // Removes signer, licence, id and strokes.
    void Clear();

    // Writes "signature" with its children; nothing when empty.
    void Write(CXmlWriter& writer) const;

    // Reader of the children of "signature" (the jump reads "name" and delegates).
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    friend bool operator==(const CJumpSignature& a, const CJumpSignature& b)
    {
        return a.m_name == b.m_name && a.m_licence == b.m_licence && a.m_id == b.m_id && a.m_strokes == b.m_strokes;
    }

private:
    // Reads a point's x and y and adds it to the last stroke.
    bool AddPoint(const CXmlParser& parser);

    std::string m_name;
    std::string m_licence;
    std::string m_id;
    std::vector<Stroke> m_strokes;
};
