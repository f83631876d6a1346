#include "document/SafeFileReplace.h"

#include <filesystem>
#include <system_error>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace SafeFileReplace {
namespace {

// Suffix of the temporary files next to the logbook and next to its backup.
constexpr const char* kTemporarySuffix = ".saving";

// Makes a rename inside folder durable; errors are ignored (not every system allows it).
void SyncFolderOf(const std::string& path)
{
#if !defined(_WIN32)
    std::string folder = fs::path(path).parent_path().string();
    if (folder.empty())
        folder = ".";
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
#else
    (void)path;
#endif
}

} // namespace

std::string TemporaryPath(const std::string& target)
{
    return target + kTemporarySuffix;
}

std::string BackupPath(const std::string& target)
{
    if (target.size() < 4)
        return {};
    std::string backup = target;
    backup.replace(backup.size() - 3, 3, "bak");
    return backup == target ? std::string() : backup;
}

bool SyncFile(const std::string& path)
{
#if defined(_WIN32)
    const int fd = ::_open(path.c_str(), _O_RDWR | _O_BINARY);
    if (fd < 0)
        return false;
    const bool ok = ::_commit(fd) == 0;
    return ::_close(fd) == 0 && ok;
#else
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    return ::close(fd) == 0 && ok;
#endif
}

bool Commit(const std::string& temporary, const std::string& target)
{
    std::error_code ec;
    const std::string backup = BackupPath(target);
    std::string backupTemporary;
    // The backup is first copied to its own temporary file: an interrupted copy can then never
    // spoil the backup that is already there.
    if (!backup.empty() && fs::exists(target, ec)) {
        backupTemporary = backup + kTemporarySuffix;
        if (!fs::copy_file(target, backupTemporary, fs::copy_options::overwrite_existing, ec) ||
            !SyncFile(backupTemporary)) {
            RemoveQuietly(backupTemporary);
            return false;
        }
    }
    fs::rename(temporary, target, ec);
    if (ec) {
        if (!backupTemporary.empty())
            RemoveQuietly(backupTemporary);
        return false;
    }
    // The new logbook is in place; now the copy of the previous one becomes the backup. Should
    // that last rename fail, the save still succeeded and only the backup is one save older.
    if (!backupTemporary.empty()) {
        fs::rename(backupTemporary, backup, ec);
        if (ec)
            RemoveQuietly(backupTemporary);
    }
    SyncFolderOf(target);
    return true;
}

void RemoveLeftovers(const std::string& target)
{
    const std::string backup = BackupPath(target);
    if (!backup.empty())
        RemoveQuietly(backup + kTemporarySuffix);
}

void RemoveQuietly(const std::string& path)
{
    std::error_code ec;
    fs::remove(path, ec);
}

} // namespace SafeFileReplace
