#pragma once

#include "document/ILogbookObserver.h"

#include <memory>

class CJumpIndex;
class CLogbookDoc;

// The window's search index of a document, built on the first search after a load rather than
// with the load: opening a logbook costs nothing for the search until someone searches it. Once
// built it is kept current through the document's notifications (it must observe the document
// before the table models that ask it); a load, New or Clear drops it until it is needed again.
class CSearchIndex final : public ILogbookObserver
{
public:
    // An index of doc (kept by reference; it must outlive this).
    explicit CSearchIndex(const CLogbookDoc& doc);
    ~CSearchIndex() override;

    // The index of every jump, built now when there is none.
    const CJumpIndex& Get() const;
    bool IsBuilt() const { return m_index != nullptr; }

    void JumpsInserted(std::size_t first, std::size_t count) override;
    void JumpsChanged(std::size_t first, std::size_t count) override;
    void JumpsRemoved(std::size_t first, std::size_t count) override;
    void JumpMoved(std::size_t from, std::size_t to) override;
    void SettingsChanged() override;
    void LogbookReset() override;

private:
    const CLogbookDoc& m_doc;
    // Built on demand by the const Get(): building changes nothing a caller can see.
    mutable std::unique_ptr<CJumpIndex> m_index;
};
