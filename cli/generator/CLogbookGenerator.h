#pragma once

#include "cli/generator/CGeneratorOptions.h"
#include "cli/generator/CGeneratorRandom.h"
#include "xml/CDateTime.h"

#include <memory>
#include <string>
#include <vector>

class CJump;
class CLogbookDoc;
class CLogbookSettings;
struct CDropZoneInfo;

// Fills a logbook document with a realistic synthetic logbook: the owner's profile, rigs with
// inspection dates and alarm, a custom fall rate, and jumps with every field in use (all fall-rate
// kinds, winds, rigs by number and by text, pictures, videos, notes with umlauts over several
// lines, signatures with strokes, GPS and barometric recordings). The same options always give the
// same logbook; the last jump always falls on LastJumpDay().
class CLogbookGenerator
{
public:
    // A generator for these options (counts out of range are clamped).
    explicit CLogbookGenerator(const CGeneratorOptions& options);

    // Clears doc and fills it; the document is left unmodified and without a path.
    void Fill(CLogbookDoc& doc);

    // The day of the newest jump of every generated logbook.
    static CDateTime LastJumpDay();

private:
    // A day at a drop zone with the number of jumps made there.
    struct JumpDay
    {
        int64_t dayNumber = 0;
        int jumps = 0;
        std::size_t zone = 0;
    };
    // What kind of recording a jump carries.
    enum class Recording : char
    {
        None,
        Gps,
        Barometric
    };

    void FillSettings(CLogbookSettings& settings);
    std::vector<JumpDay> PlanDays();
    std::vector<Recording> PlanRecordings() const;
    std::unique_ptr<CJump> MakeJump(int number, const CZonedDateTime& when, const CDropZoneInfo& zone,
                                    const std::string& aircraft, Recording recording, bool mayBeSigned);
    void FillFallrate(CJump& jump, const CDropZoneInfo& zone, Recording recording);
    void FillDetails(CJump& jump);
    void FillMedia(CJump& jump);
    void FillSignature(CJump& jump);

    // The style of the jump being made, which decides type, fall rate and formation data.
    enum class Style : char
    {
        Belly,
        Vertical,
        Slow
    };

    CGeneratorOptions m_options;
    CGeneratorRandom m_random;
    double m_customSpeed = 0.0;
    int m_rigCount = 0;
    int m_index = 0; // position of the jump being made
    Style m_style = Style::Belly;
};
