#include "model/CSampleList.h"
#include "model/CBaroSample.h"
#include "model/CGpsSample.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

namespace {

// Sample i of a mixed list: every third one barometric, the others satellite.
void AddMixed(CSampleList& list, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i);
        if (i % 3 == 2)
            list.Emplace<CBaroSample>(x, -x);
        else
            list.Add(CGpsSample(x, -x, 60.0 + x / 1000, 25.0 - x / 1000));
    }
}

// True when the list holds exactly the samples AddMixed(count) made, each of its own type.
::testing::AssertionResult HoldsMixed(const CSampleList& list, std::size_t count)
{
    if (list.size() != count)
        return ::testing::AssertionFailure() << "size " << list.size() << " instead of " << count;
    std::size_t i = 0;
    for (const auto& sample : list) {
        const double x = static_cast<double>(i);
        const auto* gps = dynamic_cast<const CGpsSample*>(sample.get());
        const bool typeRight = (i % 3 == 2) == (gps == nullptr);
        const bool valuesRight =
            sample->GetAltitude() == x && sample->GetTime() == -x &&
            (!gps || (gps->GetLatitude() == 60.0 + x / 1000 && gps->GetLongitude() == 25.0 - x / 1000));
        if (!typeRight || !valuesRight)
            return ::testing::AssertionFailure() << "sample " << i << " changed";
        ++i;
    }
    return ::testing::AssertionSuccess();
}

} // namespace

// Samples keep their type, values and order through every way the block is moved, copied,
// emptied and filled again; a moved-from list is empty.
TEST(CSampleList, SamplesSurviveGrowthCopiesMovesAndShrinking)
{
    struct Case
    {
        const char* name;
        std::size_t count;
        void (*change)(CSampleList& list); // what happens to a list of count samples
    };
    const Case cases[] = {
        {"growth past the first block", 1000, [](CSampleList&) {}},
        {"shrink to fit", 1000, [](CSampleList& list) { list.ShrinkToFit(); }},
        {"reserve beyond the size", 40, [](CSampleList& list) { list.Reserve(500); }},
        {"copy construction", 300, [](CSampleList& list) { list = CSampleList(CSampleList(list)); }},
        {"copy assignment", 300,
         [](CSampleList& list) {
             CSampleList other;
             AddMixed(other, 7);
             other = list;
             list = other;
         }},
        {"move construction", 300,
         [](CSampleList& list) {
             CSampleList moved(std::move(list));
             EXPECT_TRUE(list.empty()); // NOLINT(bugprone-use-after-move): a moved-from list is empty
             list = std::move(moved);
         }},
        {"cleared and filled again", 20,
         [](CSampleList& list) {
             list.Clear();
             EXPECT_EQ(list.Last(), nullptr);
             AddMixed(list, 20);
         }},
        {"empty list shrunk", 0, [](CSampleList& list) { list.ShrinkToFit(); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CSampleList list;
        AddMixed(list, c.count);
        c.change(list);
        EXPECT_TRUE(HoldsMixed(list, c.count));
        EXPECT_EQ(list.Last() ? list.Last()->GetAltitude() : -1.0, static_cast<double>(c.count) - 1);
    }
}
