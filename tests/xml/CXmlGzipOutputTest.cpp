#include "tests/common/CFailingOutput.h"
#include "tests/common/CScratchFolder.h"

#include "xml/CXmlGzipOutput.h"
#include "xml/CXmlStringOutput.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <zlib.h>

namespace {

// Logbook-like text of about the given size: tags, numbers and words that repeat at distances
// both inside and beyond one block, so that the dictionary across blocks matters.
std::string LogbookText(std::size_t bytes)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl><log>";
    std::uint32_t state = 12345;
    for (int n = 1; text.size() < bytes; ++n) {
        state = state * 1103515245u + 12345u;
        text += "<jump n=\"" + std::to_string(n) + "\" ts=\"2008-05-" + std::to_string(10 + state % 19) +
                "T14:03:00Z\"><dz>Tervola " + std::to_string(state % 97) + "</dz><exit>" +
                std::to_string(3000 + state % 1000) + "</exit><note>caf\xC3\xA9 " +
                std::string(state % 23, 'a' + static_cast<char>(state % 26)) + "</note></jump>";
    }
    text.resize(bytes);
    return text;
}

// Inflates bytes as one gzip member, which checks the CRC-32 and the length in its trailer;
// fails the test when they are not exactly one intact stream.
std::string InflateOneStream(const std::string& gzip)
{
    z_stream stream{};
    EXPECT_EQ(inflateInit2(&stream, 15 + 16), Z_OK);
    std::string text;
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(gzip.data()));
    stream.avail_in = static_cast<uInt>(gzip.size());
    int result = Z_OK;
    char buffer[16384];
    while (result == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(buffer);
        stream.avail_out = sizeof buffer;
        result = inflate(&stream, Z_NO_FLUSH);
        text.append(buffer, sizeof buffer - stream.avail_out);
    }
    EXPECT_EQ(result, Z_STREAM_END) << stream.msg;
    EXPECT_EQ(stream.avail_in, 0u) << "bytes after the end of the gzip stream";
    inflateEnd(&stream);
    return text;
}

std::string Compress(const std::string& text, const CXmlGzipOutput::Options& options, std::size_t piece)
{
    auto sink = std::make_unique<CXmlStringOutput>();
    const auto bytes = sink->Bytes();
    auto output = CXmlGzipOutput::Create(std::move(sink), options);
    for (std::size_t at = 0; at < text.size(); at += piece)
        EXPECT_TRUE(output->Write(text.data() + at, std::min(piece, text.size() - at)));
    EXPECT_TRUE(output->Close());
    return *bytes;
}

// A sink that counts its writes and fails every one after the first writesAllowed.
std::unique_ptr<IXmlOutput> CountingSink(int writesAllowed, int* writes)
{
    return std::make_unique<CFailingOutput>(std::make_unique<CXmlStringOutput>(),
                                            CFailingOutput::Budget{.writes = writesAllowed}, writes);
}

TEST(GzipOutput, ZlibReadsOneStreamEqualToTheText)
{
    struct Case
    {
        const char* name;
        std::size_t textBytes;
        std::size_t blockBytes;
        unsigned threads;
        std::size_t piece; // bytes per Write call
    };
    const Case cases[] = {
        {"empty text", 0, 1000, 2, 1},
        {"one byte", 1, 1000, 2, 1},
        {"exactly one block", 1000, 1000, 2, 100},
        {"one block and one byte", 1001, 1000, 2, 1001},
        {"blocks shorter than the dictionary", 5000, 7, 3, 13},
        {"boundaries inside every kind of token", 300000, 1021, 3, 4096},
        {"many blocks on one thread", 2000000, 64 * 1024, 1, 65536},
        {"many blocks on four threads", 2000000, 64 * 1024, 4, 65536},
    };
    const CScratchFolder dir("xml");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string text = LogbookText(c.textBytes);
        const std::string gzip = Compress(text, {c.blockBytes, c.threads, 9}, c.piece);
        ASSERT_GE(gzip.size(), 18u);
        EXPECT_EQ(gzip.substr(0, 3), "\x1F\x8B\x08");
        EXPECT_EQ(InflateOneStream(gzip), text);
        // The gzip tool, as another reader, accepts the stream too.
        const std::string path = dir / "text.gz";
        ASSERT_TRUE(WriteBytes(path, gzip));
        EXPECT_EQ(std::system(("gzip -t " + path).c_str()), 0);
    }
}

TEST(GzipOutput, SizeStaysWithinHalfAPercentOfOneStream)
{
    const std::string text = LogbookText(3000000);
    const std::string blocks = Compress(text, {}, 65536);
    uLongf single = compressBound(static_cast<uLong>(text.size()));
    std::string reference(single, '\0');
    ASSERT_EQ(compress2(reinterpret_cast<Bytef*>(reference.data()), &single,
                        reinterpret_cast<const Bytef*>(text.data()), static_cast<uLong>(text.size()), 9),
              Z_OK);
    // compress2 frames with zlib's 6 bytes, gzip with 18.
    const double ratio = static_cast<double>(blocks.size()) / static_cast<double>(single + 12);
    EXPECT_LE(ratio, 1.005) << blocks.size() << " against " << single + 12;
}

TEST(GzipOutput, StreamsBlocksWhileTheTextIsStillComing)
{
    int writes = 0;
    auto output = CXmlGzipOutput::Create(CountingSink(1 << 30, &writes), {4096, 2, 9});
    const std::string text = LogbookText(4096 * 64);
    ASSERT_TRUE(output->Write(text.data(), text.size()));
    // Of 64 blocks only a few wait in memory (two per thread and two more, the last one
    // unfinished); the others are already written.
    EXPECT_GE(writes, 1 + 64 - 6) << "blocks held back instead of written";
    EXPECT_EQ(output->ThreadsStarted(), 2u);
    EXPECT_TRUE(output->Close());
}

TEST(GzipOutput, AFailedWriteAtAnyBlockFailsTheStream)
{
    const std::string text = LogbookText(200000);
    int total = 0;
    {
        auto output = CXmlGzipOutput::Create(CountingSink(1 << 30, &total), {8192, 2, 9});
        ASSERT_TRUE(output->Write(text.data(), text.size()));
        ASSERT_TRUE(output->Close());
    }
    ASSERT_GT(total, 20); // header, blocks, trailer
    for (int allowed = 0; allowed < total; ++allowed) {
        int writes = 0;
        auto output = CXmlGzipOutput::Create(CountingSink(allowed, &writes), {8192, 2, 9});
        bool ok = true;
        for (std::size_t at = 0; at < text.size() && ok; at += 5000)
            ok = output->Write(text.data() + at, std::min<std::size_t>(5000, text.size() - at));
        EXPECT_FALSE(output->Close()) << "the write after " << allowed << " failed";
        EXPECT_FALSE(output->Write("x", 1));
        EXPECT_LE(writes, allowed + 1) << "writes went on after the failure";
    }
}

} // namespace
