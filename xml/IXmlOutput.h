#pragma once

#include <cstddef>
#include <string>

// Where the writer's bytes go: a plain file, a gzip stream, memory in tests, or an output that
// fails on purpose to test the save path.
class IXmlOutput
{
public:
    virtual ~IXmlOutput() = default;
    // Writes all bytes or returns false.
    virtual bool Write(const char* data, std::size_t size) = 0;
    // Flushes and closes; false when anything could not be written.
    virtual bool Close() = 0;
};
