#include "document/CLogbookDoc.h"

#include "document/IClock.h"
#include "document/ILogbookObserver.h"
#include "document/JumpOrder.h"
#include "document/LogbookFormat.h"
#include "model/JumpElements.h"
#include "resources/StringTable.h"
#include "units/ISettingsStore.h"
#include "xml/CXmlParser.h"
#include "xml/XmlValues.h"

#include <algorithm>

namespace {

#if defined(_WIN32)
constexpr char kSeparator = '\\';
constexpr std::string_view kFolderSeparators = "\\/";
#else
constexpr char kSeparator = '/';
constexpr std::string_view kFolderSeparators = "/";
#endif

} // namespace

CLogbookDoc::CLogbookDoc(ISettingsStore* settings, const IClock* clock) : m_store(settings), m_clock(clock)
{
}

void CLogbookDoc::Clear()
{
    ClearContents();
    Notify([](ILogbookObserver& observer) { observer.LogbookReset(); });
}

void CLogbookDoc::ClearContents()
{
    WaitForCopy();
    m_jumps.clear();
    m_settings.Reset();
    m_path.clear();
    m_fileVersion.clear();
    m_fileIdentity = CFileIdentity();
    m_modified = false;
    ++m_changeCount;
    m_totals = CLogbookTotals();
}

CLoadResult CLogbookDoc::Load(const std::string& name)
{
    // A copy: the caller may pass this document's own path, which Clear empties.
    const std::string path = name;
    ClearContents();
    // Whatever the end, the observers see the document as the load leaves it.
    struct ResetAtEnd
    {
        CLogbookDoc& doc;
        ~ResetAtEnd()
        {
            doc.Notify([](ILogbookObserver& observer) { observer.LogbookReset(); });
        }
    } reset{*this};
    CLoadResult result;
    CXmlParser parser(this);
    parser.SetProgress(m_progress);
    m_rootSeen = false;
    const bool ok = LogbookFormat::IsPlainPath(path) ? parser.ParseFile(path) : parser.ParseGzipFile(path);
    if (!ok) {
        result.message = parser.GetErrorMessage();
        ClearContents();
        return result;
    }
    // A file without any element (empty, or binary data that never forms a tag) is no logbook,
    // although the reader found nothing to refuse in it.
    if (!m_rootSeen) {
        result.message = {StringTable::IDS_NOT_TERVOLA};
        ClearContents();
        return result;
    }
    RecomputeTotals();
    CheckSeals();
    m_path = path;
    m_fileIdentity = parser.GetFileIdentity();
    m_modified = false;
    if (m_store)
        m_store->SetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, path);
    result.ok = true;
    return result;
}

CLoadResult CLogbookDoc::TryLoad(const std::string& path)
{
    CLogbookDoc fresh(m_store, m_clock);
    fresh.SetProgress(m_progress);
    CLoadResult result = fresh.Load(path);
    if (result.ok) {
        SwapContents(fresh);
        Notify([](ILogbookObserver& observer) { observer.LogbookReset(); });
    }
    return result;
}

void CLogbookDoc::Adopt(CLogbookDoc& loaded)
{
    SwapContents(loaded);
    if (m_store && HasPath())
        m_store->SetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, m_path);
    Notify([](ILogbookObserver& observer) { observer.LogbookReset(); });
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
    std::swap(m_totals, other.m_totals);
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

void CLogbookDoc::RecomputeTotals()
{
    m_totals.Recount(m_jumps, m_settings);
}

void CLogbookDoc::CheckSeal(CJump& jump) const
{
    jump.SetSealState(JumpSeal::Check(jump, m_settings));
}

void CLogbookDoc::CheckSeals()
{
    for (const std::unique_ptr<CJump>& jump : m_jumps)
        CheckSeal(*jump);
}

CLogbookSummary CLogbookDoc::GetSummary() const
{
    CLogbookSummary summary;
    summary.freefallSeconds = m_totals.FreefallSeconds() + m_settings.GetPreviousDelay();
    const CJump* last = GetLastJump();
    if (!last)
        return summary;
    // The average per logged jump, extrapolated to the last jump number on purpose.
    const double scale = static_cast<double>(last->GetNumber()) / static_cast<double>(m_jumps.size());
    summary.numberOfJumps = last->GetNumber();
    summary.freefallMetres = static_cast<double>(m_totals.FreefallMetres()) * scale;
    summary.canopyMetres = static_cast<double>(m_totals.CanopyMetres()) * scale;
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
        if (!parser.GetAttribute("version", version) || version > LogbookFormat::kFileVersion) {
            parser.SetErrorMessage({StringTable::IDS_BAD_VERSION, version});
            return false;
        }
        m_rootSeen = true;
        m_fileVersion = version;
        return true;
    }
    if (name == "settings") {
        parser.Delegate(&m_settings);
        return true;
    }
    if (name == JumpElementName(JumpElement::Jump)) {
        int number = 0;
        std::string text;
        CZonedDateTime timestamp;
        CDateTime modified;
        if (!parser.GetAttributeInt("n", number, false) || !parser.GetAttribute("ts", text) ||
            !XmlZonedDateTimeFromString(text, timestamp) || !parser.GetAttribute("mod", text) ||
            !XmlDateTimeFromString(text, modified))
            return false; // the parser names the tag and its attributes in its message
        if (m_jumps.size() >= m_maxJumps) {
            parser.SetErrorMessage(CXmlParser::ParserError("more than " + std::to_string(m_maxJumps) + " jumps"));
            return false;
        }
        parser.Delegate(JumpOrder::InsertSorted(m_jumps, std::make_unique<CJump>(number, timestamp, modified)));
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
