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
    ~CXmlFileOutput() override;
    CXmlFileOutput(const CXmlFileOutput&) = delete;
    CXmlFileOutput& operator=(const CXmlFileOutput&) = delete;

    bool Write(const char* data, std::size_t size) override;
    bool Close() override;

private:
    explicit CXmlFileOutput(std::FILE* file) : m_file(file) {}

    std::FILE* m_file;
};
