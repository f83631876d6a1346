#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

// What one run of the tool gave back.
struct CToolResult
{
    int exitCode = -1;
    bool crashed = false;
    std::string out;
    std::string err;

    // Standard output / standard error split into lines (without the line ends).
    std::vector<std::string> OutLines() const;
    std::vector<std::string> ErrLines() const;
};

// Runs the built "tervola" as a separate process with a settings folder of the test's own, so
// the user's stored preferences never leak into a test.
class CToolRunner
{
public:
    // configHome becomes XDG_CONFIG_HOME of every run.
    explicit CToolRunner(QString configHome) : m_configHome(std::move(configHome)) {}

    // Runs the tool with the arguments and waits for it (at most a minute).
    CToolResult Run(const QStringList& arguments) const;

    // Splits text at "\n" (a "\r" before it is dropped); no empty last line.
    static std::vector<std::string> Lines(const std::string& text);

private:
    QString m_configHome;
};
