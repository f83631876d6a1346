// The libFuzzer entry point of one fuzz target; TERVOLA_FUZZ_BODY names the body it drives.
#include "FuzzTargets.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string problem = TERVOLA_FUZZ_BODY(data, size);
    if (!problem.empty()) {
        // A broken property is a finding like a crash: libFuzzer keeps the input.
        std::fprintf(stderr, "broken property: %s\n", problem.c_str());
        std::abort();
    }
    return 0;
}
