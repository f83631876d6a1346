#pragma once

#include "tests/common/CScratchFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

class QProcess;

// Text split at its line ends, "\n" or "\r\n".
std::vector<std::string> Lines(const std::string& text);

// What one run of the tool gave back.
struct CToolResult
{
    int exitCode = -1;
    bool crashed = false;
    std::string out;
    std::string err;

    std::vector<std::string> OutLines() const { return Lines(out); }
    std::vector<std::string> ErrLines() const { return Lines(err); }
};

// A test that runs the built "tervola" on files in a scratch folder of its own. The folder's
// "config" is the tool's XDG_CONFIG_HOME, so the user's stored preferences never leak in.
class CToolTest : public ::testing::Test
{
protected:
    // Starts the tool without waiting for it.
    void Start(QProcess& process, const std::vector<std::string>& arguments) const;
    // Runs the tool and waits for it (at most a minute).
    CToolResult Run(const std::vector<std::string>& arguments) const;
    // Writes bytes, as they are or gzip-compressed, to a file of the folder; returns its path.
    std::string Write(const std::string& name, std::string_view bytes, bool gzip = false) const;
    // Stores the window program's unit preference ("Preferences"/"Units") where the tool reads it.
    void StoreUnitsPreference(int units) const;

    CScratchFolder m_dir{"cli"};
};
