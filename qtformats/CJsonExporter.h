#pragma once

#include <QJsonArray>
#include <QJsonObject>

#include <cstddef>
#include <span>

class CEquipmentList;
class CJump;
class CJumpRecording;
class CJumpSignature;
class CLogbookDoc;
class CLogbookSettings;

// The whole logbook as one JSON object: "version", "settings", "jumps" (list order) and
// "summary". Keys are the file format's element and attribute names; list containers become
// arrays; numbers stay in stored units; date-times are the file's text for them ("" when not
// valid); absent elements appear with their default value. Each jump adds "freefallTime" (the
// computed freefall seconds) and "noteText" (the note as plain text).
class CJsonExporter
{
public:
    // The document as a JSON object.
    static QJsonObject Export(const CLogbookDoc& doc);
    // The same with only the jumps at these document positions, in the order given; settings and
    // summary stay those of the whole logbook.
    static QJsonObject Export(const CLogbookDoc& doc, std::span<const std::size_t> jumps);

    // The parts, for callers that need one of them.
    static QJsonObject Settings(const CLogbookSettings& settings);
    static QJsonObject Jump(const CJump& jump, const CLogbookSettings& settings);
    static QJsonObject Summary(const CLogbookDoc& doc);

private:
    static QJsonObject Equipments(const CEquipmentList& rigs);
    static QJsonObject Profile(const CJumpRecording& recording);
    static QJsonObject Signature(const CJumpSignature& signature);
};
