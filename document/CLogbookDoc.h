#pragma once

#include "document/CJumpRange.h"
#include "document/CLogbookTotals.h"
#include "model/CJump.h"
#include "model/CLogbookSettings.h"
#include "resources/CMessage.h"
#include "xml/CDateTime.h"
#include "xml/CFileIdentity.h"
#include "xml/CXmlHandler.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class ISettingsStore;
class IClock;
class ILogbookObserver;
class IXmlOutput;
struct CIoProgress;

// What a load reports: success, or the message to show before "The file could not be opened."
// (empty when the file simply could not be read).
struct CLoadResult
{
    bool ok = false;
    CMessage message;
    explicit operator bool() const { return ok; }
};

// How a save ended.
enum class SaveStatus
{
    Saved,
    Failed,       // nothing was replaced; the old file and its backup are as they were
    ChangedOnDisk // another program changed the file since it was loaded or saved here
};

// Whether a save first makes sure that the file on disk is still the one this document read.
enum class SaveCheck
{
    IfUnchanged, // refuse with ChangedOnDisk when another program has changed it
    Overwrite    // the user has decided to replace it anyway
};

// What a save reports: the status, the message to show when it did not save, and the file it
// wrote. A save run on another thread hands this back to the document (SaveFinished).
struct CSaveResult
{
    SaveStatus status = SaveStatus::Failed;
    int messageId = 0; // StringTable id of the message; 0 when saved
    std::string path;
    CFileIdentity identity; // of the file written
    // Saved or not, for the callers that need no more (a save used to answer with a bool).
    operator bool() const { return status == SaveStatus::Saved; }
};

// The numbers of the home screen's summary, in stored units (metres, seconds).
struct CLogbookSummary
{
    int numberOfJumps = 0;       // number of the last jump in list order, 0 without jumps
    int64_t freefallSeconds = 0; // logged freefall time plus the settings' previous delay
    double freefallMetres = 0;   // extrapolated to the last jump number
    double canopyMetres = 0;     // extrapolated to the last jump number
    CDateTime lastJump;          // Null without jumps
};

// The open logbook: its path, modified flag, settings and jumps sorted by number. It is the one
// place where jumps and settings change: callers read them through const access and change them
// through the change methods below, which keep the totals, the number order and a running save's
// copy right, mark the logbook modified and tell the observers what changed.
class CLogbookDoc : public CXmlHandler
{
public:
    // settings receives "General"/"LastFile" after every successful load and save (may be null);
    // clock stamps the root's "mod" on save (null: the system clock).
    explicit CLogbookDoc(ISettingsStore* settings = nullptr, const IClock* clock = nullptr);
    ~CLogbookDoc() override;
    CLogbookDoc(const CLogbookDoc&) = delete;
    CLogbookDoc& operator=(const CLogbookDoc&) = delete;

    // Empties the jump list, resets the settings, forgets path and modified flag; LogbookReset.
    void Clear();
    // Loads a logbook: plain XML for ".tvl" (any case), gzip (or transparent plain) otherwise.
    // A failed load leaves an empty document.
    CLoadResult Load(const std::string& path);
    // Loads into a fresh document and takes its contents only on success: a file that fails
    // leaves this document exactly as it was (Open uses this to keep the logbook the user had).
    CLoadResult TryLoad(const std::string& path);
    // Every load ends with LogbookReset (also a failed one, which leaves an empty document).
    // Takes over everything another document loaded (on another thread, with no settings store
    // of its own) and stores its path as "LastFile"; loaded gets this document's old contents.
    void Adopt(CLogbookDoc& loaded);
    // Saves safely: temporary file, flush, ".bak" copy of the old file, rename. A failed save
    // leaves the old file and its backup untouched. Success sets the path and clears the flag.
    // Saving over the file this document was loaded from or last saved to first checks that
    // no other program has changed it since (unless check says Overwrite).
    CSaveResult Save(const std::string& path, SaveCheck check = SaveCheck::IfUnchanged);
    // Saves to the current path when there is one and the document is modified; otherwise
    // returns Failed with no message and does nothing.
    CSaveResult SaveIfModified();

    // The part of Save that touches only files: it reads the records and changes nothing else
    // (on a snapshot it first copies the jumps), so it may run on another thread on a snapshot.
    // Holds a lock on the temporary file while it checks and writes, so that two programs
    // saving the same logbook take turns, and removes what an interrupted save left behind.
    CSaveResult WriteFile(const std::string& path, SaveCheck check = SaveCheck::IfUnchanged);
    // Takes a finished save in on the document's own thread: path, file identity, "LastFile",
    // and the modified flag cleared unless the document changed after changeCount was taken.
    void SaveFinished(const CSaveResult& result, std::uint64_t changeCount);
    // A copy of everything a save writes, for saving on another thread while this document goes
    // on being edited. Settings, path and file identity are copied at once; the jumps, which
    // may take tens of milliseconds, are copied by the snapshot's CopyJumps (its WriteFile calls
    // it) on the thread that saves. Until then every change of the jumps here (AddJump,
    // ChangeJump, RemoveJump(s), ReplaceEquipment, Clear, a load) waits for the copy; reading
    // goes on. This
    // document's destructor waits for a copy still running.
    std::unique_ptr<CLogbookDoc> Snapshot();
    // In a snapshot: copies the jumps of the document it was taken from, once.
    void CopyJumps();
    // Grows with every change; a save compares it to tell whether edits came in meanwhile.
    std::uint64_t GetChangeCount() const { return m_changeCount; }
    // The identity of the file as this document last read or wrote it; unknown without one.
    const CFileIdentity& GetFileIdentity() const { return m_fileIdentity; }
    // Where loads report the bytes read and saves the jumps written; null: nowhere.
    void SetProgress(CIoProgress* progress) { m_progress = progress; }

    bool HasPath() const { return !m_path.empty(); }
    const std::string& GetPath() const { return m_path; }
    // Forgets the file (New writes a fresh one through Save).
    void SetPath(std::string path)
    {
        m_path = std::move(path);
        m_fileIdentity = CFileIdentity();
    }
    // The root's "version" text as the last successful load read it; empty otherwise.
    const std::string& GetFileVersion() const { return m_fileVersion; }
    bool IsModified() const { return m_modified; }
    void SetModified(bool modified = true)
    {
        m_modified = modified;
        m_changeCount += modified ? 1 : 0;
    }

    const CLogbookSettings& GetSettings() const { return m_settings; }

    // The jumps in list order (ascending number, equal numbers in insertion order), read-only.
    CJumpRange GetJumps() const { return CJumpRange(m_jumps); }
    std::size_t GetJumpCount() const { return m_jumps.size(); }
    const CJump& GetJump(std::size_t index) const { return *m_jumps[index]; }
    // The last jump in list order, or null.
    const CJump* GetLastJump() const { return m_jumps.empty() ? nullptr : m_jumps.back().get(); }
    // Index of the jump in the list, or -1.
    int IndexOf(const CJump* jump) const;
    // True when a jump other than except carries this number.
    bool HasJumpNumber(int number, const CJump* except = nullptr) const;

    // Observers hear of every change made from now on (not owned; remove before destroying).
    void AddObserver(ILogbookObserver* observer);
    void RemoveObserver(ILogbookObserver* observer);

    // Inserts a jump in number order (after equal numbers), adds it to the totals, marks modified,
    // announces JumpsInserted. Returns the jump as it now stands in the list.
    const CJump* AddJump(std::unique_ptr<CJump> jump);
    // What ChangeJump runs on the jump; returns whether it changed anything.
    using JumpChange = std::function<bool(CJump&)>;
    // Changes the jump at index in place through change. When change reports a change: totals
    // follow, a new number moves the jump to its place (JumpMoved, then JumpsChanged at its new
    // position; otherwise JumpsChanged), the logbook is marked modified. Returns change's answer;
    // false for an index out of range. An exception from change leaves totals right, the jump
    // announced as changed, and goes on to the caller.
    bool ChangeJump(std::size_t index, const JumpChange& change);
    // Removes the jump at index from list and totals, marks modified, announces JumpsRemoved;
    // returns it (null for an index out of range).
    std::unique_ptr<CJump> RemoveJump(std::size_t index);
    // Removes the jumps at these indexes (any order, duplicates and indexes out of range
    // ignored), announced run by run from the end of the list; returns how many went.
    std::size_t RemoveJumps(std::vector<std::size_t> indexes);
    // Takes these settings when they differ from the present ones: totals are counted again
    // (the custom fall rate changes freefall times), modified, SettingsChanged. Returns whether
    // anything changed.
    bool ReplaceSettings(const CLogbookSettings& settings);
    // Takes a new list of rigs and re-points the jumps that name a rig by position: newPositions
    // holds, for each rig of the present list, its position in rigs, or -1 when it is gone; a jump
    // naming a gone rig keeps its display text as a free-text description. Changed jumps are
    // announced (JumpsChanged), then SettingsChanged. Returns whether anything changed.
    bool ReplaceEquipment(const CEquipmentList& rigs, const std::vector<int>& newPositions);

    int64_t GetTotalFreefallTime() const { return m_totals.FreefallSeconds(); }
    int64_t GetTotalFreefallDistance() const { return m_totals.FreefallMetres(); }
    int64_t GetTotalCanopyDistance() const { return m_totals.CanopyMetres(); }
    // The home screen's numbers.
    CLogbookSummary GetSummary() const;

    // A stored media name ("\" or "/" separated) resolved against the logbook's folder.
    std::string ResolveMediaPath(std::string_view name) const;

    // Makes the output a save writes to (given the temporary path and whether it is gzip).
    using OutputFactory = std::function<std::unique_ptr<IXmlOutput>(const std::string& path, bool gzip)>;
    // Tests hand in outputs that fail on purpose; an empty factory restores the real files.
    void SetOutputFactoryForTesting(OutputFactory factory) { m_outputFactory = std::move(factory); }

    // The most jumps a file may hold. Jump numbers end at 99,999 and a real logbook stays far
    // below; a file past the bound is refused, so a small compressed file cannot fill the
    // memory with empty jump records.
    static constexpr std::size_t kDefaultMaxJumps = 1'000'000;
    void SetJumpLimit(std::size_t maxJumps) { m_maxJumps = maxJumps; }

    // Reader of the root element, "settings", "log" and each "jump".
    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

private:
    struct CopyGate;
    // Clears the totals and sums all jumps in list order.
    void RecomputeTotals();
    // Checks the seal of one jump, or of every signed jump, against the present settings and
    // keeps the answer in the jump (CJump::GetSealState).
    void CheckSeal(CJump& jump) const;
    void CheckSeals();
    // Empties everything without telling the observers.
    void ClearContents();
    // Marks the logbook changed (modified flag and change count).
    void Touch();
    // Tells every observer (a copy of the list, so an observer may remove itself).
    void Notify(const std::function<void(ILogbookObserver&)>& call);
    // Before the jump list changes: waits until no snapshot is copying it.
    void WaitForCopy() const;
    bool WriteTo(class CXmlWriter& writer) const;
    // Exchanges everything a logbook holds (not the settings store, clock or output factory).
    void SwapContents(CLogbookDoc& other);

    ISettingsStore* m_store;
    const IClock* m_clock;
    std::string m_path;
    std::string m_fileVersion;
    CFileIdentity m_fileIdentity;
    bool m_modified = false;
    std::uint64_t m_changeCount = 0;
    CIoProgress* m_progress = nullptr;
    CLogbookSettings m_settings;
    std::vector<std::unique_ptr<CJump>> m_jumps;
    OutputFactory m_outputFactory;
    std::shared_ptr<CopyGate> m_copyGate;      // of this document's snapshots
    const CLogbookDoc* m_copySource = nullptr; // in a snapshot: whose jumps still have to be copied
    std::size_t m_maxJumps = kDefaultMaxJumps;
    bool m_rootSeen = false; // set by the "tvl" element during a load
    CLogbookTotals m_totals;
    std::vector<ILogbookObserver*> m_observers;
};
