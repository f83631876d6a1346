#pragma once

#include "xml/IXmlOutput.h"

#include <memory>
#include <string>

// Collects the writer's bytes in memory, for tests and for callers that want the text.
// The bytes live in a shared string so they can be read after the writer owned and closed
// this output.
class CXmlStringOutput : public IXmlOutput
{
public:
    // An empty output.
    CXmlStringOutput() : m_bytes(std::make_shared<std::string>()) {}

    // Appends the bytes; never fails.
    bool Write(const char* data, std::size_t size) override
    {
        m_bytes->append(data, size);
        return true;
    }
    // Nothing to flush.
    bool Close() override { return true; }

    // The bytes written so far; stays valid after this output is destroyed.
    std::shared_ptr<const std::string> Bytes() const { return m_bytes; }

private:
    std::shared_ptr<std::string> m_bytes;
};
