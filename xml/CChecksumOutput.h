#pragma once

#include "xml/CFileChecksum.h"
#include "xml/IXmlOutput.h"

#include <cstdint>
#include <memory>

// Passes bytes on to another output and takes their checksum and count on the way, so that a
// save knows the identity of the file it wrote without reading it back.
class CChecksumOutput : public IXmlOutput
{
public:
    // checksum and size receive every byte that inner accepted, in order.
    CChecksumOutput(std::unique_ptr<IXmlOutput> inner, CFileChecksum& checksum, std::uint64_t& size)
        : m_inner(std::move(inner)), m_checksum(checksum), m_size(size)
    {
    }

    bool Write(const char* data, std::size_t size) override
    {
        if (!m_inner->Write(data, size))
            return false;
        m_checksum.Add(data, size);
        m_size += size;
        return true;
    }

    bool Close() override { return m_inner->Close(); }

private:
    std::unique_ptr<IXmlOutput> m_inner;
    CFileChecksum& m_checksum;
    std::uint64_t& m_size;
};
