#pragma once

#include <string>
#include <vector>

// Counts the instructions a piece of work executes, with valgrind's callgrind tool, in a fresh
// child process of the benchmark (the same child commands as CPeakMemoryProbe). Unlike times,
// the counts hardly change from run to run on a busy machine, so a ratio of two counts can be
// trusted where a ratio of two times may not. All threads of the child are counted.
class CInstructionCount
{
public:
    // True when valgrind can be started.
    static bool Available();
    // Runs "valgrind --tool=callgrind self --peak-memory-child args..." and returns the total
    // of its instructions, -1 on failure. folder holds callgrind's output file.
    static long long Measure(const std::vector<std::string>& args, const std::string& folder);
};
