#include "tests/common/CScratchFolder.h"

#include <zlib.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>
#include <unistd.h>

namespace {

// A process that ends without running destructors (libFuzzer ends that way) leaves its folders
// behind; those of processes that no longer run are removed.
void RemoveAbandoned(const std::filesystem::path& base, const std::string& prefix)
{
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(base, ec)) {
        const std::string folder = entry.path().filename().string();
        if (folder.rfind(prefix, 0) != 0)
            continue;
        const std::string pid = folder.substr(prefix.size(), folder.find('-', prefix.size()) - prefix.size());
        if (pid.empty() || pid.size() > 9 || pid.find_first_not_of("0123456789") != std::string::npos)
            continue;
        if (::kill(static_cast<pid_t>(std::stol(pid)), 0) != 0 && errno == ESRCH)
            std::filesystem::remove_all(entry.path(), ec);
    }
}

} // namespace

CScratchFolder::CScratchFolder(const std::string& name)
{
    static std::atomic<int> s_count{0};
    std::error_code ec;
    std::filesystem::path base = "/dev/shm";
    if (!std::filesystem::is_directory(base, ec) || ::access(base.c_str(), W_OK) != 0)
        base = std::filesystem::temp_directory_path();
    const std::string prefix = "tervola-" + name + "-";
    RemoveAbandoned(base, prefix);
    m_path = base / (prefix + std::to_string(::getpid()) + "-" + std::to_string(++s_count));
    std::filesystem::remove_all(m_path, ec);
    std::filesystem::create_directories(m_path);
}

CScratchFolder::~CScratchFolder()
{
    std::error_code ec;
    std::filesystem::remove_all(m_path, ec);
}

std::set<std::string> CScratchFolder::List() const
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
        names.insert(entry.path().filename().string());
    return names;
}

std::string ReadBytes(const std::string& path)
{
    std::string bytes;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        char buffer[65536];
        std::size_t count = 0;
        while ((count = std::fread(buffer, 1, sizeof buffer, file)) > 0)
            bytes.append(buffer, count);
        std::fclose(file);
    }
    return bytes;
}

bool WriteBytes(const std::string& path, std::string_view bytes)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    const bool written = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written;
}

std::string ReadGzip(const std::string& path)
{
    std::string bytes;
    gzFile file = gzopen(path.c_str(), "rb");
    if (!file)
        return bytes;
    char buffer[4096];
    int count = 0;
    while ((count = gzread(file, buffer, sizeof buffer)) > 0)
        bytes.append(buffer, static_cast<std::size_t>(count));
    // A damaged stream or a wrong checksum at its end reads as no file.
    return gzclose(file) == Z_OK && count == 0 ? bytes : std::string();
}

bool WriteGzip(const std::string& path, std::string_view bytes)
{
    gzFile file = gzopen(path.c_str(), "wb9");
    if (!file)
        return false;
    const int written = gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size()));
    return gzclose(file) == Z_OK && written == static_cast<int>(bytes.size());
}
