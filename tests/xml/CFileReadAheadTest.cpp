#include "ParseEverySplit.h"
#include "tests/common/CScratchFolder.h"

#include "xml/CFileChecksum.h"
#include "xml/CFileIdentity.h"
#include "xml/CFileReadAhead.h"
#include "xml/CIoProgress.h"

#include <gtest/gtest.h>

#include <zlib.h>

namespace {

std::string Document(int jumps)
{
    std::string doc = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><log>";
    for (int i = 0; i < jumps; ++i)
        doc += "<jump n=\"" + std::to_string(i) + "\"><dz>Tervola \xC3\xA4 " + std::to_string(i * 7) + "</dz><note>" +
               std::string(static_cast<std::size_t>(i % 300), 'x') + "</note><w/></jump>";
    return doc + "<end a=\"1\"/></log>";
}

// The parse as it was done on one thread: zlib's reader (which passes a plain file through)
// feeding the parser chunk by chunk, with the same end and error rules. zlib drops the text of a
// read that runs into damage, so the reads are as large as the reader's.
ParseOutcome ParseOnOneThread(const std::string& path, const std::function<void(HandlerSet&, CXmlParser&)>& setup)
{
    HandlerSet set;
    CXmlParser parser(&set.Root());
    setup(set, parser);
    parser.Reset();
    std::vector<char> buffer(CFileReadAhead::kChunkBytes);
    gzFile file = gzopen(path.c_str(), "rb");
    bool ok = true;
    int n = 0;
    while (ok && !gzeof(file) && (n = gzread(file, buffer.data(), static_cast<unsigned>(buffer.size()))) > 0)
        ok = parser.Feed(buffer.data(), static_cast<std::size_t>(n));
    int error = Z_OK;
    gzerror(file, &error);
    ok = ok && n >= 0 && error == Z_OK;
    gzclose(file);
    return {ok && parser.Finish(), set.log, ErrorText(parser.GetErrorMessage()), parser.GetDepth(),
            parser.GetEncoding()};
}

ParseOutcome ParseWithReadAhead(const std::string& path, bool gzip,
                                const std::function<void(HandlerSet&, CXmlParser&)>& setup,
                                CFileIdentity* identity = nullptr, CIoProgress* progress = nullptr)
{
    HandlerSet set;
    CXmlParser parser(&set.Root());
    setup(set, parser);
    parser.SetProgress(progress);
    const bool ok = gzip ? parser.ParseGzipFile(path) : parser.ParseFile(path);
    if (identity)
        *identity = parser.GetFileIdentity();
    return {ok, set.log, ErrorText(parser.GetErrorMessage()), parser.GetDepth(), parser.GetEncoding()};
}

TEST(FileChecksum, IsXxh64WhateverThePiecesTheBytesComeIn)
{
    // Published XXH64 values (seed 0).
    const std::pair<std::string, std::uint64_t> known[] = {
        {"", 0xEF46DB3751D8E999ull},
        {"abc", 0x44BC2CF5AD770999ull},
        {"Nobody inspects the spammish repetition", 0xFBCEA83C8A378BF1ull},
    };
    for (const auto& [text, value] : known) {
        CFileChecksum checksum;
        checksum.Add(text.data(), text.size());
        EXPECT_EQ(checksum.Value(), value) << text;
    }
    const std::string text = Document(40);
    CFileChecksum whole;
    whole.Add(text.data(), text.size());
    for (const std::size_t piece : {1u, 7u, 31u, 32u, 33u}) {
        CFileChecksum pieces;
        for (std::size_t at = 0; at < text.size(); at += piece)
            pieces.Add(text.data() + at, std::min(piece, text.size() - at));
        EXPECT_EQ(pieces.Value(), whole.Value()) << piece;
    }
}

class ReadAhead : public testing::Test
{
protected:
    std::string Write(const std::string& name, const std::string& bytes)
    {
        WriteBytes(m_dir / name, bytes);
        return m_dir / name;
    }
    std::string Gzip(const std::string& text)
    {
        WriteGzip(m_dir / "packing", text);
        return ReadBytes(m_dir / "packing");
    }
    CScratchFolder m_dir{"xml"};
};

TEST_F(ReadAhead, GivesTheEventsAndRefusalsOfTheParseOnOneThread)
{
    const std::string text = Document(4000);
    const std::string packed = Gzip(text);
    ASSERT_GT(text.size(), 8 * 64 * 1024u) << "the text must fill the queue of chunks";
    const auto none = [](HandlerSet&, CXmlParser&) {};
    struct Case
    {
        std::string name;
        std::string bytes;
        bool gzip;
        std::function<void(HandlerSet&, CXmlParser&)> setup;
    };
    std::vector<Case> cases = {
        {"whole gzip", packed, true, none},
        {"plain text through the gzip reader", text, true, none},
        {"plain", text, false, none},
        {"two gzip members", Gzip(text.substr(0, 300000)) + Gzip(text.substr(300000)), true, none},
        {"garbage after the gzip stream", packed + "garbage", true, none},
        {"empty gzip file", "", true, none},
        {"a lone gzip magic byte", "\x1F", true, none},
        {"refusal at the end", packed, true, [](HandlerSet& s, CXmlParser&) { s.Root().refuse = "<end"; }},
        {"refusal of a late element", packed, true, [](HandlerSet& s, CXmlParser&) { s.Root().refuse = "</jump"; }},
        {"token limit", packed, true, [](HandlerSet&, CXmlParser& p) { p.SetLimits(200, 256); }},
        {"input limit", packed, true,
         [](HandlerSet&, CXmlParser& p) { p.SetLimits(CXmlParser::kDefaultMaxTokenBytes, 256, 500000); }},
        {"input limit of a plain file", text, false,
         [](HandlerSet&, CXmlParser& p) { p.SetLimits(CXmlParser::kDefaultMaxTokenBytes, 256, 500000); }},
    };
    // Cut and damaged compressed files: in the header, in the middle, in the trailer.
    for (std::size_t cut : {std::size_t{1}, std::size_t{9}, std::size_t{10}, packed.size() / 2, packed.size() - 8,
                            packed.size() - 4, packed.size() - 1})
        cases.push_back({"cut to " + std::to_string(cut), packed.substr(0, cut), true, none});
    for (std::size_t at : {std::size_t{3}, std::size_t{200}, packed.size() / 3, packed.size() - 6}) {
        std::string damaged = packed;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        cases.push_back({"damaged at " + std::to_string(at), damaged, true, none});
    }
    cases.push_back({"plain cut inside a tag", text.substr(0, 400001), false, none});

    int loaded = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string path = Write("file", c.bytes);
        const ParseOutcome expected = ParseOnOneThread(path, c.setup);
        const ParseOutcome actual = ParseWithReadAhead(path, c.gzip, c.setup);
        EXPECT_EQ(actual.ok, expected.ok);
        EXPECT_EQ(actual.error, expected.error);
        EXPECT_EQ(actual.depth, expected.depth);
        EXPECT_TRUE(actual.events == expected.events) << actual.events.size() << " / " << expected.events.size();
        loaded += actual.ok ? 1 : 0;
    }
    // Whole, plain twice, two members, garbage after the end load; the refusals and damage do not.
    EXPECT_GE(loaded, 5);
    EXPECT_LE(loaded + 15, static_cast<int>(cases.size()));
}

TEST_F(ReadAhead, RemembersTheIdentityOfTheBytesOnDiskAndCountsProgress)
{
    const std::string text = Document(1500);
    const auto none = [](HandlerSet&, CXmlParser&) {};
    for (const auto& [bytes, gzip] : {std::pair{Gzip(text) + "tail", true}, std::pair{text, false}}) {
        const std::string path = Write(gzip ? "log.tvz" : "log.tvl", bytes);
        CFileIdentity identity;
        CIoProgress progress;
        ASSERT_TRUE(ParseWithReadAhead(path, gzip, none, &identity, &progress).ok);
        const CFileIdentity onDisk = CFileIdentity::Of(path);
        EXPECT_TRUE(identity.known);
        EXPECT_EQ(identity.size, bytes.size());
        CFileChecksum whole;
        whole.Add(bytes.data(), bytes.size());
        EXPECT_EQ(identity.checksum, whole.Value());
        EXPECT_EQ(identity.modifiedNs, onDisk.modifiedNs);
        EXPECT_TRUE(identity.SameContent(onDisk));
        EXPECT_EQ(progress.total.load(), bytes.size());
        EXPECT_EQ(progress.done.load(), bytes.size());

        // A parse that fails remembers nothing.
        ASSERT_FALSE(ParseWithReadAhead(Write("cut", bytes.substr(0, bytes.size() / 2)), gzip, none, &identity).ok);
        EXPECT_FALSE(identity.known);
    }
}

TEST_F(ReadAhead, AMissingFileFailsWithoutATextAndEachFileStartsAsUtf8)
{
    HandlerSet set;
    CXmlParser parser(&set.Root());
    for (const bool gzip : {false, true}) {
        parser.SetErrorMessage(StringTable::IDS_NOT_TERVOLA);
        EXPECT_FALSE(gzip ? parser.ParseGzipFile(m_dir / "missing") : parser.ParseFile(m_dir / "missing"));
        EXPECT_TRUE(parser.GetErrorMessage().Empty());
    }
    EXPECT_TRUE(parser.ParseFile(Write("latin.tvl", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?><a>\xE9</a>")));
    EXPECT_EQ(parser.GetEncoding(), Latin1);
    EXPECT_TRUE(parser.ParseFile(Write("utf.tvl", "<a>\xC3\xA9</a>")));
    EXPECT_EQ(parser.GetEncoding(), Utf8);
    EXPECT_EQ(set.log, "<a> | </a>'\xC3\xA9' | <a> | </a>'\xC3\xA9'");
}

} // namespace
