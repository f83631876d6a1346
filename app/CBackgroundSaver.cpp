#include "app/CBackgroundSaver.h"

#include <system_error>

#if defined(__linux__)
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace {

// The save and the compressing threads it starts (which inherit this) run at a lower priority
// than the window's thread, so that the window gets a processor core as soon as it needs one
// even while the save keeps every core busy. Only this thread changes: Linux keeps a priority
// per thread.
void LowerThisThreadsPriority()
{
#if defined(__linux__)
    setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), 5);
#endif
}

} // namespace

CBackgroundSaver::CBackgroundSaver(CLogbookDoc& doc, QObject* parent) : QObject(parent), m_doc(doc)
{
}

CBackgroundSaver::~CBackgroundSaver()
{
    if (m_thread.joinable())
        m_thread.join();
}

void CBackgroundSaver::Request(const std::string& path, SaveCheck check, Origin origin)
{
    const Job job{path, check, origin};
    if (m_running) {
        m_waiting = job;
        return;
    }
    Start(job);
}

void CBackgroundSaver::Start(const Job& job)
{
    m_job = job;
    m_running = true;
    ++m_started;
    m_progress.done = 0;
    m_progress.total = 0;
    m_changeCount = m_doc.GetChangeCount();
    // Only the settings are copied here; the snapshot copies the jumps on the save's thread.
    m_snapshot = m_doc.Snapshot();
    m_snapshot->SetProgress(&m_progress);
    CLogbookDoc* snapshot = m_snapshot.get();
    const auto save = [this, snapshot, job] {
        m_result = snapshot->WriteFile(job.path, job.check);
        // Freeing a large logbook's copy takes tens of milliseconds: not on the window's thread.
        m_snapshot.reset();
        QMetaObject::invokeMethod(this, &CBackgroundSaver::OnThreadDone, Qt::QueuedConnection);
    };
    try {
        m_thread = std::thread([save] {
            LowerThisThreadsPriority();
            save();
        });
    } catch (const std::system_error&) {
        save(); // no thread to be had: the window waits this once
    }
    emit started();
}

void CBackgroundSaver::OnThreadDone()
{
    if (m_thread.joinable())
        m_thread.join();
    m_running = false;
    const CSaveResult result = m_result;
    const Job job = m_job;
    m_doc.SaveFinished(result, m_changeCount);
    // The user hears once of a save that did not happen; the same request again would fail
    // again.
    if (!result && m_waiting && m_waiting->path == job.path && m_waiting->check == SaveCheck::IfUnchanged)
        m_waiting.reset();
    emit finished(result, job.origin);
    // Whoever took the result may have started the next save already.
    if (!m_running && m_waiting) {
        const Job next = *m_waiting;
        m_waiting.reset();
        // A waiting save of the file just written is needed only for changes made meanwhile.
        if (m_doc.IsModified() || next.path != result.path || next.check == SaveCheck::Overwrite)
            Start(next);
    }
    if (!IsBusy())
        emit idle();
}
