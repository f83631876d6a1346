#include "FuzzFiles.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"
#include "xml/CXmlHandler.h"
#include "xml/CXmlParser.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <new>
#include <vector>

namespace {

// The bytes this test program holds through operator new (replaced below) and their peak since
// StartMeasuring: what a piece of code needed at its peak, independent of how the allocator or a
// sanitizer's quarantine keeps freed memory.
std::atomic<std::size_t> g_held{0};
std::atomic<std::size_t> g_peak{0};
std::atomic<std::size_t> g_base{0};

void StartMeasuring()
{
    g_base = g_held.load();
    g_peak = g_base.load();
}

std::size_t PeakSinceStart()
{
    return g_peak.load() - g_base.load();
}

// Each block carries its size in a header of the strictest fundamental alignment.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* Allocate(std::size_t size)
{
    void* raw = std::malloc(size + kHeader);
    if (raw == nullptr)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(raw) = size;
    const std::size_t held = g_held.fetch_add(size) + size;
    std::size_t peak = g_peak.load();
    while (held > peak && !g_peak.compare_exchange_weak(peak, held)) {}
    return static_cast<char*>(raw) + kHeader;
}

void Release(void* block)
{
    if (block == nullptr)
        return;
    void* raw = static_cast<char*>(block) - kHeader;
    g_held.fetch_sub(*static_cast<std::size_t*>(raw));
    std::free(raw);
}

} // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
}
void operator delete(void* block) noexcept
{
    Release(block);
}
void operator delete[](void* block) noexcept
{
    Release(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    Release(block);
}
// The library's temporary buffers (std::stable_sort) come from the nothrow forms and go back
// through the plain ones, so those are metered too.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return Allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return Allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* block, const std::nothrow_t&) noexcept
{
    Release(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    Release(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    Release(block);
}

namespace {

constexpr std::size_t kMiB = 1024 * 1024;

// A piece of a hostile file: text as it is, or text repeated to fill that many MiB.
struct Segment
{
    std::string text;
    std::size_t mebibytes = 0;
};

// The start of a logbook up to the inside of its first jump, then more.
Segment Jump(std::string_view inner)
{
    return {"<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl version=\"1.2\"><log><jump n=\"1\" "
            "ts=\"2008-05-17T14:03:00Z\" mod=\"2008-05-17T14:03:00Z\">" +
            std::string(inner)};
}
const Segment kEnd{"</jump></log></tvl>"};

// A hostile file and the parser error its load ends in. A gzip file is written as a series of
// gzip members (which readers join into one stream), each repeated megabyte compressed once, so
// that a gigabyte of XML costs a megabyte of disk and a moment to make.
struct LimitCase
{
    const char* name;
    bool gzip;
    std::vector<Segment> segments;
    std::string error;
};

const std::string kToken = "token longer than 67108864 bytes";
const std::string kInput = "input longer than 2147483648 bytes";
const std::string kBig = " longer than 134217728 bytes";

// 65 distinct attribute names, one more than a start tag may have.
std::string ManyAttributes()
{
    std::string attributes;
    for (int i = 0; i <= 64; ++i)
        attributes += " a" + std::to_string(i) + "=\"1\"";
    return attributes;
}

const LimitCase kCases[] = {
    {"GigabyteOfText", true, {Jump("<note>"), {"x", 1024}, {"</note>"}, kEnd}, kToken},
    {"GigabyteAttributeValue", true, {Jump("<image x=\""), {"1", 1024}, {"\"/>"}, kEnd}, kToken},
    {"GigabyteElementName", true, {Jump("<"), {"n", 1024}, {"/>"}, kEnd}, kToken},
    {"GigabyteOfBlanksBetweenTags", true, {Jump(""), {" ", 1024}, kEnd}, kToken},
    {"MillionNestedElements", false, {Jump(""), {"<a>", 3}, kEnd}, "element nesting deeper than 256 levels"},
    {"ManyAttributesInOneTag",
     false,
     {Jump("<image" + ManyAttributes()), {" z=\"1\"", 16}, {"/>"}, kEnd},
     "more than 64 attributes in one start tag"},
    {"StartTagOfThreeLargeAttributes",
     true,
     {Jump("<image name=\""), {"n", 60}, {"\" thumbnail=\""}, {"t", 60}, {"\" x=\""}, {"x", 60}, {"\"/>"}, kEnd},
     "start tag" + kBig},
    {"OpenElementsWithLargeNames",
     true,
     {Jump("<"), {"a", 60}, {"><"}, {"b", 60}, {"><"}, {"c", 60}, {">"}, kEnd},
     "names of the open elements" + kBig},
    {"GigabytesOfShortLines", true, {Jump("<note>"), {std::string(99, 'x') + "\n", 2056}, {"</note>"}, kEnd}, kInput},
    {"GigabytesOfElements", true, {Jump(""), {"<dz>" + std::string(90, 'z') + "</dz>", 2056}, kEnd}, kInput},
};

class ResourceLimits : public testing::TestWithParam<LimitCase>
{
};

// Each limit ends the load with its message, within seconds and bounded memory, and leaves an
// empty document.
TEST_P(ResourceLimits, HostileFileEndsInAnErrorQuickly)
{
    const LimitCase& c = GetParam();
    CScratchFolder folder("limits");
    const std::string path = folder / (c.gzip ? "hostile.tvz" : "hostile.tvl");
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    for (const Segment& segment : c.segments) {
        std::string bytes = segment.text;
        while (segment.mebibytes > 0 && bytes.size() + segment.text.size() <= kMiB)
            bytes += segment.text;
        if (c.gzip)
            bytes = GzipBytes(folder, bytes);
        for (std::size_t i = 0; i < std::max<std::size_t>(segment.mebibytes, 1); ++i)
            std::fwrite(bytes.data(), 1, bytes.size(), file);
    }
    ASSERT_EQ(std::fclose(file), 0);

    CLogbookDoc doc;
    StartMeasuring();
    const auto start = std::chrono::steady_clock::now();
    const CLoadResult result = doc.Load(path);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const std::size_t peak = PeakSinceStart();

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, CMessage(StringTable::IDS_PARSER_ERROR, c.error));
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

INSTANTIATE_TEST_SUITE_P(Files, ResourceLimits, testing::ValuesIn(kCases),
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
    const std::string big(kMiB - 16, 'b');
    const std::function<std::string(std::size_t)> elements[] = {
        // Element i has i small attributes, then one of the largest size in slot i.
        [&](std::size_t i) {
            std::string e = "<e";
            for (std::size_t k = 0; k < i; ++k)
                e += " a" + std::to_string(k) + "=\"\"";
            return e + " big=\"" + big + "\"/>";
        },
        // Element i opens i small elements, then one with a name of the largest size.
        [&](std::size_t i) {
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
        parser.SetLimits(kMiB, 64);
        parser.Reset();
        StartMeasuring();
        ASSERT_TRUE(parser.Feed("<r>", 3));
        for (std::size_t i = 0; i < 60; ++i) {
            const std::string bytes = element(i);
            // Fed in pieces like a file, so that tokens are joined in the parser's own buffers.
            for (std::size_t pos = 0; pos < bytes.size(); pos += 65536)
                ASSERT_TRUE(parser.Feed(bytes.data() + pos, std::min<std::size_t>(65536, bytes.size() - pos)))
                    << parser.GetErrorMessage().arg1;
        }
        ASSERT_TRUE(parser.Feed("</r>", 4));
        EXPECT_TRUE(parser.Finish());
        // Without giving buffers back the spares would hold about 60 tokens' worth.
        EXPECT_LT(PeakSinceStart(), 12 * kMiB) << PeakSinceStart() / kMiB << " MiB";
    }
}

} // namespace
