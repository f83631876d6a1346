#include "formats/CGpxWriter.h"
#include "model/CGpsSample.h"
#include "model/CJump.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

// The escaping of the texts is the XML writer's; here the elements and the UTC times.
TEST(GpxWriter, WritesEachSampleAtTheJumpsUtcTime)
{
    const struct
    {
        const char* name;
        CZonedDateTime ts;
        double t;
        const char* utc;
    } cases[] = {
        {"east of UTC", {CDateTime(2024, 4, 20, 7, 20, 0, 250), 180}, -1.5, "2024-04-20T04:19:58.750Z"},
        {"west of UTC", {CDateTime(2024, 4, 20, 7, 20, 0), -330}, 2.25, "2024-04-20T12:50:02.250Z"},
        {"over midnight", {CDateTime(2024, 1, 1, 1, 0, 0), 120}, -3600.5, "2023-12-31T21:59:59.500Z"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CJump jump(42, c.ts, CDateTime());
        jump.SetPlace("Utti");
        jump.Recording().SetKind(CJumpRecording::Satellite);
        jump.Recording().AddSample(std::make_unique<CGpsSample>(3012.3, c.t, 61.1234567, 24.5));
        jump.Recording().AddSample(std::make_unique<CGpsSample>(0.0, c.t + 0.2, 61.12346, 24.5));
        std::string gpx, message;
        ASSERT_TRUE(CGpxWriter::Write(jump, gpx, message)) << message;
        for (const char* element : {"creator=\"Tervola Pocket\"", "<name>Jump 42</name>", "<desc>Utti</desc>",
                                    "<trkpt lat=\"61.1234567\" lon=\"24.5\">", "<ele>3012.3</ele>", "lat=\"61.12346\""})
            EXPECT_NE(gpx.find(element), std::string::npos) << element << " in " << gpx;
        EXPECT_NE(gpx.find(std::string("<time>") + c.utc + "</time>"), std::string::npos) << gpx;
    }
    CJump none(7, cases[0].ts, CDateTime());
    std::string gpx, message;
    EXPECT_FALSE(CGpxWriter::Write(none, gpx, message));
    EXPECT_EQ(message, "Jump 7 has no satellite recording.");
    none.Recording().SetKind(CJumpRecording::Satellite);
    none.Recording().AddSample(std::make_unique<CGpsSample>(1.0, 0.0, 61.0, 24.0));
    none.SetTimestamp(CZonedDateTime());
    EXPECT_FALSE(CGpxWriter::Write(none, gpx, message));
    EXPECT_EQ(message, "Jump 7 has no valid date and time.");
}

} // namespace
