#include "resources/StringTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace StringTable;

TEST(StringTable, KeepsTheProgramsTextsLetterForLetter)
{
    // Typos are part of the program's texts and stay.
    EXPECT_EQ(Text(IDS_WRITE_ERROR), "An error occured while writing the tervola file.");
    EXPECT_EQ(Text(IDS_BAD_EQUIPMENT),
              "Please select an eqipment from the list or enter your equipment without preceeding [n].");
    EXPECT_EQ(Text(IDS_MAX_RATINGS), "Max. ratings are allowed.");
    EXPECT_EQ(Text(IDS_MAX_AWARDS), "Max. 10 awards are allowed.");
    EXPECT_EQ(Text(IDS_NOT_TERVOLA), "The file is no valid tervola file.");
}

TEST(StringTable, IdsListEveryMessageOnceInOrder)
{
    const std::vector<int> ids = Ids();
    ASSERT_FALSE(ids.empty());
    EXPECT_EQ(ids.front(), IDS_WRITE_ERROR);
    EXPECT_EQ(ids.back(), IDS_FIELD_SEAL);
    for (std::size_t i = 0; i < ids.size(); ++i) {
        EXPECT_TRUE(Has(ids[i])) << ids[i];
        if (i > 0) {
            EXPECT_LT(ids[i - 1], ids[i]);
        }
    }
    EXPECT_FALSE(Has(4011)); // a gap in the numbers
    EXPECT_EQ(Text(4011), "");
}

TEST(StringTable, SubstitutionIsPlainText)
{
    struct Case
    {
        int id;
        const char* a1;
        const char* a2;
        std::string expected;
    };
    const Case cases[] = {
        {IDS_VALUE_RANGE, "1", "99999", "Please enter a value between 1 and 99999."},
        {IDS_PARSER_ERROR, "Open Tag: jump", "", "Parser error: Open Tag: jump"},
        {IDS_INSPECTION_DUE, "3", "21/11/2026", "Equipment 3 needs to be inspected 21/11/2026."},
        // Arguments are inserted as they are: a "%2" inside the first argument is not expanded again.
        {IDS_VALUE_RANGE, "%2", "x", "Please enter a value between %2 and x."},
        {IDS_DELETE_JUMP, "12", "", "Do you want to delete jump number 12?"},
        {IDS_BAD_VERSION, "1.3", "",
         "The file version (1.3) can not be processed. Please install an actual version of Tervola or contact " +
             std::string(kSupportAddress)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Format(c.id, c.a1, c.a2), c.expected);
}

} // namespace
