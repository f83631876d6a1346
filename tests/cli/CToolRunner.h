#pragma once

#include "tests/cli/CToolResult.h"

#include <QString>
#include <QStringList>

// Runs the built "tervola" as a separate process with a settings folder of the test's own, so
// the user's stored preferences never leak into a test.
class CToolRunner
{
public:
    // configHome becomes XDG_CONFIG_HOME of every run.
    explicit CToolRunner(QString configHome) : m_configHome(std::move(configHome)) {}

    // Runs the tool with the arguments and waits for it (at most a minute).
    CToolResult Run(const QStringList& arguments) const;

private:
    QString m_configHome;
};
