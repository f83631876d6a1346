#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <string>

// One command of the tool ("check", "info" ...): it declares its options and arguments, parses
// its part of the command line, answers --help and runs.
class CCommand
{
public:
    // Exit codes shared by every command.
    enum ExitCode
    {
        Success = 0,
        Failure = 1,
        UsageError = 2
    };

    // Commands are owned through this base.
    virtual ~CCommand() = default;

    // The word that selects the command.
    virtual QString Name() const = 0;
    // One line for the tool's own help.
    virtual QString Summary() const = 0;

    // Parses arguments (the command's own, without the tool and command names), prints help
    // or a usage error when asked or needed, and otherwise executes. Returns the exit code.
    int Run(const QStringList& arguments);
    // The full help text of the command.
    QString HelpText();

protected:
    // Adds the command's options and positional arguments.
    virtual void Configure(QCommandLineParser& parser) = 0;
    // Text printed after the generated option list: details, output format, examples.
    virtual QString Details() const = 0;
    // Runs the parsed command. The positional arguments are already checked against
    // RequiredArguments().
    virtual int Execute(const QCommandLineParser& parser) = 0;
    // How many positional arguments the command needs (exactly).
    virtual int RequiredArguments() const = 0;
    // How many positional arguments the command takes at most (a query takes any number).
    virtual int MaxArguments() const { return RequiredArguments(); }

    // Prints "tervola NAME: text" and a hint to --help on standard error; returns UsageError.
    int Usage(const QString& text) const;

private:
    void Prepare(QCommandLineParser& parser);
};
