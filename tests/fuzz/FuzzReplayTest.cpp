#include "FuzzFiles.h"
#include "FuzzTargets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace {

// The checked-in inputs of a target: its seed corpus and the inputs of past findings.
std::vector<std::filesystem::path> InputsOf(std::string_view target, const char* kind)
{
    std::vector<std::filesystem::path> files;
    const std::filesystem::path folder = std::filesystem::path(TERVOLA_FUZZ_DATA) / kind / target;
    if (std::filesystem::is_directory(folder))
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.is_regular_file())
                files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

class FuzzReplay : public testing::TestWithParam<FuzzTarget>
{
};

// Every checked-in input keeps every property its target checks.
TEST_P(FuzzReplay, CheckedInInputsKeepEveryProperty)
{
    const FuzzTarget target = GetParam();
    for (const char* kind : {"corpus", "regressions"}) {
        const auto files = InputsOf(target.name, kind);
        if (std::string_view(kind) == "corpus") {
            ASSERT_GE(files.size(), 5u) << "the seed corpus of " << target.name << " is missing";
        }
        for (const auto& file : files) {
            const std::string bytes = ReadBytes(file.string());
            EXPECT_EQ(target.body(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), "")
                << file.filename().string();
        }
    }
}

// Inputs no corpus file holds: nothing at all, and each single byte value.
TEST_P(FuzzReplay, TinyInputsKeepEveryProperty)
{
    const FuzzTarget target = GetParam();
    EXPECT_EQ(target.body(nullptr, 0), "");
    for (int b = 0; b < 256; ++b) {
        const std::uint8_t byte = static_cast<std::uint8_t>(b);
        EXPECT_EQ(target.body(&byte, 1), "") << "byte " << b;
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay, testing::ValuesIn(kFuzzTargets),
                         [](const testing::TestParamInfo<FuzzTarget>& p) { return std::string(p.param.name); });

} // namespace
