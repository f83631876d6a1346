#include "model/JumpFields.h"
#include "model/CJump.h"
#include "model/CLogbookSettings.h"
#include "resources/StringTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(JumpFields, NamesTermsAndLabelsAreUniqueAndKnown)
{
    std::set<std::string_view> names, terms, headers;
    for (const JumpFieldInfo& info : JumpFields()) {
        SCOPED_TRACE(std::string(info.name));
        EXPECT_TRUE(names.insert(info.name).second);
        EXPECT_TRUE(headers.insert(info.header).second);
        EXPECT_TRUE(info.term.empty() || terms.insert(info.term).second);
        // A name finds its field whatever its case.
        std::string upper(info.name);
        for (char& c : upper)
            c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
        JumpField found = JumpField::Count;
        EXPECT_TRUE(JumpFieldFromName(upper, found));
        EXPECT_EQ(found, info.field);
        // A label exists, and names the height unit exactly when the field is a height.
        ASSERT_TRUE(StringTable::Has(info.labelId));
        const bool unitInLabel = StringTable::Text(info.labelId).find("%1") != std::string_view::npos;
        EXPECT_EQ(unitInLabel, info.unit == JumpFieldUnit::Height);
    }
    JumpField found = JumpField::Count;
    EXPECT_FALSE(JumpFieldFromName("numbers", found));
}

TEST(JumpFields, ValuesComeFromTheJump)
{
    CLogbookSettings settings;
    CJump jump(12, CZonedDateTime{CDateTime(2024, 5, 17, 14, 3, 9), 120}, CDateTime(2024, 5, 18, 9, 0, 0));
    jump.SetPlace("Eloy");
    jump.SetAircraft("Otter");
    jump.SetType("Belly");
    jump.SetLanding("OK");
    jump.SetTeam("Sky");
    jump.SetMalfunction("Line twist");
    jump.SetEquipmentByDescription("Sabre 170");
    jump.SetFallrate(FallrateKind::Manual, 4000, 1000, 61, 0, 0);
    jump.SetWind(270, 5.5);
    jump.SetSize(4);
    jump.SetPoints(12);
    jump.SetNoteText("first\r\nsecond");
    jump.SetSignature("Virtanen", {{{0, 0}, {1, 1}}});

    const struct
    {
        JumpField field;
        const char* text;
        double number;
    } cases[] = {
        {JumpField::Number, "", 12},
        {JumpField::Date, "", static_cast<double>(CDateTime(2024, 5, 17).DayNumber())},
        {JumpField::Time, "", 14 * 3600 + 3 * 60 + 9},
        {JumpField::Place, "Eloy", 0},
        {JumpField::Aircraft, "Otter", 0},
        {JumpField::Type, "Belly", 0},
        {JumpField::Exit, "", 4000},
        {JumpField::Open, "", 1000},
        {JumpField::Freefall, "", 61},
        {JumpField::Fallrate, "", static_cast<int>(FallrateKind::Manual)},
        {JumpField::WindDirection, "", 270},
        {JumpField::WindSpeed, "", 5.5},
        {JumpField::Equipment, "Sabre 170", 0},
        {JumpField::Landing, "OK", 0},
        {JumpField::Team, "Sky", 0},
        {JumpField::Size, "", 4},
        {JumpField::Points, "", 12},
        {JumpField::Malfunction, "Line twist", 0},
        {JumpField::Signer, "Virtanen", 0},
        {JumpField::Note, "first\r\nsecond", 0},
        {JumpField::Recording, "", 0},
        {JumpField::Seal, "", 0},
    };
    ASSERT_EQ(std::size(cases), JumpFields().size());
    for (const auto& c : cases) {
        const JumpFieldInfo& info = JumpFieldInfoOf(c.field);
        SCOPED_TRACE(std::string(info.name));
        std::string scratch;
        EXPECT_EQ(JumpFieldText(jump, c.field, settings, scratch), c.text);
        double value = -99;
        const bool present = JumpFieldNumber(jump, c.field, settings, value);
        EXPECT_EQ(present, info.type != JumpFieldType::Text);
        if (info.type != JumpFieldType::Text) {
            EXPECT_DOUBLE_EQ(value, c.number);
        }
    }

    // What the jump lacks: a time of day, a wind.
    CJump bare(1, CZonedDateTime{CDateTime(2024, 5, 17), 0}, CDateTime(2024, 5, 18));
    double value = 0;
    EXPECT_FALSE(JumpFieldNumber(bare, JumpField::Time, settings, value));
    EXPECT_EQ(value, -1);
    EXPECT_FALSE(JumpFieldNumber(bare, JumpField::WindDirection, settings, value));
    EXPECT_FALSE(JumpFieldNumber(bare, JumpField::WindSpeed, settings, value));
}
