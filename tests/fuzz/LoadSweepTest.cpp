#include "CLoadChecker.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

// The rich logbook of the document tests: settings with membership, licences and rigs, and
// jumps with every field, media, notes, recordings and signatures.
const std::string kGoldenPath = std::string(TERVOLA_TEST_DATA) + "/golden.tvl";

class LoadSweep : public testing::Test
{
protected:
    void SetUp() override
    {
        golden = ReadBytes(kGoldenPath);
        ASSERT_GT(golden.size(), 2048u);
        packed = GzipBytes(folder, golden);
        ASSERT_FALSE(packed.empty());
        // What the intact logbook saves as: a damaged file that loads must save the same.
        WriteBytes(folder / "intact.tvl", golden);
        const CCheckedLoad intact = checker.Load(folder / "intact.tvl", true);
        ASSERT_TRUE(intact.ok) << intact.message;
        ASSERT_EQ(intact.problem, "");
        ASSERT_GT(intact.jumps, 0u);
        reference = intact.saved;
    }

    // Loads bytes from a file of the given name and checks every load property.
    CCheckedLoad LoadBytes(const std::string& name, std::string_view bytes)
    {
        const std::string path = folder / name;
        WriteBytes(path, bytes);
        return checker.Load(path, true);
    }

    CScratchFolder folder{"sweep"};
    CLoadChecker checker{folder};
    std::string golden;
    std::string packed;
    std::string reference;
};

// Every cut of the plain file fails, leaving an empty, working document, until the root's end
// tag is whole; from there it loads everything.
TEST_F(LoadSweep, EveryTruncationOfThePlainFile)
{
    const std::size_t complete = golden.rfind("</tvl>") + 6;
    for (std::size_t length = 0; length <= golden.size(); ++length) {
        const CCheckedLoad load = LoadBytes("cut.tvl", std::string_view(golden).substr(0, length));
        ASSERT_EQ(load.problem, "") << "length " << length;
        ASSERT_EQ(load.ok, length >= complete) << "length " << length << ": " << load.message;
        if (load.ok) {
            EXPECT_EQ(load.saved, reference);
        }
    }
}

// Cuts of the compressed file: every length in the header and the trailer, a spread between.
TEST_F(LoadSweep, TruncationsOfTheGzipFile)
{
    std::vector<std::size_t> lengths;
    for (std::size_t length = 0; length < packed.size(); ++length)
        if (length < 32 || length + 32 > packed.size() || length % 7 == 0)
            lengths.push_back(length);
    ASSERT_GT(lengths.size(), 250u);
    for (const std::size_t length : lengths) {
        const CCheckedLoad load = LoadBytes("cut.tvz", std::string_view(packed).substr(0, length));
        ASSERT_EQ(load.problem, "") << "length " << length;
        EXPECT_FALSE(load.ok) << "a gzip file cut to " << length << " of " << packed.size() << " bytes loaded";
    }
    EXPECT_TRUE(LoadBytes("whole.tvz", packed).ok);
}

// Single-byte damage anywhere: a load succeeds or fails cleanly. Damage to the compressed file
// is caught by its checksum unless it changes nothing the logbook holds.
TEST_F(LoadSweep, SingleByteCorruptions)
{
    struct Container
    {
        const char* name;
        const std::string& bytes;
        int count;
    };
    std::uint64_t seed = 20090301;
    for (const Container& container :
         {Container{"damaged.tvl", golden, 2500}, Container{"damaged.tvz", packed, 1500}}) {
        const bool gzip = container.bytes.data() == packed.data();
        int loaded = 0;
        for (int i = 0; i < container.count; ++i) {
            std::string damaged = container.bytes;
            const std::size_t at = NextRandom(seed) % damaged.size();
            damaged[at] = static_cast<char>(damaged[at] ^ (1 + NextRandom(seed) % 255));
            const CCheckedLoad load = LoadBytes(container.name, damaged);
            ASSERT_EQ(load.problem, "") << container.name << " byte " << at;
            if (!load.ok)
                continue;
            ++loaded;
            if (gzip) {
                EXPECT_EQ(load.saved, reference) << "damage at byte " << at << " went unnoticed";
            }
        }
        // Some damage is harmless (a digit in a text, the gzip header's time stamp), most is not.
        EXPECT_GT(loaded, 0) << container.name;
        EXPECT_LT(loaded, container.count) << container.name;
    }
}

} // namespace
