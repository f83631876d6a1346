#include "document/CLogbookDoc.h"

#include "document/CFileLock.h"
#include "document/IClock.h"
#include "document/SafeFileReplace.h"
#include "document/SettingsReader.h"
#include "resources/StringTable.h"
#include "units/ISettingsStore.h"
#include "xml/CIoProgress.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/IXmlOutput.h"
#include "xml/XmlValues.h"

#include <algorithm>
#include <cctype>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <system_error>

namespace {

// The newest file version this program reads and the one it writes.
constexpr std::string_view kFileVersion = "1.2";
constexpr std::string_view kLastFileSection = "General";
constexpr std::string_view kLastFileValue = "LastFile";

#if defined(_WIN32)
constexpr char kSeparator = '\\';
constexpr std::string_view kFolderSeparators = "\\/";
#else
constexpr char kSeparator = '/';
constexpr std::string_view kFolderSeparators = "/";
#endif

// A path ending in ".tvl" (any case) is plain XML; every other path is a gzip stream.
bool IsPlainPath(const std::string& path)
{
    if (path.size() < 4)
        return false;
    std::string ending = path.substr(path.size() - 4);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending == ".tvl";
}

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

} // namespace

CLogbookDoc::CLogbookDoc(ISettingsStore* settings, const IClock* clock)
    : m_store(settings), m_clock(clock), m_settingsReader(std::make_unique<SettingsReader>(m_settings))
{
}

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

void CLogbookDoc::Clear()
{
    WaitForCopy();
    m_jumps.clear();
    m_settings.Reset();
    m_path.clear();
    m_fileVersion.clear();
    m_fileIdentity = CFileIdentity();
    m_modified = false;
    ++m_changeCount;
    m_totalFreefallTime = 0;
    m_totalFreefallDistance = 0;
    m_totalCanopyDistance = 0;
}

CLoadResult CLogbookDoc::Load(const std::string& name)
{
    // A copy: the caller may pass this document's own path, which Clear empties.
    const std::string path = name;
    Clear();
    CLoadResult result;
    CXmlParser parser(this);
    parser.SetProgress(m_progress);
    m_rootSeen = false;
    const bool ok = IsPlainPath(path) ? parser.ParseFile(path) : parser.ParseGzipFile(path);
    if (!ok) {
        result.message = parser.GetErrorMessage();
        Clear();
        return result;
    }
    // A file without any element (empty, or binary data that never forms a tag) is no logbook,
    // although the reader found nothing to refuse in it.
    if (!m_rootSeen) {
        result.message = StringTable::Text(StringTable::IDS_NOT_TERVOLA);
        Clear();
        return result;
    }
    RecomputeTotals();
    m_path = path;
    m_fileIdentity = parser.GetFileIdentity();
    m_modified = false;
    if (m_store)
        m_store->SetString(kLastFileSection, kLastFileValue, path);
    result.ok = true;
    return result;
}

CLoadResult CLogbookDoc::TryLoad(const std::string& path)
{
    CLogbookDoc fresh(m_store, m_clock);
    fresh.SetProgress(m_progress);
    CLoadResult result = fresh.Load(path);
    if (result.ok)
        SwapContents(fresh);
    return result;
}

void CLogbookDoc::Adopt(CLogbookDoc& loaded)
{
    SwapContents(loaded);
    if (m_store && HasPath())
        m_store->SetString(kLastFileSection, kLastFileValue, m_path);
}

void CLogbookDoc::SwapContents(CLogbookDoc& other)
{
    WaitForCopy();
    std::swap(m_path, other.m_path);
    std::swap(m_fileVersion, other.m_fileVersion);
    std::swap(m_fileIdentity, other.m_fileIdentity);
    std::swap(m_modified, other.m_modified);
    ++m_changeCount;
    std::swap(m_settings, other.m_settings);
    std::swap(m_jumps, other.m_jumps);
    std::swap(m_totalFreefallTime, other.m_totalFreefallTime);
    std::swap(m_totalFreefallDistance, other.m_totalFreefallDistance);
    std::swap(m_totalCanopyDistance, other.m_totalCanopyDistance);
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
    const bool gzip = !IsPlainPath(path);
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
    {
        CXmlWriter writer(Utf8, gzip ? XmlGzipFile : XmlPlainFile, Compact | SkipEmpty);
        const bool opened = m_outputFactory ? writer.Open(m_outputFactory(temporary, gzip)) : writer.Open(temporary);
        if (opened) {
            const bool written = WriteTo(writer);
            const bool closed = writer.Close();
            ok = written && closed && !writer.Failed();
        }
    }
    if (ok && SafeFileReplace::SyncFile(temporary)) {
        // Read back from the disk cache: the identity of exactly the bytes that go in place.
        result.identity = CFileIdentity::Of(temporary);
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
        m_store->SetString(kLastFileSection, kLastFileValue, result.path);
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
    writer.StartElement("tvl", {{"version", kFileVersion},
                                {"creator", creator},
                                {"mod", XmlDateTimeToString(clock.Now())}});
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

int CLogbookDoc::IndexOf(const CJump* jump) const
{
    for (std::size_t i = 0; i < m_jumps.size(); ++i) {
        if (m_jumps[i].get() == jump)
            return static_cast<int>(i);
    }
    return -1;
}

bool CLogbookDoc::HasJumpNumber(int number, const CJump* except) const
{
    return std::any_of(m_jumps.begin(), m_jumps.end(), [&](const std::unique_ptr<CJump>& jump) {
        return jump.get() != except && jump->GetNumber() == number;
    });
}

namespace {

// Inserts before the first jump whose number is greater, so equal numbers keep their order.
CJump* InsertSorted(std::vector<std::unique_ptr<CJump>>& jumps, std::unique_ptr<CJump> jump)
{
    const int number = jump->GetNumber();
    auto at = std::upper_bound(jumps.begin(), jumps.end(), number,
                               [](int n, const std::unique_ptr<CJump>& other) { return n < other->GetNumber(); });
    return jumps.insert(at, std::move(jump))->get();
}

} // namespace

CJump* CLogbookDoc::AddJump(std::unique_ptr<CJump> jump)
{
    if (!jump)
        return nullptr;
    WaitForCopy();
    CJump* added = InsertSorted(m_jumps, std::move(jump));
    ++m_changeCount;
    m_totalFreefallTime += added->FreefallTime(m_settings);
    m_totalFreefallDistance += added->GetFreefallDistance();
    m_totalCanopyDistance += added->GetOpenHeight();
    m_modified = true;
    return added;
}

std::unique_ptr<CJump> CLogbookDoc::RemoveJump(std::size_t index)
{
    if (index >= m_jumps.size())
        return nullptr;
    WaitForCopy();
    std::unique_ptr<CJump> jump = std::move(m_jumps[index]);
    m_jumps.erase(m_jumps.begin() + static_cast<std::ptrdiff_t>(index));
    ++m_changeCount;
    m_totalFreefallTime -= jump->FreefallTime(m_settings);
    m_totalFreefallDistance -= jump->GetFreefallDistance();
    m_totalCanopyDistance -= jump->GetOpenHeight();
    m_modified = true;
    return jump;
}

void CLogbookDoc::BeginChangeJump(const CJump* jump)
{
    if (!jump)
        return;
    WaitForCopy();
    ++m_changeCount;
    m_totalFreefallTime -= jump->FreefallTime(m_settings);
    m_totalFreefallDistance -= jump->GetFreefallDistance();
    m_totalCanopyDistance -= jump->GetOpenHeight();
}

void CLogbookDoc::EndChangeJump(CJump* jump)
{
    if (!jump)
        return;
    ++m_changeCount;
    m_totalFreefallTime += jump->FreefallTime(m_settings);
    m_totalFreefallDistance += jump->GetFreefallDistance();
    m_totalCanopyDistance += jump->GetOpenHeight();

    // A changed number may put the jump out of order; only then is it moved.
    const int index = IndexOf(jump);
    if (index < 0)
        return;
    const auto i = static_cast<std::size_t>(index);
    const int number = jump->GetNumber();
    const bool afterPrevious = i == 0 || m_jumps[i - 1]->GetNumber() <= number;
    const bool beforeNext = i + 1 == m_jumps.size() || number <= m_jumps[i + 1]->GetNumber();
    if (afterPrevious && beforeNext)
        return;
    std::unique_ptr<CJump> moved = std::move(m_jumps[i]);
    m_jumps.erase(m_jumps.begin() + index);
    InsertSorted(m_jumps, std::move(moved));
}

void CLogbookDoc::RecomputeTotals()
{
    m_totalFreefallTime = 0;
    m_totalFreefallDistance = 0;
    m_totalCanopyDistance = 0;
    for (const auto& jump : m_jumps) {
        m_totalFreefallTime += jump->FreefallTime(m_settings);
        m_totalFreefallDistance += jump->GetFreefallDistance();
        m_totalCanopyDistance += jump->GetOpenHeight();
    }
}

CLogbookSummary CLogbookDoc::GetSummary() const
{
    CLogbookSummary summary;
    summary.freefallSeconds = m_totalFreefallTime + m_settings.GetPreviousDelay();
    const CJump* last = GetLastJump();
    if (!last)
        return summary;
    // The average per logged jump, extrapolated to the last jump number on purpose.
    const double scale = static_cast<double>(last->GetNumber()) / static_cast<double>(m_jumps.size());
    summary.numberOfJumps = last->GetNumber();
    summary.freefallMetres = static_cast<double>(m_totalFreefallDistance) * scale;
    summary.canopyMetres = static_cast<double>(m_totalCanopyDistance) * scale;
    summary.lastJump = last->GetTimestamp().dateTime.DateOnly();
    return summary;
}

std::string CLogbookDoc::ResolveMediaPath(std::string_view name) const
{
    const std::size_t cut = m_path.find_last_of(kFolderSeparators);
    if (name.empty() || cut == std::string::npos)
        return std::string(name);
    std::string resolved = m_path.substr(0, cut);
    resolved += kSeparator;
    for (char c : name)
        resolved += (c == '\\' || c == '/') ? kSeparator : c;
    return resolved;
}

bool CLogbookDoc::OnOpenTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    if (name == "tvl") {
        // Plain character-code comparison, so "1.10" passes and "1.3" does not.
        std::string version;
        if (!parser.GetAttribute("version", version) || version > kFileVersion) {
            parser.SetErrorMessage(StringTable::Format(StringTable::IDS_BAD_VERSION, version));
            return false;
        }
        m_rootSeen = true;
        m_fileVersion = version;
        return true;
    }
    if (name == "settings") {
        parser.Delegate(m_settingsReader.get());
        return true;
    }
    if (name == "jump") {
        int number = 0;
        std::string text;
        CZonedDateTime timestamp;
        CDateTime modified;
        if (!parser.GetAttributeInt("n", number, false) || !parser.GetAttribute("ts", text) ||
            !XmlZonedDateTimeFromString(text, timestamp) || !parser.GetAttribute("mod", text) ||
            !XmlDateTimeFromString(text, modified))
            return false;   // the parser names the tag and its attributes in its message
        if (m_jumps.size() >= m_maxJumps) {
            parser.SetErrorMessage(StringTable::Format(StringTable::IDS_PARSER_ERROR,
                                                       "more than " + std::to_string(m_maxJumps) + " jumps"));
            return false;
        }
        parser.Delegate(InsertSorted(m_jumps, std::make_unique<CJump>(number, timestamp, modified)));
        return true;
    }
    if (name == "log")
        return true;
    parser.SetErrorMessage(StringTable::IDS_NOT_TERVOLA);
    return false;
}

bool CLogbookDoc::OnCloseTag(CXmlParser&)
{
    return true;
}
