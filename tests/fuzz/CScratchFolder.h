#pragma once

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <unistd.h>

// A private folder for the files a fuzz body or test writes, in memory-backed /dev/shm when the
// machine has it (so millions of small writes cost no disk), removed with everything in it when
// the object goes away.
class CScratchFolder
{
public:
    // Makes the empty folder "tervola-NAME-PID"; any left-over one of that name goes first.
    explicit CScratchFolder(const std::string& name)
    {
        std::error_code ec;
        std::filesystem::path base = "/dev/shm";
        if (!std::filesystem::is_directory(base, ec) || ::access(base.c_str(), W_OK) != 0)
            base = std::filesystem::temp_directory_path();
        const std::string prefix = "tervola-" + name + "-";
        RemoveAbandoned(base, prefix);
        m_path = base / (prefix + std::to_string(::getpid()));
        std::filesystem::remove_all(m_path, ec);
        std::filesystem::create_directories(m_path);
    }
    ~CScratchFolder()
    {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    CScratchFolder(const CScratchFolder&) = delete;
    CScratchFolder& operator=(const CScratchFolder&) = delete;

    // The path of a file in the folder.
    std::string operator/(const std::string& file) const { return (m_path / file).string(); }
    // The names of the files now in the folder.
    std::set<std::string> List() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            names.insert(entry.path().filename().string());
        return names;
    }

private:
    // A process that ends without running destructors (libFuzzer ends that way) leaves its
    // folder behind; folders of processes that no longer run are removed.
    static void RemoveAbandoned(const std::filesystem::path& base, const std::string& prefix)
    {
        std::error_code ec;
        for (const auto& entry : std::filesystem::directory_iterator(base, ec)) {
            const std::string folder = entry.path().filename().string();
            if (folder.rfind(prefix, 0) != 0)
                continue;
            const std::string pid = folder.substr(prefix.size());
            if (pid.empty() || pid.size() > 9 || pid.find_first_not_of("0123456789") != std::string::npos)
                continue;
            if (::kill(static_cast<pid_t>(std::stol(pid)), 0) != 0 && errno == ESRCH)
                std::filesystem::remove_all(entry.path(), ec);
        }
    }

    std::filesystem::path m_path;
};
