#pragma once

#include "document/ILogbookObserver.h"
#include "query/CQuery.h"
#include "query/FoldText.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

class CJump;
class CLogbookDoc;

// What a search needs of every jump of a document, kept in list order: the text fields folded
// for word-prefix search, the numbers the range terms compare, the flags, the fall-rate kind and
// the rig's number. Built once when made (or on LogbookReset) and kept current through the
// document's change notifications, so a search never parses a note or computes a freefall time.
class CJumpIndex : public ILogbookObserver
{
public:
    // Indexes every jump of doc (kept by reference; it must outlive the index).
    explicit CJumpIndex(const CLogbookDoc& doc);

    // Number of jumps indexed (the document's count while the notifications arrive).
    std::size_t GetSize() const { return m_entries.size(); }
    // Whether the jump at position holds every term of query.
    bool Matches(const CQuery& query, std::size_t position) const;
    // The positions (list order, ascending) of the jumps that match.
    std::vector<std::size_t> Find(const CQuery& query) const;
    // Indexes every jump again.
    void Rebuild();

    // The document's notifications.
    void JumpsInserted(std::size_t first, std::size_t count) override;
    void JumpsChanged(std::size_t first, std::size_t count) override;
    void JumpsRemoved(std::size_t first, std::size_t count) override;
    void JumpMoved(std::size_t from, std::size_t to) override;
    // Rig texts and computed freefall times depend on the settings: everything is indexed again.
    void SettingsChanged() override;
    void LogbookReset() override;

private:
    static constexpr std::size_t kFields = static_cast<std::size_t>(QueryField::Count);
    static constexpr std::int32_t kNoDay = INT32_MIN;

    struct Entry
    {
        std::string text; // the folded fields, each followed by '\n'
        std::array<std::uint32_t, kFields + 1> starts{};
        std::array<std::int32_t, static_cast<std::size_t>(QueryNumber::Count)> numbers{};
        WordSignature signature{}; // WordStartSignature of text
        std::uint32_t flags = 0;
        std::int32_t kind = 0;
        std::int32_t rig = -1; // number of the rig referenced by position, -1 otherwise
    };

    Entry MakeEntry(const CJump& jump) const;
    // A term with the signature of its needle (0 for terms without text).
    struct Prepared
    {
        const CQueryTerm* term;
        WordSignature signature;
    };
    static std::vector<Prepared> Prepare(const CQuery& query);
    static bool Holds(const Prepared& prepared, const Entry& entry);

    const CLogbookDoc& m_doc;
    std::vector<Entry> m_entries;
};
