#include "qtformats/CLogbookPdf.h"

#include "qtformats/CLogbookPageRenderer.h"

#include <QCoreApplication>
#include <QPdfWriter>
#include <QSaveFile>

CLogbookPdf::CLogbookPdf(CLogbookPageRenderer& renderer, QString path, QPageSize::PageSizeId paper)
    : m_renderer(renderer), m_path(std::move(path)), m_paper(paper)
{
}

CLogbookPdf::~CLogbookPdf()
{
    Cancel();
}

bool CLogbookPdf::Begin()
{
    m_file = std::make_unique<QSaveFile>(m_path);
    if (!m_file->open(QIODevice::WriteOnly)) {
        m_error = m_file->errorString();
        m_file.reset();
        return false;
    }
    m_writer = std::make_unique<QPdfWriter>(m_file.get());
    m_writer->setPageLayout(CLogbookPageRenderer::PageLayout(m_paper));
    // 600 dpi: the coordinates stay small numbers, and no printer shows finer.
    m_writer->setResolution(600);
    m_writer->setCreator(QCoreApplication::applicationName());
    m_writer->setTitle(QCoreApplication::translate("CLogbookPdf", "Logbook"));
    if (!m_renderer.Begin(*m_writer)) {
        m_error = m_file->errorString();
        Cancel();
        return false;
    }
    return true;
}

bool CLogbookPdf::Next()
{
    if (m_renderer.PaintNext())
        return true;
    m_error = m_file ? m_file->errorString() : QString();
    return false;
}

bool CLogbookPdf::IsDone() const
{
    return m_renderer.IsDone();
}

bool CLogbookPdf::Commit()
{
    if (!m_file)
        return false;
    const bool painted = m_renderer.End();
    m_writer.reset();
    if (!painted || m_file->error() != QFileDevice::NoError || !m_file->commit()) {
        m_error = m_file->errorString();
        Cancel();
        return false;
    }
    m_file.reset();
    return true;
}

void CLogbookPdf::Cancel()
{
    if (m_writer) {
        m_renderer.End();
        m_writer.reset();
    }
    if (m_file) {
        m_file->cancelWriting();
        m_file.reset();
    }
}

bool CLogbookPdf::Write(CLogbookPageRenderer& renderer, const QString& path, QPageSize::PageSizeId paper,
                        const std::function<bool(int, int)>& progress, QString& error)
{
    CLogbookPdf pdf(renderer, path, paper);
    if (!pdf.Begin()) {
        error = pdf.Error();
        return false;
    }
    while (!pdf.IsDone()) {
        if (!pdf.Next()) {
            error = pdf.Error();
            return false;
        }
        if (progress && !progress(renderer.PagesDone(), renderer.PageCount())) {
            error.clear();
            return false;
        }
    }
    if (!pdf.Commit()) {
        error = pdf.Error();
        return false;
    }
    return true;
}
