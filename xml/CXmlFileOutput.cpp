#include "xml/CXmlFileOutput.h"

std::unique_ptr<CXmlFileOutput> CXmlFileOutput::Create(const std::string& path)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return nullptr;
    return std::unique_ptr<CXmlFileOutput>(new CXmlFileOutput(file));
}

CXmlFileOutput::~CXmlFileOutput()
{
    Close();
}

bool CXmlFileOutput::Write(const char* data, std::size_t size)
{
    if (m_file == nullptr)
        return false;
    return size == 0 || std::fwrite(data, 1, size, m_file) == size;
}

bool CXmlFileOutput::Close()
{
    if (m_file == nullptr)
        return true;
    const bool ok = std::ferror(m_file) == 0;
    const bool closed = std::fclose(m_file) == 0;
    m_file = nullptr;
    return ok && closed;
}
