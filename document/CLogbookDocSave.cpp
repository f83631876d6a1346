// The saving side of CLogbookDoc: the safe save with its check for changes by other programs,
// the snapshot a save on another thread works on, and the writing of the file's elements.
#include "document/CLogbookDoc.h"

#include "document/CFileLock.h"
#include "document/IClock.h"
#include "document/LogbookFormat.h"
#include "document/SafeFileReplace.h"
#include "resources/StringTable.h"
#include "units/ISettingsStore.h"
#include "xml/CChecksumOutput.h"
#include "xml/CIoProgress.h"
#include "xml/CXmlFileOutput.h"
#include "xml/CXmlGzipOutput.h"
#include "xml/CXmlWriter.h"
#include "xml/IXmlOutput.h"
#include "xml/XmlValues.h"

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <system_error>

namespace {

const IClock& SystemClock()
{
    static const CSystemClock clock;
    return clock;
}

// How long a save waits for another program that is saving the same logbook.
constexpr int kSaveLockWaitMs = 10'000;

// True when the file at path is no longer the one described by known: other bytes, or a file
// that exists but cannot be read. A file that is gone has nothing left to lose.
bool ChangedOnDisk(const std::string& path, const CFileIdentity& known)
{
    std::error_code ec;
    const bool exists = std::filesystem::exists(path, ec);
    if (!exists && !ec)
        return false;
    const auto size = std::filesystem::file_size(path, ec);
    if (!ec && size != known.size)
        return true;
    return !CFileIdentity::Of(path).SameContent(known);
}

// The file output of a save: the bytes that reach the file are summed on their way, compressed
// ones for a gzip logbook. Null when the file cannot be created.
std::unique_ptr<IXmlOutput> SummedFileOutput(const std::string& path, bool gzip, CFileChecksum& checksum,
                                             std::uint64_t& size)
{
    std::unique_ptr<IXmlOutput> file = CXmlFileOutput::Create(path);
    if (!file)
        return nullptr;
    auto summed = std::make_unique<CChecksumOutput>(std::move(file), checksum, size);
    if (!gzip)
        return summed;
    return CXmlGzipOutput::Create(std::move(summed), CXmlGzipOutput::Options());
}

} // namespace

// Held by a document and by its snapshot while the snapshot copies the jumps.
struct CLogbookDoc::CopyGate
{
    std::mutex mutex;
    std::condition_variable done;
    bool copying = false;
};

CLogbookDoc::~CLogbookDoc()
{
    WaitForCopy();
    if (m_copySource) {
        // A snapshot that never copied lets its document's edits go on.
        {
            std::lock_guard<std::mutex> lock(m_copySource->m_copyGate->mutex);
            m_copySource->m_copyGate->copying = false;
        }
        m_copySource->m_copyGate->done.notify_all();
    }
}

void CLogbookDoc::WaitForCopy() const
{
    if (!m_copyGate)
        return;
    std::unique_lock<std::mutex> lock(m_copyGate->mutex);
    m_copyGate->done.wait(lock, [this] { return !m_copyGate->copying; });
}

CSaveResult CLogbookDoc::Save(const std::string& path, SaveCheck check)
{
    const std::uint64_t changeCount = m_changeCount;
    CSaveResult result = WriteFile(path, check);
    SaveFinished(result, changeCount);
    return result;
}

CSaveResult CLogbookDoc::WriteFile(const std::string& path, SaveCheck check)
{
    CSaveResult result;
    result.path = path;
    result.messageId = StringTable::IDS_SAVE_FAILED;
    if (path.empty())
        return result;
    CopyJumps();
    const bool gzip = !LogbookFormat::IsPlainPath(path);
    const std::string temporary = SafeFileReplace::TemporaryPath(path);

    // The temporary file is the save's lock too: while it is locked, no other instance checks
    // or replaces this logbook. One left by a save that was killed is locked and reused.
    CFileLock lock;
    if (lock.Acquire(temporary, kSaveLockWaitMs) != CFileLock::Result::Locked)
        return result;
    if (check == SaveCheck::IfUnchanged && path == m_path && m_fileIdentity.known &&
        ChangedOnDisk(path, m_fileIdentity)) {
        lock.Release(true);
        result.status = SaveStatus::ChangedOnDisk;
        result.messageId = StringTable::IDS_FILE_CHANGED;
        return result;
    }
    SafeFileReplace::RemoveLeftovers(path);

    bool ok = false;
    CFileChecksum checksum;
    std::uint64_t writtenBytes = 0;
    {
        CXmlWriter writer(Utf8, gzip ? XmlGzipFile : XmlPlainFile, Compact | SkipEmpty);
        const bool opened = writer.Open(m_outputFactory ? m_outputFactory(temporary, gzip)
                                                        : SummedFileOutput(temporary, gzip, checksum, writtenBytes));
        if (opened) {
            const bool written = WriteTo(writer);
            const bool closed = writer.Close();
            ok = written && closed && !writer.Failed();
        }
    }
    if (ok && SafeFileReplace::SyncFile(temporary)) {
        // The identity of exactly the bytes that go in place: summed as they were written, or, for
        // an output a test supplied, read back.
        result.identity = m_outputFactory ? CFileIdentity::Of(temporary)
                                          : CFileIdentity::OfWritten(temporary, writtenBytes, checksum.Value());
        ok = result.identity.known && SafeFileReplace::Commit(temporary, path);
    } else {
        ok = false;
    }
    if (!ok) {
        lock.Release(true);
        result.identity = CFileIdentity();
        return result;
    }
    lock.Release(false);
    result.status = SaveStatus::Saved;
    result.messageId = 0;
    return result;
}

void CLogbookDoc::SaveFinished(const CSaveResult& result, std::uint64_t changeCount)
{
    if (!result)
        return;
    m_path = result.path;
    m_fileIdentity = result.identity;
    if (m_changeCount == changeCount)
        m_modified = false;
    if (m_store)
        m_store->SetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, result.path);
}

CSaveResult CLogbookDoc::SaveIfModified()
{
    if (!HasPath() || !m_modified)
        return CSaveResult();
    return Save(m_path);
}

std::unique_ptr<CLogbookDoc> CLogbookDoc::Snapshot()
{
    WaitForCopy();
    if (!m_copyGate)
        m_copyGate = std::make_shared<CopyGate>();
    auto copy = std::make_unique<CLogbookDoc>(nullptr, m_clock);
    copy->m_settings = m_settings;
    {
        std::lock_guard<std::mutex> lock(m_copyGate->mutex);
        m_copyGate->copying = true;
    }
    copy->m_copySource = this;
    copy->m_path = m_path;
    copy->m_fileVersion = m_fileVersion;
    copy->m_fileIdentity = m_fileIdentity;
    copy->m_modified = m_modified;
    copy->m_changeCount = m_changeCount;
    copy->m_outputFactory = m_outputFactory;
    copy->m_maxJumps = m_maxJumps;
    copy->m_progress = m_progress;
    return copy;
}

void CLogbookDoc::CopyJumps()
{
    if (!m_copySource)
        return;
    m_jumps.reserve(m_copySource->m_jumps.size());
    for (const auto& jump : m_copySource->m_jumps)
        m_jumps.push_back(std::make_unique<CJump>(*jump));
    const std::shared_ptr<CopyGate> gate = m_copySource->m_copyGate;
    m_copySource = nullptr;
    {
        std::lock_guard<std::mutex> lock(gate->mutex);
        gate->copying = false;
    }
    gate->done.notify_all();
}

bool CLogbookDoc::WriteTo(CXmlWriter& writer) const
{
    const IClock& clock = m_clock ? *m_clock : SystemClock();
    std::string creator = "Tervola Pocket ";
    creator.append(StringTable::kProductVersion).append(" - ").append(StringTable::kWebAddress);
    writer.StartElement(
        "tvl",
        {{"version", LogbookFormat::kFileVersion}, {"creator", creator}, {"mod", XmlDateTimeToString(clock.Now())}});
    if (m_progress) {
        m_progress->total = m_jumps.size() + 1;
        m_progress->done = 0;
    }
    m_settings.Write(writer);
    writer.StartElement("log", "size", XmlIntToString(static_cast<int>(m_jumps.size()), true));
    std::uint64_t written = 1;
    for (const auto& jump : m_jumps) {
        if (m_progress)
            m_progress->done.store(written++, std::memory_order_relaxed);
        jump->Write(writer);
    }
    writer.EndElement();
    if (m_progress)
        m_progress->done = written;
    return !writer.Failed();
}
