#include "editing/CCardImportEdit.h"

#include "document/CLogbookDoc.h"
#include "editing/CJumpEdit.h"
#include "resources/StringTable.h"
#include "tracks/TrackTime.h"

#include <algorithm>

std::vector<CKnownExit> CCardImportEdit::KnownExits(const CLogbookDoc& doc)
{
    std::vector<CKnownExit> exits;
    for (const auto& jump : doc.GetJumps()) {
        double utc = 0;
        if (jump->HasTimeOfDay() && UtcFromZoned(jump->GetTimestamp(), utc))
            exits.push_back({utc, jump->GetNumber()});
    }
    return exits;
}

CCardImportEdit::CCardImportEdit(const CLogbookDoc& doc, std::vector<CCardTrack> found)
{
    m_rows.reserve(found.size());
    for (CCardTrack& track : found) {
        Row row;
        const CDateTime day = track.import.jump.exitTime.dateTime.DateOnly();
        for (const auto& jump : doc.GetJumps())
            if (jump->GetTimestamp().dateTime.DateOnly() == day && !jump->GetRecording().IsPresent() &&
                !jump->IsSigned())
                row.candidates.push_back(jump->GetNumber());
        row.track = std::move(track);
        m_rows.push_back(std::move(row));
    }
}

void CCardImportEdit::SetTicked(std::size_t row, bool ticked)
{
    if (row < m_rows.size())
        m_rows[row].ticked = ticked;
}

void CCardImportEdit::SetInto(std::size_t row, int number)
{
    if (row >= m_rows.size())
        return;
    const std::vector<int>& candidates = m_rows[row].candidates;
    if (number == 0 || std::find(candidates.begin(), candidates.end(), number) != candidates.end())
        m_rows[row].into = number;
}

CCheckResult CCardImportEdit::Check() const
{
    if (std::none_of(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.ticked; }))
        return CCheckResult::Fail(StringTable::IDS_CARD_NONE_TICKED, -1);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (!m_rows[i].ticked || m_rows[i].into == 0)
            continue;
        for (std::size_t j = 0; j < i; ++j) {
            if (m_rows[j].ticked && m_rows[j].into == m_rows[i].into)
                return CCheckResult::Fail(StringTable::IDS_CARD_SAME_JUMP, static_cast<int>(i),
                                          std::to_string(m_rows[i].into));
        }
    }
    return CCheckResult::Pass();
}

std::size_t CCardImportEdit::Apply(CLogbookDoc& doc, const CUnitSettings& units, ISettingsStore* store,
                                   const IClock& clock, const std::function<bool(std::size_t, std::size_t)>& progress,
                                   CCheckResult& refused, std::string& error)
{
    if (!Check())
        return 0;
    const std::size_t total = static_cast<std::size_t>(
        std::count_if(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.ticked; }));
    std::size_t done = 0;
    for (const Row& row : m_rows) {
        if (!row.ticked)
            continue;
        if (progress && !progress(done, total))
            break;
        const CJump* target = nullptr;
        if (row.into != 0) {
            for (const auto& jump : doc.GetJumps())
                if (jump->GetNumber() == row.into)
                    target = jump;
            if (!target)
                continue;
        }
        const CImportedJump& imported = row.track.import.jump;
        CJumpEdit edit(doc, units, store, clock, target);
        edit.TakeImport(imported.recording, imported.fallrate, imported.exitTime);
        const CCheckResult check = edit.ValidateAll();
        if (!check) {
            refused = check;
            break;
        }
        const CJumpEdit::ApplyResult applied = edit.Apply();
        if (!applied.ok) {
            error = applied.error;
            break;
        }
        ++done;
    }
    if (progress)
        progress(done, total);
    return done;
}
