#pragma once

#include "xml/IXmlOutput.h"

#include <cstdio>
#include <memory>
#include <string>

// Writes the writer's bytes to a plain file.
class CXmlFileOutput : public IXmlOutput
{
public:
    // Creates (or truncates) the file; null when it cannot be created.
    static std::unique_ptr<CXmlFileOutput> Create(const std::string& path);
    // Closes the file if Close was not called.
    ~CXmlFileOutput() override;
    CXmlFileOutput(const CXmlFileOutput&) = delete;
    CXmlFileOutput& operator=(const CXmlFileOutput&) = delete;

    // Writes all bytes or returns false.
    bool Write(const char* data, std::size_t size) override;
    // Closes the file; false when a write or the close itself failed.
    bool Close() override;

private:
    explicit CXmlFileOutput(std::FILE* file) : m_file(file) {}

    std::FILE* m_file;
};
