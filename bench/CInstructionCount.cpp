#include "CInstructionCount.h"

#include "CPeakMemoryProbe.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Runs argv with standard output and error going nowhere; true when it exits with 0.
bool RunQuietly(std::vector<std::string> all)
{
    std::vector<char*> argv;
    for (std::string& arg : all)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        if (nowhere >= 0) {
            dup2(nowhere, STDOUT_FILENO);
            dup2(nowhere, STDERR_FILENO);
        }
        execvp(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool CInstructionCount::Available()
{
    return RunQuietly({"valgrind", "--version"});
}

long long CInstructionCount::Measure(const std::vector<std::string>& args, const std::string& folder)
{
    const std::string out = folder + "/callgrind.out." + std::to_string(getpid());
    std::vector<std::string> all = {"valgrind", "--tool=callgrind", "--callgrind-out-file=" + out, "/proc/self/exe",
                                    CPeakMemoryProbe::kChildFlag};
    all.insert(all.end(), args.begin(), args.end());
    // /proc/self/exe would name valgrind in the child; the benchmark's own path goes instead.
    char self[4096] = {};
    const ssize_t length = readlink("/proc/self/exe", self, sizeof self - 1);
    if (length <= 0)
        return -1;
    all[3] = std::string(self, static_cast<std::size_t>(length));
    if (!RunQuietly(all))
        return -1;
    // The output names the total of every event once: "summary: N" (older: "totals: N").
    std::ifstream in(out);
    std::string line;
    long long total = -1;
    while (std::getline(in, line)) {
        if (line.rfind("summary:", 0) == 0 || line.rfind("totals:", 0) == 0)
            total = std::atoll(line.c_str() + line.find(':') + 1);
    }
    std::remove(out.c_str());
    return total;
}
