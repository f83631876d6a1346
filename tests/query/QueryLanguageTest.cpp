#include "QueryTestLogbook.h"

#include "model/CJumpSeal.h"
#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using QueryTestLogbook::Numbers;

const CUnitSettings kMetric(CUnitSettings::Metric, 0, 0);
const CUnitSettings kImperial(CUnitSettings::Imperial, 0, 0);

class QueryLanguage : public ::testing::Test
{
protected:
    void SetUp() override { QueryTestLogbook::Fill(m_doc); }

    // The numbers of the jumps a query finds, or the parser's message.
    std::string Find(const std::string& text, const CUnitSettings& units = kMetric)
    {
        const CQueryParseResult parsed = CQueryParser::Parse(text, units);
        if (!parsed)
            return parsed.error.Message();
        std::string numbers;
        for (const int n : Numbers(m_doc, CJumpIndex(m_doc).Find(parsed.query)))
            numbers += (numbers.empty() ? "" : " ") + std::to_string(n);
        return numbers;
    }

    CLogbookDoc m_doc;
};

struct Row
{
    const char* query;
    const char* found; // jump numbers, or the message
    bool imperial = false;
};

TEST_F(QueryLanguage, EachTermFindsItsJumps)
{
    const Row rows[] = {
        {"", "1 2 3 100 400"},
        // Words: prefixes of words of any text field, case and accents ignored.
        {"jami", "1"},
        {"JÄMIJÄRVI", "1"},
        {"ijarvi", ""},
        {"spa", "2 3"},
        {"\"skydive spa\"", "2"},
        {"\"spa skydive\"", ""},
        {"\"sky pilots &\"", "3"},
        {"oresund", "100"},
        {"ωMEGA", "100"},
        {"12:30", "100"},
        {"twists", "2"},
        {"navigator", "3"},
        {"vector", "2"},
        {"virtanen", "1"},
        {"SCHONER", "1"},
        {"stand", "1"},
        {"wingsuit -formation", "2"},
        {"spa year:2024 -kind:import", "2"},
        // Fields.
        {"dz:spa", "2 3"},
        {"dz:\"skydive spa\"", "2"},
        {"DZ:eloy", "400"},
        {"-dz:spa", "1 100 400"},
        {"dz:twists", ""},
        {"ac:otter", "2"},
        {"ac:twin otter", "2"},
        {"type:wing", "2 3"},
        {"team:sky", "3"},
        {"team:team", "400"},
        {"signer:matti", "1"},
        {"rig:[1]", "1"},
        {"rig:2", "2"},
        {"rig:javelin", "1"},
        {"rig:rental", "3"},
        {"kind:manual", "2"},
        {"kind:IMPORT", "3"},
        // Numbers with open ends.
        {"n:..3", "1 2 3"},
        {"n:100..", "100 400"},
        {"n:2..100", "2 3 100"},
        {"n:400", "400"},
        {"-n:2..399", "1 400"},
        // Days, months and years; a jump without a date matches only when turned around.
        {"date:2024", "2 3 400"},
        {"date:2023-12", "1"},
        {"date:2024-02", "3"},
        {"date:2024-1-1", "2"},
        {"date:..2023", "1"},
        {"date:2024-02-29..2024-05", "3 400"},
        {"date:2023-12-31..2024-01-01", "1 2"},
        {"date:2024-03..", "400"},
        {"-date:2024", "1 100"},
        {"year:2023..2024", "1 2 3 400"},
        {"year:2024..", "2 3 400"},
        // Heights in the display units, rounded as the list shows them.
        {"exit:4000", "2"},
        {"exit:..1000", "1 400"},
        {"exit:3048..3500", "3 100"},
        {"exit:10000", "3", true},
        {"exit:13123", "2", true},
        {"open:..3999", "1 2 400", true},
        {"open:4000..", "3 100", true},
        {"open:4003", "3", true},
        // Freefall seconds as shown: stored for Manual and Import, computed for the others.
        {"ff:95", "2"},
        {"ff:1:10", "3"},
        {"ff:60..", "2 3"},
        {"ff:..10", "1 400"},
        // Yes and no.
        {"signed:yes", "1"},
        {"signed:NO", "2 3 100 400"},
        {"-signed:no", "1"},
        {"has:recording", "3"},
        {"has:video", "2"},
        {"has:picture", "2"},
        {"has:wind", "2"},
        {"has:malfunction", "2"},
        {"has:note", "1 100"},
        {"-has:note", "2 3 400"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Find(row.query, row.imperial ? kImperial : kMetric), row.found) << row.query;
}

TEST_F(QueryLanguage, MalformedTermsAreNamedWithTheirReason)
{
    const Row rows[] = {
        {"date:2024-13", "date:2024-13: no such month"},
        {"date:2024-00", "date:2024-00: no such month"},
        {"date:2023-02-29", "date:2023-02-29: no such day"},
        {"date:24-05", "date:24-05: not a date (2024, 2024-05 or 2024-05-17)"},
        {"date:2024-05-17-1", "date:2024-05-17-1: not a date (2024, 2024-05 or 2024-05-17)"},
        {"date:2024-06..2024-05", "date:2024-06..2024-05: the range ends before it starts"},
        {"year:2024-05", "year:2024-05: not a year"},
        {"n:abc", "n:abc: not a whole number"},
        {"n:1234567890", "n:1234567890: number too large"},
        {"n:..", "n:..: a range needs a start or an end"},
        {"n:200..100", "n:200..100: the range ends before it starts"},
        {"exit:1.5", "exit:1.5: not a whole number"},
        {"ff:1:75", "ff:1:75: not a number of seconds or M:SS"},
        {"signed:maybe", "signed:maybe: yes, no, sealed, changed or unsealed"},
        {"has:dog", "has:dog: recording, note, picture, video, wind or malfunction"},
        {"kind:belly", "kind:belly: Standard, Vertical, Custom, Manual or Import"},
        {"foo:bar", "foo:bar: no such term"},
        {"dz:", "dz:: nothing to look for"},
        {"-", "-: nothing to look for"},
        {"!?", "!?: nothing to look for"},
        // The first refused term is the one reported, as written.
        {"spa -date:2024-13 n:x", "-date:2024-13: no such month"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Find(row.query), row.found) << row.query;
        EXPECT_TRUE(CQueryParser::Parse(row.query, kMetric).query.IsEmpty()) << row.query;
    }
}

TEST_F(QueryLanguage, SealTermsFollowTheSealOfEachSignedJump)
{
    // Jump 1 is signed without a seal; 2 is sealed; 3 is sealed and then changed.
    for (const std::size_t index : {1u, 2u}) {
        m_doc.ChangeJump(index, [this](CJump& jump) {
            jump.SetSignature("Sanna", {{{1, 2}}});
            jump.Signature().SetId(JumpSeal::Compute(jump, m_doc.GetSettings()));
            return true;
        });
    }
    m_doc.ChangeJump(2, [](CJump& jump) { return jump.SetPlace("Spa East"); });
    const Row rows[] = {
        {"signed:sealed", "2"},  {"signed:CHANGED", "3"},           {"signed:unsealed", "1"},
        {"signed:yes", "1 2 3"}, {"-signed:sealed", "1 3 100 400"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Find(row.query), row.found) << row.query;
}

} // namespace
