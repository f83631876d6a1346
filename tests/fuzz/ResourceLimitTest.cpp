#include "CAllocationMeter.h"
#include "FuzzFiles.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"
#include "tests/common/CScratchFolder.h"
#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <ostream>
#include <vector>

namespace {

constexpr std::size_t kMiB = 1024 * 1024;
constexpr std::string_view kRootStart = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl version=\"1.2\"><log>";
constexpr std::string_view kJumpStart = "<jump n=\"1\" ts=\"2008-05-17T14:03:00Z\" mod=\"2008-05-17T14:03:00Z\">";

std::string ParserError(const std::string& detail)
{
    return StringTable::Format(StringTable::IDS_PARSER_ERROR, detail);
}

// A piece of a hostile file: text as it is, or text repeated to fill that many MiB.
struct Segment
{
    std::string text;
    std::size_t mebibytes = 0;
};

// A hostile file made of segments. A gzip file is written as a series of gzip members (which
// readers join into one stream), each repeated megabyte compressed once, so that a gigabyte of
// XML costs a megabyte of disk and a moment to make; a plain file holds every byte.
struct HostileFile
{
    bool gzip;
    std::vector<Segment> segments;

    std::string WriteTo(const CScratchFolder& folder) const
    {
        const std::string path = folder / (gzip ? "hostile.tvz" : "hostile.tvl");
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (file == nullptr)
            return {};
        for (const Segment& segment : segments) {
            std::string bytes = segment.text;
            if (segment.mebibytes > 0)
                while (bytes.size() + segment.text.size() <= kMiB)
                    bytes += segment.text;
            if (gzip)
                bytes = GzipBytes(bytes, 9);
            for (std::size_t i = 0; i < std::max<std::size_t>(segment.mebibytes, 1); ++i)
                std::fwrite(bytes.data(), 1, bytes.size(), file);
        }
        return std::fclose(file) == 0 ? path : std::string();
    }
};

struct LimitCase
{
    const char* name;
    HostileFile file;
    std::string message;
};

void PrintTo(const LimitCase& c, std::ostream* out)
{
    *out << c.name;
}

// The start of a logbook up to the inside of its first jump, then more.
Segment Jump(std::string_view inner)
{
    return {std::string(kRootStart) + std::string(kJumpStart) + std::string(inner)};
}

const Segment kJumpEnd{"</jump></log></tvl>"};

class ResourceLimits : public testing::TestWithParam<LimitCase>
{
};

// Each limit ends the load with its message, within seconds and bounded memory, and leaves an
// empty document.
TEST_P(ResourceLimits, HostileFileEndsInAnErrorQuickly)
{
    const LimitCase& c = GetParam();
    CScratchFolder folder("limits");
    const std::string path = c.file.WriteTo(folder);
    ASSERT_FALSE(path.empty());

    CLogbookDoc doc;
    CAllocationMeter::Start();
    const auto start = std::chrono::steady_clock::now();
    const CLoadResult result = doc.Load(path);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const std::size_t peak = CAllocationMeter::PeakSinceStart();

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, c.message);
#ifdef TERVOLA_SANITIZED
    constexpr double kSecondsAllowed = 120.0; // instrumented code runs several times slower
#else
    constexpr double kSecondsAllowed = 30.0;
#endif
    EXPECT_LT(seconds, kSecondsAllowed);
    // The reader's own buffers: the carry, a token, the start tag's attributes or the open
    // elements' names, the decoded text; each at most a few times the token limit.
    EXPECT_LT(peak, 8 * CXmlParser::kDefaultMaxTokenBytes) << peak / kMiB << " MiB";
    EXPECT_EQ(doc.GetJumpCount(), 0u);
    EXPECT_FALSE(doc.HasPath());
}

const std::string kToken = ParserError("token longer than 67108864 bytes");

// 65 distinct attribute names, one more than a start tag may have.
std::string ManyAttributes()
{
    std::string attributes;
    for (int i = 0; i <= 64; ++i)
        attributes += " a" + std::to_string(i) + "=\"1\"";
    return attributes;
}

INSTANTIATE_TEST_SUITE_P(
    Files, ResourceLimits,
    testing::Values(LimitCase{"GigabyteOfText", {true, {Jump("<note>"), {"x", 1024}, {"</note>"}, kJumpEnd}}, kToken},
                    LimitCase{"GigabyteAttributeValue",
                              {true, {{std::string(kRootStart) + "<jump n=\""}, {"1", 1024}, {"\">"}, kJumpEnd}},
                              kToken},
                    LimitCase{"GigabyteElementName", {true, {Jump("<"), {"n", 1024}, {"/>"}, kJumpEnd}}, kToken},
                    LimitCase{"GigabyteOfBlanksBetweenTags", {true, {Jump(""), {" ", 1024}, kJumpEnd}}, kToken},
                    LimitCase{"MillionNestedElements",
                              {false, {Jump(""), {"<a>", 3}, kJumpEnd}},
                              ParserError("element nesting deeper than 256 levels")},
                    LimitCase{"ManyAttributesInOneTag",
                              {false, {Jump("<image" + ManyAttributes()), {" z=\"1\"", 16}, {"/>"}, kJumpEnd}},
                              ParserError("more than 64 attributes in one start tag")},
                    LimitCase{"StartTagOfThreeLargeAttributes",
                              {true,
                               {Jump("<image name=\""),
                                {"n", 60},
                                {"\" thumbnail=\""},
                                {"t", 60},
                                {"\" x=\""},
                                {"x", 60},
                                {"\"/>"},
                                kJumpEnd}},
                              ParserError("start tag longer than 134217728 bytes")},
                    LimitCase{"OpenElementsWithLargeNames",
                              {true, {Jump("<"), {"a", 60}, {"><"}, {"b", 60}, {"><"}, {"c", 60}, {">"}, kJumpEnd}},
                              ParserError("names of the open elements longer than 134217728 bytes")},
                    LimitCase{"GigabytesOfShortLines",
                              {true, {Jump("<note>"), {std::string(99, 'x') + "\n", 2056}, {"</note>"}, kJumpEnd}},
                              ParserError("input longer than 2147483648 bytes")},
                    LimitCase{"GigabytesOfElements",
                              {true, {Jump(""), {"<dz>" + std::string(90, 'z') + "</dz>", 2056}, kJumpEnd}},
                              ParserError("input longer than 2147483648 bytes")}),
    [](const testing::TestParamInfo<LimitCase>& p) { return std::string(p.param.name); });

// Takes every event and keeps nothing, so that only the parser's own memory is measured.
class IgnoringHandler : public CXmlHandler
{
public:
    bool OnOpenTag(CXmlParser&) override { return true; }
    bool OnCloseTag(CXmlParser&) override { return true; }
};

// The parser keeps spare attribute slots and stack entries for their buffers; elements that
// each fill a different spare with a token of the largest size must not make them add up.
TEST(BufferReuse, SpareBuffersDoNotAddUp)
{
    constexpr std::size_t kTokenBytes = kMiB;
    const std::function<std::string(std::size_t)> elements[] = {
        // Element i has i small attributes, then one of the largest size in slot i.
        [](std::size_t i) {
            std::string e = "<e";
            for (std::size_t k = 0; k < i; ++k)
                e += " a" + std::to_string(k) + "=\"\"";
            return e + " big=\"" + std::string(kTokenBytes - 16, 'v') + "\"/>";
        },
        // Element i opens i small elements, then one with a name of the largest size.
        [](std::size_t i) {
            const std::string big(kTokenBytes - 16, 'n');
            std::string e;
            for (std::size_t k = 0; k < i; ++k)
                e += "<s>";
            e += "<" + big + "></" + big + ">";
            for (std::size_t k = 0; k < i; ++k)
                e += "</s>";
            return e;
        }};
    for (const auto& element : elements) {
        IgnoringHandler handler;
        CXmlParser parser(&handler);
        parser.SetLimits(kTokenBytes, 64);
        parser.Reset();
        CAllocationMeter::Start();
        ASSERT_TRUE(parser.Feed("<r>", 3));
        for (std::size_t i = 0; i < 60; ++i) {
            const std::string bytes = element(i);
            // Fed in pieces like a file, so that tokens are joined in the parser's own buffers.
            for (std::size_t pos = 0; pos < bytes.size(); pos += 65536)
                ASSERT_TRUE(parser.Feed(bytes.data() + pos, std::min<std::size_t>(65536, bytes.size() - pos)))
                    << parser.GetErrorMessage();
        }
        ASSERT_TRUE(parser.Feed("</r>", 4));
        EXPECT_TRUE(parser.Finish());
        // Without giving buffers back the spares would hold about 60 tokens' worth.
        EXPECT_LT(CAllocationMeter::PeakSinceStart(), 12 * kTokenBytes)
            << CAllocationMeter::PeakSinceStart() / kMiB << " MiB";
    }
}

} // namespace
