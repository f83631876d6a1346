// The printed logbook on a generated logbook (with a jump whose every text is too long for its
// cell) and on the demo logbook: the page count, every text inside its cell and clear of every
// other, and the PDF read back with pdftotext (each jump's number and signer on its page) and
// pdffonts (every font embedded). Pages are written as PNG files into the folder named by
// TERVOLA_RENDER_DIR, nothing without it.

#include "cli/generator/CGeneratorOptions.h"
#include "cli/generator/CLogbookGenerator.h"
#include "controls/CRecordingPrint.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "model/CJumpSeal.h"
#include "qtformats/CLogbookPageRenderer.h"
#include "qtformats/CLogbookPdf.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <numeric>

namespace {

constexpr int kDpi = 110;

std::vector<std::size_t> AllRows(const CLogbookDoc& doc)
{
    std::vector<std::size_t> rows(doc.GetJumpCount());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    return rows;
}

QSizeF AreaPoints(QPageSize::PageSizeId paper)
{
    return CLogbookPageRenderer::PageLayout(paper).paintRect(QPageLayout::Point).size();
}

// Page page painted at kDpi on white.
QImage PagePicture(CLogbookPageRenderer& renderer, QPageSize::PageSizeId paper, int page)
{
    const double scale = CLogbookPageRenderer::Scale(kDpi);
    const QSizeF area = AreaPoints(paper) * 10.0 * scale;
    QImage image(area.toSize(), QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(kDpi / 0.0254));
    image.setDotsPerMeterY(qRound(kDpi / 0.0254));
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    renderer.PaintPage(painter, page, 720.0 / kDpi);
    return image;
}

void SavePicture(const QImage& image, const QString& name)
{
    const QString folder = qEnvironmentVariable("TERVOLA_RENDER_DIR");
    if (!folder.isEmpty())
        QVERIFY(image.save(QDir(folder).filePath(name)));
}

// The texts of each page that leave their cell or overlap another text, as readable lines.
QStringList LayoutFaults(const std::vector<CLogbookPageRenderer::TextBox>& boxes)
{
    constexpr double slack = 1.0;
    QStringList faults;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const auto& a = boxes[i];
        if (!a.cell.adjusted(-slack, -slack, slack, slack).contains(a.text))
            faults << QStringLiteral("page %1: \"%2\" leaves its cell").arg(a.page + 1).arg(a.content);
        for (std::size_t j = i + 1; j < boxes.size() && boxes[j].page == a.page; ++j) {
            const QRectF overlap = a.text.intersected(boxes[j].text);
            if (overlap.width() > slack && overlap.height() > slack)
                faults << QStringLiteral("page %1: \"%2\" overlaps \"%3\"")
                              .arg(a.page + 1)
                              .arg(a.content, boxes[j].content);
        }
    }
    return faults;
}

QString Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestPageRenderer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        CGeneratorOptions options;
        options.jumps = 75;
        options.recordings = 3;
        options.samples = 300;
        options.seed = 11;
        CLogbookGenerator(options).Fill(m_doc);
        // A jump whose every text is longer than its cell.
        const std::string longText(90, 'W');
        const CZonedDateTime when{CDateTime(2030, 1, 2, 10, 0, 0), 60};
        auto jump = std::make_unique<CJump>(9999, when, when.dateTime);
        jump->SetPlace("Flugplatz " + longText);
        jump->SetAircraft("Pilatus Porter " + longText);
        jump->SetType("Freefly " + longText);
        jump->SetLanding("Zielkreuz " + longText);
        jump->SetEquipmentByDescription("Rig " + longText);
        jump->SetNoteText("First line " + longText + "\r\nsecond line");
        jump->SetFallrate(FallrateKind::Manual, 4500, 900, 5999, 0.0, 0.0);
        jump->SetSignature("Maximiliane " + longText, {{{0, 0}, {400, 10}, {10, 80}}, {{5, 5}}});
        m_doc.AddJump(std::move(jump));
        // A sealed jump whose place changed after signing, with the signer's licence number.
        auto changed = std::make_unique<CJump>(10000, when, when.dateTime);
        changed->SetPlace("Kiviniemi");
        changed->SetSignature("Aino Sealed", {{{0, 0}, {40, 10}}});
        changed->Signature().SetLicence("D-12345");
        changed->SetNoteText("Short note\r\nsecond line");
        changed->Signature().SetId(JumpSeal::Compute(*changed, m_doc.GetSettings()));
        changed->SetPlace("Elsewhere");
        m_doc.AddJump(std::move(changed));
    }

    void pagesKeepEveryTextInItsCell()
    {
        CLogbookPageRenderer renderer(m_doc, AllRows(m_doc), CUnitSettings(CUnitSettings::Metric, 0, 0));
        renderer.SetDetailPages(true, [](QPainter& painter, const QRectF& area, const CJump& jump) {
            CRecordingPrint::Paint(painter, area, jump, CUnitSettings(CUnitSettings::Metric, 0, 0), 96.0 / 720.0);
        });
        for (QPageSize::PageSizeId paper : {QPageSize::A4, QPageSize::Letter}) {
            const int pages = renderer.Layout(AreaPoints(paper));
            int recordings = 0;
            for (std::size_t i = 0; i < m_doc.GetJumpCount(); ++i)
                recordings += m_doc.GetJump(i).GetRecording().IsPresent() ? 1 : 0;
            QVERIFY(recordings > 0);
            QCOMPARE(pages, CLogbookPagePlan::RowPageCount(m_doc.GetJumpCount(), renderer.RowsPerPage()) + recordings);
            QVERIFY2(renderer.RowsPerPage() >= 10, qPrintable(QString::number(renderer.RowsPerPage())));

            renderer.RecordTextBoxes(true);
            int firstDetail = -1;
            for (int page = 0; page < pages; ++page) {
                const QImage image = PagePicture(renderer, paper, page);
                const bool detail = renderer.Pages()[static_cast<std::size_t>(page)].kind == CPrintedPage::Detail;
                if (detail && firstDetail < 0)
                    firstDetail = page;
                if (paper == QPageSize::A4 && (page == 0 || page == pages - 1 || page == firstDetail))
                    SavePicture(image, QStringLiteral("print_page_%1.png").arg(page + 1));
            }
            // A note's row shows its first line only.
            for (const CLogbookPageRenderer::TextBox& box : renderer.TextBoxes())
                QVERIFY2(!box.content.contains(QStringLiteral("second line")), qPrintable(box.content));
            const QStringList faults = LayoutFaults(renderer.TextBoxes());
            QVERIFY2(faults.isEmpty(), qPrintable(faults.mid(0, 10).join(QLatin1Char('\n'))));
            renderer.RecordTextBoxes(false);
        }
    }

    void pdfHoldsEachJumpAsTextWithEmbeddedFonts()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("logbook.pdf"));
        CLogbookPageRenderer renderer(m_doc, AllRows(m_doc), CUnitSettings(CUnitSettings::Imperial, 0, 0));
        QString error;
        QVERIFY2(CLogbookPdf::Write(renderer, path, QPageSize::A4, {}, error), qPrintable(error));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("logbook.pdf")});

        const QStringList pages =
            Run(QStringLiteral("pdftotext"), {path, QStringLiteral("-")}).split(QLatin1Char('\f'));
        QVERIFY(pages.size() >= renderer.PageCount());
        QStringList missing;
        for (int p = 0; p < renderer.PageCount(); ++p) {
            const CPrintedPage& page = renderer.Pages()[static_cast<std::size_t>(p)];
            // The extractor may break a name at a cell's edge: names are compared without blanks.
            const QString words = pages[p].simplified();
            const QString text = QString(words).remove(QLatin1Char(' '));
            for (std::size_t r = page.first; r < page.first + page.count; ++r) {
                const CJump& jump = m_doc.GetJump(r);
                const QString number = QString::number(jump.GetNumber());
                QString signer = QString::fromStdString(jump.GetSignature().GetName()).remove(QLatin1Char(' '));
                if (signer.size() > 20)
                    signer.truncate(8);
                if (!QRegularExpression(QStringLiteral("\\b%1\\b").arg(number)).match(words).hasMatch() ||
                    !text.contains(signer))
                    missing << QStringLiteral("page %1: jump %2 / %3").arg(p + 1).arg(number, signer);
            }
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.mid(0, 10).join(QLatin1Char('\n'))));
        // The signature cell of the jump changed after signing says so, under its licence number.
        const QString last = pages[renderer.PageCount() - 1].simplified();
        QVERIFY2(last.contains(QStringLiteral("Licence D-12345")) &&
                     last.contains(QStringLiteral("changed after signing")),
                 qPrintable(last));

        const QStringList fonts = Run(QStringLiteral("pdffonts"), {path}).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QVERIFY(fonts.size() > 2);
        for (const QString& line : fonts.mid(2))
            QVERIFY2(line.contains(QRegularExpression(QStringLiteral("\\byes\\s+(yes|no)\\s+(yes|no)\\s+\\d+"))),
                     qPrintable(line));
    }

    void demoLogbookPage()
    {
        CLogbookDoc demo;
        QVERIFY(demo.Load(TERVOLA_DEMO).ok);
        CLogbookPageRenderer renderer(demo, AllRows(demo), CUnitSettings(CUnitSettings::Metric, 0, 0));
        renderer.RecordTextBoxes(true);
        const int pages = renderer.Layout(AreaPoints(QPageSize::A4));
        QVERIFY(pages >= 1);
        SavePicture(PagePicture(renderer, QPageSize::A4, pages - 1), QStringLiteral("print_demo_last.png"));
        const QStringList faults = LayoutFaults(renderer.TextBoxes());
        QVERIFY2(faults.isEmpty(), qPrintable(faults.mid(0, 10).join(QLatin1Char('\n'))));
    }

private:
    CLogbookDoc m_doc;
};

QTEST_MAIN(TestPageRenderer)
#include "PageRendererTest.moc"
