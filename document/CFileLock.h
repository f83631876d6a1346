#pragma once

#include <string>

// An exclusive advisory lock on a file, held through an open descriptor with flock(). The
// operating system drops it when the descriptor closes or the process ends in any way, killed
// included, so a lock can never outlive its holder: a file left behind is simply locked anew.
// flock() rather than fcntl() record locks: a record lock belongs to the process and vanishes
// as soon as any descriptor of the file in that process closes, whereas a flock lock belongs to
// this one open descriptor, so two holders in one process exclude each other as two processes do.
class CFileLock
{
public:
    enum class Result
    {
        Locked,        // this object holds the lock
        HeldElsewhere, // another descriptor (usually another process) holds it
        Failed         // the file could not be created or opened
    };

    CFileLock() = default;
    // Releases the lock (the file stays).
    ~CFileLock();
    CFileLock(const CFileLock&) = delete;
    CFileLock& operator=(const CFileLock&) = delete;

    // Creates the file if needed and locks it, trying again for up to waitMs milliseconds while
    // another holder has it. Makes sure the lock is on the file that has the name now, not on
    // one that its previous holder removed or renamed in between.
    Result Acquire(const std::string& path, int waitMs = 0);
    // Replaces the file's content with text (who holds the lock, for the others to read).
    bool WriteNote(const std::string& text);
    // Releases the lock; with removeFile the file is deleted first (still locked, so nobody
    // else can take the lock on a file that is going away without noticing).
    void Release(bool removeFile = false);

    bool IsHeld() const { return m_fd >= 0; }
    const std::string& GetPath() const { return m_path; }

    // The content of a lock file, for telling who holds it; empty when it cannot be read.
    static std::string ReadNote(const std::string& path);

private:
    int m_fd = -1;
    std::string m_path;
};
