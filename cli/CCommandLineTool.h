#pragma once

#include "cli/CCommand.h"

#include <memory>
#include <vector>

// The "tervola" program: picks the command named by the first argument and runs it; answers
// --help and --version for the tool as a whole.
class CCommandLineTool
{
public:
    // The tool with its five commands.
    CCommandLineTool();

    // Runs the tool on the arguments after the program name; returns the exit code.
    int Run(const QStringList& arguments);
    // The tool's own help: usage and the list of commands.
    QString HelpText() const;

private:
    CCommand* Find(const QString& name) const;

    std::vector<std::unique_ptr<CCommand>> m_commands;
};
