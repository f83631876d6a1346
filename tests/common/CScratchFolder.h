#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

// A private folder for the files a test or fuzz body writes, removed with everything in it when
// the object goes away. It lives in memory-backed /dev/shm when the machine has it, so that
// millions of small writes cost no disk. Each object gets a folder of its own, also within one
// process.
class CScratchFolder
{
public:
    // Makes the empty folder "tervola-NAME-PID-N"; left-overs of ended processes go first.
    explicit CScratchFolder(const std::string& name);
    ~CScratchFolder();
    CScratchFolder(const CScratchFolder&) = delete;
    CScratchFolder& operator=(const CScratchFolder&) = delete;

    // The path of a file in the folder.
    std::string operator/(const std::string& file) const { return (m_path / file).string(); }
    const std::filesystem::path& Path() const { return m_path; }
    // The names of the files now in the folder.
    std::set<std::string> List() const;

private:
    std::filesystem::path m_path;
};

// Whole files as bytes, plain or gzip-compressed; reads give "" when the file cannot be read or
// its gzip stream is damaged.
std::string ReadBytes(const std::string& path);
bool WriteBytes(const std::string& path, std::string_view bytes);
std::string ReadGzip(const std::string& path);
bool WriteGzip(const std::string& path, std::string_view bytes);
