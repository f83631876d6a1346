#include "document/CLogbookDoc.h"
#include "document/ILogbookObserver.h"
#include "formats/CCsvExporter.h"
#include "formats/CCsvJumpImport.h"
#include "model/CJump.h"
#include "resources/StringTable.h"
#include "tests/common/CScratchFolder.h"
#include "tests/stats/StatsLogbook.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

namespace {

const CDateTime kModified(2026, 1, 6, 10, 0, 0);

CCsvTable Table(const std::string& bytes)
{
    const CCsvReadResult read = CCsvReader::Read(bytes);
    EXPECT_TRUE(read.ok) << read.messageId;
    return read.table;
}

TEST(CsvJumpImport, RecognisesEnglishAndGermanHeaders)
{
    const struct
    {
        const char* header;
        int field; // -1: none
    } cases[] = {
        {"Jump #", int(JumpField::Number)},
        {"No.", int(JumpField::Number)},
        {"Nr", int(JumpField::Number)},
        {"Datum", int(JumpField::Date)},
        {"DZ", int(JumpField::Place)},
        {"Drop zone", int(JumpField::Place)},
        {"Ort", int(JumpField::Place)},
        {"Flugzeug", int(JumpField::Aircraft)},
        {"Exit [ft]", int(JumpField::Exit)},
        {"ABSPRUNGH\xC3\x96HE (m)", int(JumpField::Exit)},
        {"Pull", int(JumpField::Open)},
        {"Deploy", int(JumpField::Open)},
        {"Delay", int(JumpField::Freefall)},
        {"Freifall", int(JumpField::Freefall)},
        {"Jump type", int(JumpField::Type)},
        {"Rig", int(JumpField::Equipment)},
        {"Bemerkung", int(JumpField::Note)},
        {"Comments", int(JumpField::Note)},
        {"Witness", int(JumpField::Signer)},
        {"Signed by", int(JumpField::Signer)},
        {"Wind speed [m/s]", int(JumpField::WindSpeed)},
        {"Colour", -1},
    };
    for (const auto& c : cases) {
        JumpField field = JumpField::Note;
        const bool found = CCsvJumpImport::FieldOfHeader(c.header, field);
        EXPECT_EQ(found ? int(field) : -1, c.field) << c.header;
    }
}

TEST(CsvJumpImport, TellsTheDateFormAndHeightUnitOfTheWholeFile)
{
    const struct
    {
        const char* name;
        std::string csv;
        CsvDateOrder dates;
        int question;
        CsvHeightUnit units;
    } cases[] = {
        {"ISO, metres by range", "Date,Exit\n2024-05-17,4000\n2024-06-01,3500\n", CsvDateOrder::Iso, 0,
         CsvHeightUnit::Metres},
        {"one day-first date decides", "Datum;Exit\n05.04.2024;13000\n17.05.2024;12500\n", CsvDateOrder::DayFirst, 0,
         CsvHeightUnit::Feet},
        {"one month-first date decides", "Date,Exit (m)\n5/4/2024,9000\n5/17/2024,9000\n", CsvDateOrder::MonthFirst, 0,
         CsvHeightUnit::Metres},
        {"cannot tell", "Date,Exit [ft]\n05/04/2024,4000\n", CsvDateOrder::Unknown, StringTable::IDS_CSV_DATES_UNCLEAR,
         CsvHeightUnit::Feet},
        {"both forms", "Date\n13/04/2024\n04/13/2024\n", CsvDateOrder::Unknown, StringTable::IDS_CSV_DATES_MIXED,
         CsvHeightUnit::Metres},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CCsvProposal proposal = CCsvJumpImport::Propose(Table(c.csv));
        EXPECT_EQ(proposal.mapping.dates, c.dates);
        EXPECT_EQ(proposal.datesQuestion, c.question);
        EXPECT_EQ(proposal.mapping.units, c.units);
    }
}

TEST(CsvJumpImport, ReadsEachRowOrSaysWhyNot)
{
    const std::string header = "Nr;Datum;Zeit;Exit;Open;Freefall;Note\n";
    const struct
    {
        const char* row;
        CsvHeightUnit units;
        int problem;
        CDateTime when;
        int exit, open, freefall;
        FallrateKind kind;
    } cases[] = {
        {"7;17.05.2024;14:05;4000;1000;60;",
         CsvHeightUnit::Metres,
         0,
         {2024, 5, 17, 14, 5},
         4000,
         1000,
         60,
         FallrateKind::Manual},
        {"7;17.05.24;2:05 PM;13000 ft;3000;1:05;",
         CsvHeightUnit::Feet,
         0,
         {2024, 5, 17, 14, 5},
         3962,
         914,
         65,
         FallrateKind::Manual},
        {"7;2024-05-17;;4.000;1,000;;", CsvHeightUnit::Metres, 0, {2024, 5, 17}, 4000, 1000, 0, FallrateKind::Standard},
        {"7;31.02.2024;;4000;1000;;", CsvHeightUnit::Metres, StringTable::IDS_CSV_BAD_DATE, {}, 0, 0, 0, {}},
        {"7;;;4000;1000;;", CsvHeightUnit::Metres, StringTable::IDS_CSV_NO_DATE, {}, 0, 0, 0, {}},
        {"x7;17.05.2024;;4000;1000;;", CsvHeightUnit::Metres, StringTable::IDS_CSV_BAD_NUMBER, {}, 0, 0, 0, {}},
        {"7;17.05.2024;25:00;4000;1000;;", CsvHeightUnit::Metres, StringTable::IDS_CSV_BAD_TIME, {}, 0, 0, 0, {}},
        {"7;17.05.2024;;40000;1000;;", CsvHeightUnit::Metres, StringTable::IDS_CSV_BAD_HEIGHT, {}, 0, 0, 0, {}},
        {"7;17.05.2024;;4000;1000;1:5x;", CsvHeightUnit::Metres, StringTable::IDS_CSV_BAD_FREEFALL, {}, 0, 0, 0, {}},
        {"7;17.05.2024;;4000", CsvHeightUnit::Metres, StringTable::IDS_CSV_CELL_COUNT, {}, 0, 0, 0, {}},
        {"7;17.05.2024;;4000;1000;;;extra", CsvHeightUnit::Metres, StringTable::IDS_CSV_CELL_COUNT, {}, 0, 0, 0, {}},
    };
    const CLogbookDoc empty;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.row);
        const CCsvTable table = Table(header + c.row + "\n");
        CCsvMapping mapping = CCsvJumpImport::Propose(table).mapping;
        mapping.dates = CsvDateOrder::DayFirst;
        mapping.units = c.units;
        const CCsvImportPlan plan = CCsvJumpImport::Plan(table, mapping, empty, kModified, 120);
        ASSERT_EQ(plan.rows.size(), 1u);
        const CCsvPlannedRow& row = plan.rows[0];
        EXPECT_EQ(row.problem.id, c.problem) << row.problem.arg1;
        if (c.problem != 0) {
            EXPECT_FALSE(row.Taken());
            EXPECT_EQ(row.problem.line, 2);
            continue;
        }
        ASSERT_TRUE(row.Taken());
        EXPECT_EQ(row.jump->GetNumber(), 7);
        EXPECT_EQ(row.jump->GetTimestamp().dateTime, c.when);
        EXPECT_EQ(row.jump->GetTimestamp().offsetMinutes, 120);
        EXPECT_EQ(row.jump->GetExitHeight(), c.exit);
        EXPECT_EQ(row.jump->GetOpenHeight(), c.open);
        EXPECT_EQ(row.jump->GetStoredFreefallTime(), c.freefall);
        EXPECT_EQ(row.jump->GetFallrateKind(), c.kind);
    }
}

// Loads the statistics' logbook (rigs, every fall-rate kind, a signed jump) and adds one jump
// with every field the export writes, in awkward forms.
void LoadFullLogbook(CLogbookDoc& doc, const CScratchFolder& dir)
{
    const std::string path = dir / "full.tvl";
    ASSERT_TRUE(WriteBytes(path, StatsLogbook::Xml()));
    ASSERT_TRUE(doc.Load(path).ok);
    auto jump = std::make_unique<CJump>(8, CZonedDateTime{CDateTime(2026, 2, 1, 9, 30, 0), 60}, kModified);
    jump->SetPlace("Bad \"Quote\", Ort");
    jump->SetAircraft("Caravan;Tab\there");
    jump->SetType("RW");
    jump->SetFallrate(FallrateKind::Manual, 4200, 900, 62, 0, 0);
    jump->SetWind(270, 4.5);
    jump->SetEquipmentByDescription("Borrowed rig");
    jump->SetLanding("Stand-up");
    jump->SetTeam("Four Winds");
    jump->SetSize(4);
    jump->SetPoints(12);
    jump->SetMalfunction("Hard opening");
    jump->SetNoteText("First line, with comma\r\nSecond \"line\" \xC3\xA4\xC3\xB6");
    doc.AddJump(std::move(jump));
    doc.SetModified(false);
}

// The fall-rate column names each kind, in any case of its letters.
TEST(CsvJumpImport, ReadsEachFallRateKindByItsName)
{
    const CLogbookDoc empty;
    for (int k = 0; k < kFallrateKindCount; ++k) {
        const auto kind = static_cast<FallrateKind>(k);
        std::string name(FallrateKindName(kind));
        if (k % 2 == 1)
            for (char& c : name)
                c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        const CCsvTable table = Table("Nr;Datum;Exit;Open;Fallrate\n7;17.05.2024;4000;1000;" + name + "\n");
        CCsvMapping mapping = CCsvJumpImport::Propose(table).mapping;
        mapping.dates = CsvDateOrder::DayFirst;
        const CCsvImportPlan plan = CCsvJumpImport::Plan(table, mapping, empty, kModified, 120);
        ASSERT_EQ(plan.rows.size(), 1u);
        ASSERT_TRUE(plan.rows[0].Taken()) << name;
        EXPECT_EQ(plan.rows[0].jump->GetFallrateKind(), kind) << name;
    }
}

TEST(CsvJumpImport, OwnExportReadsBackIntoAnEqualLogbook)
{
    const CScratchFolder dir("csv-import");
    CLogbookDoc original;
    LoadFullLogbook(original, dir);

    // Feet are whole feet in the file, finer than the whole metres the logbook keeps, so both
    // units come back exactly.
    for (const CUnitSettings& units :
         {CUnitSettings(CUnitSettings::Metric, 0, 0), CUnitSettings(CUnitSettings::Imperial, 0, 0)}) {
        SCOPED_TRACE(units.HeightLabel());
        CLogbookDoc copy;
        LoadFullLogbook(copy, dir);
        std::vector<std::size_t> all;
        for (std::size_t i = 0; i < copy.GetJumpCount(); ++i)
            all.push_back(i);
        copy.RemoveJumps(all);
        const std::string csv = CCsvExporter(units).Export(original);
        const CCsvTable table = Table(csv);
        const CCsvProposal proposal = CCsvJumpImport::Propose(table);
        EXPECT_EQ(proposal.datesQuestion, 0);
        EXPECT_EQ(proposal.mapping.units,
                  units.HeightLabel() == std::string_view("m") ? CsvHeightUnit::Metres : CsvHeightUnit::Feet);
        CCsvImportPlan plan = CCsvJumpImport::Plan(table, proposal.mapping, copy, kModified, 0);
        EXPECT_EQ(plan.added, original.GetJumpCount());
        CCsvJumpImport::Apply(plan, copy);
        EXPECT_EQ(CCsvExporter(units).Export(copy), csv);
    }
}

// Counts the document's announcements.
struct CCountingObserver : ILogbookObserver
{
    void JumpsInserted(std::size_t, std::size_t count) override { inserted += count; }
    void JumpsChanged(std::size_t, std::size_t count) override { changed += count; }
    std::size_t inserted = 0, changed = 0;
};

TEST(CsvJumpImport, MergesByNumberAndReplacesOnlyUnsignedJumpsOnRequest)
{
    // The logbook holds jumps 1 (signed) to 7; the file brings 1, 2, 9, 9 again and 10.
    const std::string csv = "Jump #,Date,DZ\n1,2024-01-01,A\n2,2024-01-02,B\n9,2024-02-01,C\n9,2024-02-02,D\n"
                            "10,2024-02-03,E\n";
    const struct
    {
        bool replace;
        std::size_t added, replaced;
        std::vector<int> problems; // per row, 0: taken
        const char* placeOf2;
    } cases[] = {
        {false,
         2,
         0,
         {StringTable::IDS_CSV_NUMBER_TAKEN, StringTable::IDS_CSV_NUMBER_TAKEN, 0, StringTable::IDS_CSV_NUMBER_TWICE,
          0},
         "Utti"},
        {true, 2, 1, {StringTable::IDS_CSV_NUMBER_SIGNED, 0, 0, StringTable::IDS_CSV_NUMBER_TWICE, 0}, "B"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.replace);
        const CScratchFolder dir("csv-merge");
        CLogbookDoc doc;
        LoadFullLogbook(doc, dir);
        const std::size_t before = doc.GetJumpCount();
        CCountingObserver observer;
        doc.AddObserver(&observer);
        const CCsvTable table = Table(csv);
        CCsvMapping mapping = CCsvJumpImport::Propose(table).mapping;
        mapping.replaceUnsigned = c.replace;
        CCsvImportPlan plan = CCsvJumpImport::Plan(table, mapping, doc, kModified, 0);
        std::vector<int> problems;
        for (const CCsvPlannedRow& row : plan.rows)
            problems.push_back(row.problem.id);
        EXPECT_EQ(problems, c.problems);
        EXPECT_EQ(plan.added, c.added);
        EXPECT_EQ(plan.replaced, c.replaced);
        EXPECT_FALSE(doc.IsModified());
        EXPECT_EQ(CCsvJumpImport::Apply(plan, doc), c.added + c.replaced);
        doc.RemoveObserver(&observer);
        EXPECT_TRUE(doc.IsModified());
        EXPECT_EQ(observer.inserted, c.added);
        EXPECT_EQ(observer.changed, c.replaced);
        EXPECT_EQ(doc.GetJumpCount(), before + c.added);
        EXPECT_EQ(doc.GetJump(1).GetPlace(), c.placeOf2);
        EXPECT_EQ(doc.GetJump(0).GetPlace(), "Utti");
        // Number order holds: 9 and 10 come after the 8 jumps of the logbook.
        EXPECT_EQ(doc.GetJumps().back()->GetNumber(), 10);
        EXPECT_EQ(doc.GetJump(doc.GetJumpCount() - 2).GetPlace(), "C");
    }
}

} // namespace
