#pragma once

#include "document/CFileLock.h"

#include <string>

// Tells other instances of the program that a logbook is open here: a lock file beside it
// ("Jumps.tvz.lock") stays locked for as long as the logbook is open and names the process
// holding it. The lock dies with the process, so a crash leaves no stale lock behind, only a
// file that the next instance locks again.
class CLogbookLock
{
public:
    enum class State
    {
        Locked,      // this instance has the logbook to itself
        AlreadyOpen, // another instance has it open (see GetHolder)
        Unavailable  // no lock file can be made (a read-only folder): nobody can tell
    };

    CLogbookLock() = default;
    // Releases the lock and removes the lock file.
    ~CLogbookLock();
    CLogbookLock(const CLogbookLock&) = delete;
    CLogbookLock& operator=(const CLogbookLock&) = delete;

    // Locks the logbook at path, releasing the one held before; the same path again keeps the
    // lock already held.
    State Lock(const std::string& logbookPath);
    // Releases the lock and removes the lock file.
    void Unlock();
    // After AlreadyOpen: who holds the lock, as the holder wrote it ("process 4711 on pocket").
    const std::string& GetHolder() const { return m_holder; }

    // The lock file of a logbook.
    static std::string LockPathOf(const std::string& logbookPath);

private:
    CFileLock m_lock;
    std::string m_logbook;
    std::string m_holder;
};
