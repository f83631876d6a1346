// The change methods of CLogbookDoc: every change of a jump or of the settings passes here, so
// that totals, number order, a running save's copy and the observers are always looked after.

#include "document/CLogbookDoc.h"

#include "document/ILogbookObserver.h"
#include "document/JumpOrder.h"

#include <algorithm>

namespace {

// Calls announce(first, count) for each run of consecutive indexes in sorted, announced from the
// last run to the first when backwards is set.
template <typename Announce>
void ForEachRun(const std::vector<std::size_t>& sorted, bool backwards, Announce announce)
{
    std::vector<std::pair<std::size_t, std::size_t>> runs;
    for (std::size_t i = 0; i < sorted.size();) {
        std::size_t j = i + 1;
        while (j < sorted.size() && sorted[j] == sorted[j - 1] + 1)
            ++j;
        runs.emplace_back(sorted[i], j - i);
        i = j;
    }
    if (backwards)
        std::reverse(runs.begin(), runs.end());
    for (const auto& [first, count] : runs)
        announce(first, count);
}

} // namespace

void CLogbookDoc::AddObserver(ILogbookObserver* observer)
{
    if (observer && std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end())
        m_observers.push_back(observer);
}

void CLogbookDoc::RemoveObserver(ILogbookObserver* observer)
{
    m_observers.erase(std::remove(m_observers.begin(), m_observers.end(), observer), m_observers.end());
}

void CLogbookDoc::Notify(const std::function<void(ILogbookObserver&)>& call)
{
    const std::vector<ILogbookObserver*> observers = m_observers;
    for (ILogbookObserver* observer : observers) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            call(*observer);
    }
}

void CLogbookDoc::Touch()
{
    ++m_changeCount;
    m_modified = true;
}

const CJump* CLogbookDoc::AddJump(std::unique_ptr<CJump> jump)
{
    if (!jump)
        return nullptr;
    WaitForCopy();
    CheckSeal(*jump);
    const std::size_t at = JumpOrder::InsertPosition(m_jumps, jump->GetNumber());
    const CJump* added = m_jumps.insert(m_jumps.begin() + static_cast<std::ptrdiff_t>(at), std::move(jump))->get();
    m_totals.Add(*added, m_settings);
    Touch();
    Notify([at](ILogbookObserver& observer) { observer.JumpsInserted(at, 1); });
    return added;
}

bool CLogbookDoc::ChangeJump(std::size_t index, const JumpChange& change)
{
    if (index >= m_jumps.size() || !change)
        return false;
    WaitForCopy();
    CJump& jump = *m_jumps[index];
    m_totals.Remove(jump, m_settings);
    bool changed = false;
    try {
        changed = change(jump);
    } catch (...) {
        // Half-changed: the totals count it as it is now, and the observers show it.
        RecomputeTotals();
        CheckSeal(jump);
        Touch();
        Notify([index](ILogbookObserver& observer) { observer.JumpsChanged(index, 1); });
        throw;
    }
    m_totals.Add(jump, m_settings);
    if (changed)
        CheckSeal(jump);

    // A changed number may put the jump out of order; only then is it moved.
    const int number = jump.GetNumber();
    const bool afterPrevious = index == 0 || m_jumps[index - 1]->GetNumber() <= number;
    const bool beforeNext = index + 1 == m_jumps.size() || number <= m_jumps[index + 1]->GetNumber();
    if (afterPrevious && beforeNext) {
        if (!changed)
            return false;
        Touch();
        Notify([index](ILogbookObserver& observer) { observer.JumpsChanged(index, 1); });
        return true;
    }
    std::unique_ptr<CJump> moved = std::move(m_jumps[index]);
    m_jumps.erase(m_jumps.begin() + static_cast<std::ptrdiff_t>(index));
    const std::size_t to = JumpOrder::InsertPosition(m_jumps, number);
    m_jumps.insert(m_jumps.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    Touch();
    Notify([index, to](ILogbookObserver& observer) {
        observer.JumpMoved(index, to);
        observer.JumpsChanged(to, 1);
    });
    return true;
}

std::unique_ptr<CJump> CLogbookDoc::RemoveJump(std::size_t index)
{
    if (index >= m_jumps.size())
        return nullptr;
    WaitForCopy();
    std::unique_ptr<CJump> jump = std::move(m_jumps[index]);
    m_jumps.erase(m_jumps.begin() + static_cast<std::ptrdiff_t>(index));
    m_totals.Remove(*jump, m_settings);
    Touch();
    Notify([index](ILogbookObserver& observer) { observer.JumpsRemoved(index, 1); });
    return jump;
}

std::size_t CLogbookDoc::RemoveJumps(std::vector<std::size_t> indexes)
{
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    indexes.erase(std::lower_bound(indexes.begin(), indexes.end(), m_jumps.size()), indexes.end());
    if (indexes.empty())
        return 0;
    WaitForCopy();
    for (std::size_t index : indexes)
        m_totals.Remove(*m_jumps[index], m_settings);
    // One pass keeps the survivors in order, however many go.
    std::size_t kept = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < m_jumps.size(); ++i) {
        if (next < indexes.size() && indexes[next] == i) {
            ++next;
            continue;
        }
        m_jumps[kept++] = std::move(m_jumps[i]);
    }
    m_jumps.resize(kept);
    Touch();
    // From the end backwards, each run's positions are still those it had before its removal.
    ForEachRun(indexes, true, [this](std::size_t first, std::size_t count) {
        Notify([first, count](ILogbookObserver& observer) { observer.JumpsRemoved(first, count); });
    });
    return indexes.size();
}

bool CLogbookDoc::ReplaceSettings(const CLogbookSettings& settings)
{
    if (settings == m_settings)
        return false;
    // The seals cover what a jump shows of the rigs and of the custom fall rate.
    const bool sealsFollow =
        !(settings.GetEquipmentList() == m_settings.GetEquipmentList()) ||
        settings.FallrateSpeed(FallrateKind::Custom) != m_settings.FallrateSpeed(FallrateKind::Custom);
    // The snapshot of a running save has its own copy of the settings; it need only be waited
    // for when the jumps' seal states change.
    if (sealsFollow)
        WaitForCopy();
    m_settings = settings;
    RecomputeTotals();
    if (sealsFollow)
        CheckSeals();
    Touch();
    Notify([](ILogbookObserver& observer) { observer.SettingsChanged(); });
    return true;
}

bool CLogbookDoc::ReplaceEquipment(const CEquipmentList& rigs, const std::vector<int>& newPositions)
{
    const CEquipmentList& old = m_settings.GetEquipmentList();
    const std::size_t oldCount = old.GetCount();
    WaitForCopy();
    std::vector<std::size_t> changedJumps;
    for (std::size_t i = 0; i < m_jumps.size(); ++i) {
        CJump& jump = *m_jumps[i];
        const CJumpEquipmentRef& ref = jump.GetEquipmentRef();
        if (ref.mode != CJumpEquipmentRef::ByIndex || ref.index < 0 || static_cast<std::size_t>(ref.index) >= oldCount)
            continue;
        const auto from = static_cast<std::size_t>(ref.index);
        const int to = from < newPositions.size() ? newPositions[from] : -1;
        const bool changed =
            to < 0 ? jump.SetEquipmentByDescription(old.Get(from).GetDisplayText()) : jump.SetEquipmentByIndex(to);
        if (changed)
            changedJumps.push_back(i);
    }
    const bool rigsChanged = !(old == rigs);
    if (rigsChanged)
        m_settings.GetEquipmentList() = rigs;
    CheckSeals();
    if (changedJumps.empty() && !rigsChanged)
        return false;
    Touch();
    ForEachRun(changedJumps, false, [this](std::size_t first, std::size_t count) {
        Notify([first, count](ILogbookObserver& observer) { observer.JumpsChanged(first, count); });
    });
    if (rigsChanged)
        Notify([](ILogbookObserver& observer) { observer.SettingsChanged(); });
    return true;
}
