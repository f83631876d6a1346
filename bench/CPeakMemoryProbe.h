#pragma once

#include <string>
#include <vector>

// Measures the peak resident memory of a load in a fresh process: the benchmark starts itself
// again with a child command, the child does its work and prints its own peak (VmHWM), and the
// parent reads it. A fresh process sees neither the parent's heap nor its freed blocks.
class CPeakMemoryProbe
{
public:
    // The first argument that makes the program a probe child.
    static constexpr const char* kChildFlag = "--peak-memory-child";

    // Runs "self kChildFlag args..." and returns the child's peak in bytes, -1 on failure.
    static long long Measure(const std::vector<std::string>& args);
    // True when argv asks for a probe child; the child then runs and exitCode is set.
    static bool RunChildIfAsked(int argc, char** argv, int& exitCode);
    // This process's peak resident memory in bytes (VmHWM, else getrusage), -1 when unknown.
    static long long OwnPeakBytes();
};
