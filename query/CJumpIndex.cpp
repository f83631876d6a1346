#include "query/CJumpIndex.h"

#include "document/CLogbookDoc.h"
#include "query/FoldText.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

// Whether the folded words needle (" w1 w2") occur in haystack. The needle's blank is frequent
// and its first letter rare, so the scan looks for the letter and then checks the blank before it.
bool Contains(std::string_view haystack, std::string_view needle)
{
    const char* at = haystack.data();
    const char* const end = at + haystack.size();
    const std::size_t length = needle.size();
    if (length < 2 || haystack.size() < length)
        return length == 0;
    const char first = needle[1];
    for (const char* p = at + 1; end - p >= static_cast<std::ptrdiff_t>(length - 1);) {
        p = static_cast<const char*>(std::memchr(p, first, static_cast<std::size_t>(end - p) - (length - 2)));
        if (!p)
            return false;
        if (p[-1] == ' ' && std::memcmp(p + 1, needle.data() + 2, length - 2) == 0)
            return true;
        ++p;
    }
    return false;
}

// Cheap terms first, so that the text search runs only on jumps the numbers let through.
int Cost(const CQueryTerm& term)
{
    if (term.kind != CQueryTerm::Text)
        return 0;
    return term.field == QueryField::Any ? 2 : 1;
}

} // namespace

CJumpIndex::CJumpIndex(const CLogbookDoc& doc) : m_doc(doc)
{
    Rebuild();
}

CJumpIndex::Entry CJumpIndex::MakeEntry(const CJump& jump) const
{
    const CLogbookSettings& settings = m_doc.GetSettings();
    const CEquipmentList& rigs = settings.GetEquipmentList();
    Entry entry;
    std::string scratch;
    for (std::size_t f = 0; f < kFields; ++f) {
        entry.starts[f] = static_cast<std::uint32_t>(entry.text.size());
        AppendFoldedText(JumpFieldText(jump, kQueryFieldSources[f], settings, scratch), entry.text);
        entry.text += '\n';
    }
    entry.starts[kFields] = static_cast<std::uint32_t>(entry.text.size());
    entry.signature = WordStartSignature(entry.text);

    for (std::size_t n = 0; n < entry.numbers.size(); ++n) {
        double value = 0;
        const bool present = JumpFieldNumber(jump, kQueryNumberSources[n], settings, value);
        // A jump without a valid date is found by no date.
        entry.numbers[n] =
            kQueryNumberSources[n] == JumpField::Date && !present ? kNoDay : static_cast<std::int32_t>(value);
    }

    const auto flag = [&entry](bool on, std::uint32_t bit) { entry.flags |= on ? bit : 0u; };
    flag(jump.IsSigned(), kFlagSigned);
    flag(jump.GetSealState() == SealState::Intact, kFlagSealIntact);
    flag(jump.GetSealState() == SealState::Changed, kFlagSealChanged);
    flag(jump.GetSealState() == SealState::Unsealed, kFlagUnsealed);
    flag(jump.GetRecording().IsPresent(), kFlagRecording);
    flag(!jump.GetNote().empty(), kFlagNote);
    flag(!jump.GetImages().empty(), kFlagPicture);
    flag(!jump.GetVideo().name.empty(), kFlagVideo);
    flag(jump.GetWind().IsSet(), kFlagWind);
    flag(!jump.GetMalfunction().empty(), kFlagMalfunction);
    entry.kind = static_cast<std::int32_t>(jump.GetFallrateKind());
    const CJumpEquipmentRef& ref = jump.GetEquipmentRef();
    if (ref.mode == CJumpEquipmentRef::ByIndex && ref.index >= 0 &&
        static_cast<std::size_t>(ref.index) < rigs.GetCount())
        entry.rig = rigs.Get(static_cast<std::size_t>(ref.index)).GetNumber();
    return entry;
}

bool CJumpIndex::Holds(const Prepared& prepared, const Entry& entry)
{
    const CQueryTerm& term = *prepared.term;
    bool holds = false;
    switch (term.kind) {
    case CQueryTerm::Text: {
        if (!SignatureCovers(entry.signature, prepared.signature))
            break;
        std::string_view text = entry.text;
        if (term.field != QueryField::Any) {
            const auto f = static_cast<std::size_t>(term.field);
            text = text.substr(entry.starts[f], entry.starts[f + 1] - entry.starts[f]);
        }
        holds = Contains(text, term.needle);
        break;
    }
    case CQueryTerm::Range: {
        const std::int32_t value = entry.numbers[static_cast<std::size_t>(term.number)];
        holds = !(term.number == QueryNumber::Day && value == kNoDay) && term.low <= value && value <= term.high;
        break;
    }
    case CQueryTerm::Equals:
        holds = (term.equality == CQueryTerm::FallrateKind ? entry.kind : entry.rig) == term.value;
        break;
    case CQueryTerm::Flag:
        holds = (entry.flags & term.flag) != 0;
        break;
    }
    return holds != term.negated;
}

std::vector<CJumpIndex::Prepared> CJumpIndex::Prepare(const CQuery& query)
{
    std::vector<Prepared> terms;
    for (const CQueryTerm& term : query.terms)
        terms.push_back({&term, term.kind == CQueryTerm::Text ? WordStartSignature(term.needle) : WordSignature{}});
    std::stable_sort(terms.begin(), terms.end(),
                     [](const Prepared& a, const Prepared& b) { return Cost(*a.term) < Cost(*b.term); });
    return terms;
}

bool CJumpIndex::Matches(const CQuery& query, std::size_t position) const
{
    const Entry& entry = m_entries.at(position);
    const std::vector<Prepared> terms = Prepare(query);
    return std::all_of(terms.begin(), terms.end(), [&](const Prepared& term) { return Holds(term, entry); });
}

std::vector<std::size_t> CJumpIndex::Find(const CQuery& query) const
{
    const std::vector<Prepared> terms = Prepare(query);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const Entry& entry = m_entries[i];
        if (std::all_of(terms.begin(), terms.end(), [&](const Prepared& term) { return Holds(term, entry); }))
            found.push_back(i);
    }
    return found;
}

void CJumpIndex::Rebuild()
{
    m_entries.clear();
    m_entries.reserve(m_doc.GetJumpCount());
    for (const auto& jump : m_doc.GetJumps())
        m_entries.push_back(MakeEntry(*jump));
}

void CJumpIndex::JumpsInserted(std::size_t first, std::size_t count)
{
    std::vector<Entry> added;
    added.reserve(count);
    for (std::size_t i = first; i < first + count; ++i)
        added.push_back(MakeEntry(*m_doc.GetJumps()[i]));
    m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(first), std::make_move_iterator(added.begin()),
                     std::make_move_iterator(added.end()));
}

void CJumpIndex::JumpsChanged(std::size_t first, std::size_t count)
{
    for (std::size_t i = first; i < first + count; ++i)
        m_entries.at(i) = MakeEntry(*m_doc.GetJumps()[i]);
}

void CJumpIndex::JumpsRemoved(std::size_t first, std::size_t count)
{
    if (first > m_entries.size())
        return;
    count = std::min(count, m_entries.size() - first);
    const auto begin = m_entries.begin() + static_cast<std::ptrdiff_t>(first);
    m_entries.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
}

void CJumpIndex::JumpMoved(std::size_t from, std::size_t to)
{
    if (from >= m_entries.size() || to >= m_entries.size()) {
        Rebuild();
        return;
    }
    const auto at = [this](std::size_t i) { return m_entries.begin() + static_cast<std::ptrdiff_t>(i); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else if (to < from)
        std::rotate(at(to), at(from), at(from + 1));
    // The jump changed on its way: its number at least.
    m_entries.at(to) = MakeEntry(*m_doc.GetJumps()[to]);
}

void CJumpIndex::SettingsChanged()
{
    Rebuild();
}

void CJumpIndex::LogbookReset()
{
    Rebuild();
}
