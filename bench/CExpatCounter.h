#pragma once

#include "ParseWork.h"

#include <cstddef>
#include <string>

// The reference reader of the benchmarks: expat with a handler that copies out every attribute
// value and collects every element text, as the logbook's records would read them.
class CExpatCounter
{
public:
    CExpatCounter();
    ~CExpatCounter();
    CExpatCounter(const CExpatCounter&) = delete;
    CExpatCounter& operator=(const CExpatCounter&) = delete;

    // Feeds one chunk; last marks the end of the document. False on a parse error.
    bool Feed(const char* data, std::size_t size, bool last);
    // Reads a plain file in chunks of chunkBytes and parses it whole.
    bool ParseFile(const std::string& path, std::size_t chunkBytes);
    // The work done so far.
    const ParseWork& Work() const { return m_work; }
    // Expat's description of the last error.
    std::string ErrorText() const;

private:
    static void Start(void* data, const char* name, const char** attrs);
    static void End(void* data, const char* name);
    static void Text(void* data, const char* text, int length);

    void* m_parser; // XML_Parser; kept opaque so that users of this header need no expat.h
    ParseWork m_work;
    std::string m_value;
    std::string m_text;
};
