#include "CPeakMemoryProbe.h"

#include "CExpatCounter.h"

#include "document/CLogbookDoc.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

long long CPeakMemoryProbe::OwnPeakBytes()
{
    if (std::FILE* status = std::fopen("/proc/self/status", "r")) {
        char line[256];
        long long kb = -1;
        while (std::fgets(line, sizeof line, status) != nullptr) {
            if (std::strncmp(line, "VmHWM:", 6) == 0) {
                kb = std::atoll(line + 6);
                break;
            }
        }
        std::fclose(status);
        if (kb >= 0)
            return kb * 1024;
    }
    rusage usage{};
    if (getrusage(RUSAGE_SELF, &usage) != 0)
        return -1;
    return static_cast<long long>(usage.ru_maxrss) * 1024;
}

bool CPeakMemoryProbe::RunChildIfAsked(int argc, char** argv, int& exitCode)
{
    if (argc < 3 || std::strcmp(argv[1], kChildFlag) != 0)
        return false;
    // "empty": only the tool and an empty logbook; "load PATH": the same plus a loaded file;
    // "expat PATH": the reference reader on a plain file instead.
    const std::string what = argv[2];
    CLogbookDoc doc;
    bool ok = true;
    if (what == "load" && argc >= 4) {
        ok = static_cast<bool>(doc.Load(argv[3]));
    } else if (what == "expat" && argc >= 4) {
        CExpatCounter expat;
        ok = expat.ParseFile(argv[3], 64 * 1024);
    } else if (what != "empty") {
        ok = false;
    }
    std::printf("%lld %zu\n", OwnPeakBytes(), doc.GetJumpCount());
    std::fflush(stdout);
    exitCode = ok ? 0 : 1;
    return true;
}

long long CPeakMemoryProbe::Measure(const std::vector<std::string>& args)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        return -1;
    std::vector<std::string> all = {"/proc/self/exe", kChildFlag};
    all.insert(all.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (std::string& arg : all)
        argv.push_back(arg.data());
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child < 0) {
        close(pipeEnds[0]);
        close(pipeEnds[1]);
        return -1;
    }
    if (child == 0) {
        dup2(pipeEnds[1], STDOUT_FILENO);
        close(pipeEnds[0]);
        close(pipeEnds[1]);
        execv("/proc/self/exe", argv.data());
        _exit(127);
    }
    close(pipeEnds[1]);
    std::string output;
    char buffer[256];
    ssize_t n = 0;
    while ((n = read(pipeEnds[0], buffer, sizeof buffer)) > 0)
        output.append(buffer, static_cast<std::size_t>(n));
    close(pipeEnds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return -1;
    return std::atoll(output.c_str());
}
