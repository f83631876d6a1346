#pragma once

#include "xml/IXmlOutput.h"

#include <memory>
#include <string>

// Writes the writer's bytes through gzip compression at level 9.
class CXmlGzipOutput : public IXmlOutput
{
public:
    // Opens the gzip stream with mode "wb9"; null when it cannot be created.
    static std::unique_ptr<CXmlGzipOutput> Create(const std::string& path);
    // Closes the file if Close was not called.
    ~CXmlGzipOutput() override;
    CXmlGzipOutput(const CXmlGzipOutput&) = delete;
    CXmlGzipOutput& operator=(const CXmlGzipOutput&) = delete;

    // Succeeds only when zlib took every byte.
    bool Write(const char* data, std::size_t size) override;
    // Finishes the gzip stream; false when zlib reports an error.
    bool Close() override;

private:
    explicit CXmlGzipOutput(void* file) : m_file(file) {}

    void* m_file; // gzFile; kept opaque so that users of this header need no zlib.h
};
