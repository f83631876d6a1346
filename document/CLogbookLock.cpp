#include "document/CLogbookLock.h"

#include <unistd.h>

namespace {

std::string ThisProcess()
{
    char host[256] = {};
    if (::gethostname(host, sizeof host - 1) != 0)
        host[0] = '\0';
    return "process " + std::to_string(::getpid()) + " on " + (host[0] != '\0' ? host : "this computer");
}

} // namespace

CLogbookLock::~CLogbookLock()
{
    Unlock();
}

std::string CLogbookLock::LockPathOf(const std::string& logbookPath)
{
    return logbookPath + ".lock";
}

CLogbookLock::State CLogbookLock::Lock(const std::string& logbookPath)
{
    m_holder.clear();
    if (m_lock.IsHeld() && logbookPath == m_logbook)
        return State::Locked;
    Unlock();
    const std::string path = LockPathOf(logbookPath);
    switch (m_lock.Acquire(path)) {
    case CFileLock::Result::Locked:
        m_logbook = logbookPath;
        m_lock.WriteNote(ThisProcess());
        return State::Locked;
    case CFileLock::Result::HeldElsewhere:
        m_holder = CFileLock::ReadNote(path);
        return State::AlreadyOpen;
    case CFileLock::Result::Failed:
        break;
    }
    return State::Unavailable;
}

void CLogbookLock::Unlock()
{
    m_lock.Release(true);
    m_logbook.clear();
}
