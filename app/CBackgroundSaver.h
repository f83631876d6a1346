#pragma once

#include "document/CLogbookDoc.h"
#include "xml/CIoProgress.h"

#include <QObject>

#include <optional>
#include <string>
#include <thread>

// Runs the logbook's saves on a thread of their own, so that the window never waits for the
// compression: the document hands over a snapshot (CLogbookDoc::Snapshot), the window goes on
// (scrolling, opening and even changing jumps), and the result comes back to the window's
// thread, where the document takes it in. One save runs at a time; a request made meanwhile
// waits for it, and a later request replaces one that waits.
class CBackgroundSaver : public QObject
{
    Q_OBJECT

public:
    // Why a save runs; the window answers the end of each kind differently.
    enum class Origin
    {
        Command,
        Automatic,
        Closing
    };

    // Saves doc, which must outlive this object.
    explicit CBackgroundSaver(CLogbookDoc& doc, QObject* parent = nullptr);
    // Waits for the thread of a running save (its result is then dropped).
    ~CBackgroundSaver() override;

    // Saves the document as it is now to path, at once or after the running save.
    void Request(const std::string& path, SaveCheck check, Origin origin);
    // True while a save runs or waits.
    bool IsBusy() const { return m_running || m_waiting.has_value(); }
    // The running save's progress (jumps written out of all).
    const CIoProgress& Progress() const { return m_progress; }
    // Saves started so far.
    int SavesStarted() const { return m_started; }

signals:
    // A save has begun on its thread.
    void started();
    // A save has ended; the document has taken its result in (modified flag, path, identity).
    void finished(const CSaveResult& result, CBackgroundSaver::Origin origin);
    // No save runs or waits any more.
    void idle();

private:
    struct Job
    {
        std::string path;
        SaveCheck check = SaveCheck::IfUnchanged;
        Origin origin = Origin::Command;
    };

    void Start(const Job& job);
    // On the window's thread, once the save's thread has ended.
    void OnThreadDone();

    CLogbookDoc& m_doc;
    std::thread m_thread;
    std::unique_ptr<CLogbookDoc> m_snapshot;
    std::uint64_t m_changeCount = 0;
    CSaveResult m_result; // written by the thread, read after it has ended
    Job m_job;
    bool m_running = false;
    std::optional<Job> m_waiting;
    CIoProgress m_progress;
    int m_started = 0;
};
