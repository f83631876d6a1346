#pragma once

#include <string>

// File steps of a save that never damages the logbook already on disk: the new content is
// written to a sibling temporary file, flushed to the disk, and only then put in place, with
// the previous file kept as the ".bak" copy.
namespace SafeFileReplace {

// The temporary sibling the new content is written to before it replaces target.
std::string TemporaryPath(const std::string& target);
// target with its last three characters replaced by "bak" ("Jumps.tvz" gives "Jumps.bak");
// empty when the path is too short to have an extension or already ends in "bak".
std::string BackupPath(const std::string& target);
// Forces the file's content to the disk; false when that fails.
bool SyncFile(const std::string& path);
// Copies the current target (if any) to its ".bak" copy and renames temporary over target.
// The old target and the old backup stay untouched unless the temporary file is in place.
// False when the new file could not be put in place; the temporary file is then still there.
bool Commit(const std::string& temporary, const std::string& target);
// Removes what an interrupted save of target may have left besides its own temporary file
// (which the next save reuses): the half-made copy meant to become the backup.
void RemoveLeftovers(const std::string& target);
// Removes a file, ignoring every error (also when it does not exist).
void RemoveQuietly(const std::string& path);

} // namespace SafeFileReplace
