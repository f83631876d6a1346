#pragma once

#include <string>

class CBestTime;

// Prints the benchmark's result lines: one metric per line with both timings, their ratio and,
// where there is one, the target with PASS or MISS. Counts the misses for the exit status.
class CBenchReport
{
public:
    // A timed comparison, judged on the wall clock; the processor-time ratio is shown beside it.
    // target <= 0 means the ratio is only reported.
    void Ratio(const std::string& metric, const CBestTime& own, const std::string& reference,
               const CBestTime& referenceTime, double target);
    // Memory a load adds against the file size. target <= 0 means the ratio is only reported.
    void Memory(const std::string& metric, long long addedBytes, long long fileBytes, double target);
    // Instructions of the own work against the reference's (callgrind). target <= 0: reported.
    void Instructions(const std::string& metric, long long own, const std::string& reference, long long referenceCount,
                      double target);
    // A growth factor between two workloads against its limit.
    void Growth(const std::string& metric, const CBestTime& small, const CBestTime& large, double target);
    // A line of plain text.
    void Note(const std::string& text);

    int Misses() const { return m_misses; }

private:
    void Verdict(double ratio, double target);

    int m_misses = 0;
};
