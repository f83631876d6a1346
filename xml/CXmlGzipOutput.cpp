#include "xml/CXmlGzipOutput.h"

#include <algorithm>
#include <zlib.h>

std::unique_ptr<CXmlGzipOutput> CXmlGzipOutput::Create(const std::string& path)
{
    gzFile file = gzopen(path.c_str(), "wb9");
    if (file == nullptr)
        return nullptr;
    // zlib's default 8 KiB input buffer makes level 9 slower; the writer hands over 64 KiB blocks.
    gzbuffer(file, 128 * 1024);
    return std::unique_ptr<CXmlGzipOutput>(new CXmlGzipOutput(file));
}

CXmlGzipOutput::~CXmlGzipOutput()
{
    Close();
}

bool CXmlGzipOutput::Write(const char* data, std::size_t size)
{
    if (m_file == nullptr)
        return false;
    auto* file = static_cast<gzFile>(m_file);
    while (size > 0) {
        const unsigned part = static_cast<unsigned>(std::min<std::size_t>(size, 1u << 30));
        if (gzwrite(file, data, part) != static_cast<int>(part))
            return false;
        data += part;
        size -= part;
    }
    return true;
}

bool CXmlGzipOutput::Close()
{
    if (m_file == nullptr)
        return true;
    const int result = gzclose(static_cast<gzFile>(m_file));
    m_file = nullptr;
    return result == Z_OK;
}
