#include "CBenchReport.h"

#include "CBestTime.h"

#include <cstdio>

void CBenchReport::Verdict(double ratio, double target)
{
    if (target <= 0) {
        std::printf(" | (reported)\n");
        return;
    }
    const bool pass = ratio <= target;
    if (!pass)
        ++m_misses;
    std::printf(" | target <= %.2f | %s\n", target, pass ? "PASS" : "MISS");
}

void CBenchReport::Ratio(const std::string& metric, const CBestTime& own, const std::string& reference,
                         const CBestTime& referenceTime, double target)
{
    const double ratio = own.Wall() / referenceTime.Wall();
    std::printf("  %-10s own %9.1f ms | %-16s %9.1f ms | ratio %5.2f (cpu %5.2f)", metric.c_str(), own.Wall() * 1000,
                reference.c_str(), referenceTime.Wall() * 1000, ratio, own.Cpu() / referenceTime.Cpu());
    Verdict(ratio, target);
}

void CBenchReport::Memory(const std::string& metric, long long addedBytes, long long fileBytes, double target)
{
    if (addedBytes < 0 || fileBytes <= 0) {
        std::printf("  %-10s could not be measured\n", metric.c_str());
        ++m_misses;
        return;
    }
    const double ratio = static_cast<double>(addedBytes) / static_cast<double>(fileBytes);
    std::printf("  %-10s adds %8.1f MB | file (plain)      %8.1f MB | ratio %5.2f            ", metric.c_str(),
                addedBytes / 1048576.0, fileBytes / 1048576.0, ratio);
    Verdict(ratio, target);
}

void CBenchReport::Instructions(const std::string& metric, long long own, const std::string& reference,
                                long long referenceCount, double target)
{
    if (own <= 0 || referenceCount <= 0) {
        std::printf("  %-10s could not be counted (valgrind)\n", metric.c_str());
        ++m_misses;
        return;
    }
    const double ratio = static_cast<double>(own) / static_cast<double>(referenceCount);
    std::printf("  %-10s own %7.2f G instr | %-12s %7.2f G instr | ratio %5.2f         ", metric.c_str(), own / 1e9,
                reference.c_str(), referenceCount / 1e9, ratio);
    Verdict(ratio, target);
}

void CBenchReport::Growth(const std::string& metric, const CBestTime& small, const CBestTime& large, double target)
{
    const double ratio = large.Wall() / small.Wall();
    std::printf("  %-10s 10,000 jumps %9.1f ms | 100,000 jumps %9.1f ms | growth %5.2f (cpu %5.2f)", metric.c_str(),
                small.Wall() * 1000, large.Wall() * 1000, ratio, large.Cpu() / small.Cpu());
    Verdict(ratio, target);
}

void CBenchReport::Note(const std::string& text)
{
    std::printf("%s\n", text.c_str());
}
