#pragma once

#include "model/CJump.h"
#include "model/CLogbookSettings.h"
#include "xml/CDateTime.h"
#include "xml/CXmlHandler.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class ISettingsStore;
class IClock;
class IXmlOutput;

// What a load reports: success, or the text to show before "The file could not be opened."
// (empty when the file simply could not be read).
struct CLoadResult
{
    bool ok = false;
    std::string message;
    explicit operator bool() const { return ok; }
};

// The numbers of the home screen's summary, in stored units (metres, seconds).
struct CLogbookSummary
{
    int numberOfJumps = 0;          // number of the last jump in list order, 0 without jumps
    int64_t freefallSeconds = 0;    // logged freefall time plus the settings' previous delay
    double freefallMetres = 0;      // extrapolated to the last jump number
    double canopyMetres = 0;        // extrapolated to the last jump number
    CDateTime lastJump;             // Null without jumps
};

// The open logbook: its path, modified flag, settings and jumps sorted by number.
class CLogbookDoc : public CXmlHandler
{
public:
    // settings receives "General"/"LastFile" after every successful load and save (may be null);
    // clock stamps the root's "mod" on save (null: the system clock).
    explicit CLogbookDoc(ISettingsStore* settings = nullptr, const IClock* clock = nullptr);
    ~CLogbookDoc() override;
    CLogbookDoc(const CLogbookDoc&) = delete;
    CLogbookDoc& operator=(const CLogbookDoc&) = delete;

    // Empties the jump list, resets the settings, forgets path and modified flag.
    void Clear();
    // Loads a logbook: plain XML for ".tvl" (any case), gzip (or transparent plain) otherwise.
    // A failed load leaves an empty document.
    CLoadResult Load(const std::string& path);
    // Loads into a fresh document and takes its contents only on success: a file that fails
    // leaves this document exactly as it was (Open uses this to keep the logbook the user had).
    CLoadResult TryLoad(const std::string& path);
    // Saves safely: temporary file, flush, ".bak" copy of the old file, rename. A failed save
    // leaves the old file and its backup untouched. Success sets the path and clears the flag.
    bool Save(const std::string& path);
    // Saves to the current path when there is one and the document is modified.
    bool SaveIfModified();

    bool HasPath() const { return !m_path.empty(); }
    const std::string& GetPath() const { return m_path; }
    // Forgets the file (New writes a fresh one through Save).
    void SetPath(std::string path) { m_path = std::move(path); }
    // The root's "version" text as the last successful load read it; empty otherwise.
    const std::string& GetFileVersion() const { return m_fileVersion; }
    bool IsModified() const { return m_modified; }
    void SetModified(bool modified = true) { m_modified = modified; }

    CLogbookSettings& GetSettings() { return m_settings; }
    const CLogbookSettings& GetSettings() const { return m_settings; }

    // The jumps in list order (ascending number, equal numbers in insertion order).
    const std::vector<std::unique_ptr<CJump>>& GetJumps() const { return m_jumps; }
    std::size_t GetJumpCount() const { return m_jumps.size(); }
    // The last jump in list order, or null.
    const CJump* GetLastJump() const { return m_jumps.empty() ? nullptr : m_jumps.back().get(); }
    // Index of the jump in the list, or -1.
    int IndexOf(const CJump* jump) const;
    // True when a jump other than except carries this number.
    bool HasJumpNumber(int number, const CJump* except = nullptr) const;

    // Inserts a jump in number order (after equal numbers), adds it to the totals, marks modified.
    CJump* AddJump(std::unique_ptr<CJump> jump);
    // Removes the jump at index from list and totals, marks modified; returns it.
    std::unique_ptr<CJump> RemoveJump(std::size_t index);
    // Call before and after changing a jump in place: keeps totals and number order right.
    void BeginChangeJump(const CJump* jump);
    void EndChangeJump(CJump* jump);

    // Clears the totals and sums all jumps in list order.
    void RecomputeTotals();
    int64_t GetTotalFreefallTime() const { return m_totalFreefallTime; }
    int64_t GetTotalFreefallDistance() const { return m_totalFreefallDistance; }
    int64_t GetTotalCanopyDistance() const { return m_totalCanopyDistance; }
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
    class SettingsReader;
    bool WriteTo(class CXmlWriter& writer) const;
    // Exchanges everything a logbook holds (not the settings store, clock or output factory).
    void SwapContents(CLogbookDoc& other);

    ISettingsStore* m_store;
    const IClock* m_clock;
    std::string m_path;
    std::string m_fileVersion;
    bool m_modified = false;
    CLogbookSettings m_settings;
    std::vector<std::unique_ptr<CJump>> m_jumps;
    std::unique_ptr<SettingsReader> m_settingsReader;
    OutputFactory m_outputFactory;
    std::size_t m_maxJumps = kDefaultMaxJumps;
    bool m_rootSeen = false;   // set by the "tvl" element during a load
    int64_t m_totalFreefallTime = 0;
    int64_t m_totalFreefallDistance = 0;
    int64_t m_totalCanopyDistance = 0;
};
