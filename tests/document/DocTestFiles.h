#pragma once

#include "xml/IXmlOutput.h"

#include <zlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

// A fresh folder per test under the system's temporary folder, removed afterwards.
class CTempFolder
{
public:
    explicit CTempFolder(const std::string& name)
        : m_path(std::filesystem::temp_directory_path() / ("tervola_doc_" + name + "_" + std::to_string(::getpid())))
    {
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    ~CTempFolder()
    {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    std::string operator/(const std::string& file) const { return (m_path / file).string(); }

private:
    std::filesystem::path m_path;
};

inline std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void WriteBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
}

inline bool WriteGzip(const std::string& path, const std::string& bytes)
{
    gzFile file = gzopen(path.c_str(), "wb9");
    if (!file)
        return false;
    const int written = gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size()));
    return gzclose(file) == Z_OK && written == static_cast<int>(bytes.size());
}

inline std::string ReadGzip(const std::string& path)
{
    std::string bytes;
    gzFile file = gzopen(path.c_str(), "rb");
    if (!file)
        return bytes;
    char buffer[4096];
    int count = 0;
    while ((count = gzread(file, buffer, sizeof buffer)) > 0)
        bytes.append(buffer, static_cast<std::size_t>(count));
    gzclose(file);
    return bytes;
}

// An output that writes the real temporary file but fails like a full disk after a byte
// budget, or fails when it is closed (the last flush).
class CFailingFileOutput final : public IXmlOutput
{
public:
    CFailingFileOutput(const std::string& path, std::size_t budget, bool failClose)
        : m_file(std::fopen(path.c_str(), "wb")), m_budget(budget), m_failClose(failClose)
    {
    }
    ~CFailingFileOutput() override
    {
        if (m_file)
            std::fclose(m_file);
    }
    bool Write(const char* data, std::size_t size) override
    {
        if (!m_file)
            return false;
        const std::size_t take = size < m_budget ? size : m_budget;
        std::fwrite(data, 1, take, m_file);
        m_budget -= take;
        return take == size;
    }
    bool Close() override
    {
        const bool ok = m_file && std::fclose(m_file) == 0;
        m_file = nullptr;
        return ok && !m_failClose;
    }

private:
    std::FILE* m_file;
    std::size_t m_budget;
    bool m_failClose;
};
