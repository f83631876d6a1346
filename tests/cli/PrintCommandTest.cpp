#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <QProcess>
#include <QString>

namespace {

using PrintCommand = CToolTest;

// The text pdftotext reads from a PDF file in its layout, blanks folded.
std::string PdfText(const std::string& path)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"),
                  {QStringLiteral("-layout"), QString::fromStdString(path), QStringLiteral("-")});
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput()).simplified().toStdString();
}

TEST_F(PrintCommand, WritesTheSelectedJumpsOrRefusesClearly)
{
    const std::string logbook = Write("log.tvl", TestLogbooks::Reference());
    Write("broken.tvl", "<tvl");
    const struct
    {
        const char* name;
        std::vector<std::string> arguments;
        int exitCode;
        std::string out, err;
        std::vector<std::string> inPdf, notInPdf;
    } cases[] = {
        {"All",
         {logbook, "-o", m_dir / "all.pdf", "--units", "metric"},
         0,
         "1 pages written",
         "",
         // Brought forward: the 100 jumps and 10 minutes before the logbook.
         {"498", "499", "500", "Matti Virtanen", "Tervola", "page 1 of 1", "Brought forward 100 0:10:00"},
         {}},
        {"Range",
         {logbook, "-o", m_dir / "range.pdf", "--from", "499", "--to", "499", "--paper", "letter"},
         0,
         "1 pages written",
         "",
         {"499"},
         {"Tervola", "Matti"}},
        {"QueryAndRecordings",
         {logbook, "-o", m_dir / "q.pdf", "dz:Utti", "--recordings"},
         0,
         "2 pages written",
         "",
         {"498", "Jump 498"},
         {"500"}},
        {"Nothing", {logbook, "-o", m_dir / "none.pdf", "--from", "600"}, 1, "", "No jump is selected", {}, {}},
        {"Unreadable", {m_dir / "broken.tvl", "-o", m_dir / "b.pdf"}, 1, "", "could not be opened", {}, {}},
        {"Unwritable", {logbook, "-o", m_dir / "no/such/folder.pdf"}, 1, "", "could not be written", {}, {}},
        {"NoOutput", {logbook}, 2, "", "-o FILE.pdf", {}, {}},
        {"BadPaper", {logbook, "-o", m_dir / "p.pdf", "--paper", "a3"}, 2, "", "\"a3\"", {}, {}},
        {"BadFrom", {logbook, "-o", m_dir / "p.pdf", "--from", "x"}, 2, "", "--from", {}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::string> arguments{"print"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, c.exitCode) << result.err;
        EXPECT_NE(result.out.find(c.out), std::string::npos) << result.out;
        EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
        if (c.exitCode != 0)
            continue;
        const std::string text = PdfText(c.arguments[2]);
        for (const std::string& word : c.inPdf)
            EXPECT_NE(text.find(word), std::string::npos) << word << " not in: " << text;
        for (const std::string& word : c.notInPdf)
            EXPECT_EQ(text.find(word), std::string::npos) << word << " in: " << text;
    }
    // Only the logbooks and the written PDFs: no temporary file is left behind.
    EXPECT_EQ(m_dir.List(), (std::set<std::string>{"all.pdf", "broken.tvl", "log.tvl", "q.pdf", "range.pdf"}));
}

} // namespace
