#!/usr/bin/env bash
# Checks the C++ files' formatting; builds everything with warnings as errors and runs every test suite; builds everything and its
# tests again with AddressSanitizer and UndefinedBehaviorSanitizer and runs them; builds the fuzz
# targets with clang and runs each for a short fixed time on its seed corpus. Any failure stops
# the script with a non-zero status. The main build's test summary is printed last.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
jobs=$(nproc)
# One compile more than there are cores keeps them busy while another job waits for the disk or
# a link.
build_jobs=$((jobs + 1))
fuzz_seconds=${TERVOLA_FUZZ_SECONDS:-20}
export QT_QPA_PLATFORM=offscreen
started=$SECONDS

# Each step prints its name and start; the step before it is closed with its duration, and the
# end prints every step's duration and the total, so that a slow step stands out.
step_name=""
step_started=$SECONDS
timings=()
end_step() {
  if [ -n "$step_name" ]; then
    timings+=("$(printf '%6d s  %s' $((SECONDS - step_started)) "$step_name")")
    echo "--- $step_name took $((SECONDS - step_started)) s"
  fi
}
step() {
  end_step
  step_name="$*"
  step_started=$SECONDS
  echo
  echo "=== $* (at $((SECONDS - started)) s)"
}
summary() {
  end_step
  step_name=""
  echo
  echo "=== time per step"
  printf '%s\n' "${timings[@]}"
  printf '%6d s  total\n' $((SECONDS - started))
}

step "packages"
"$root/scripts/deps.sh"

step "format check"
"$root/scripts/format.sh"

step "main build"
# The program optimised as a release is (-O2, whose analyses some warnings need), with -g1: file
# and line of every frame for a debugger or a crash report, without the rest of the debugging
# information, which costs a third of the time of compiling a test. The tests themselves are not
# optimised (-O0): they call the optimised program, and compiling them costs half as much.
build="$root/build-test"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTERVOLA_WERROR=ON \
  -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O2 -g1 -DNDEBUG" -DCMAKE_C_FLAGS_RELWITHDEBINFO="-O2 -g1 -DNDEBUG" \
  -DTERVOLA_TEST_OPTIMIZE=-O0 >/dev/null
cmake --build "$build" -j"$build_jobs"

step "sanitizer build (address, undefined behaviour)"
# Warnings are the main build's business (it has -Werror). This build is clang's, unoptimised
# (-O0), with line tables (-g1) for the reports: clang compiles the instrumented tests and windows
# in about half the time gcc needs at -O1, and no check is lost (-O0 optimises no access away).
# The core alone keeps -O1, since the load and parse tests drive its loops through hundreds of
# megabytes. The fuzz build's clang compiles the same core, so clang sees every core file anyway.
# (The fuzz programs are not linked here: libFuzzer's coverage of every comparison slows the core's
# parse loops so much that the resource-limit tests, which drive them through gigabytes, overrun.)
asan="$root/build-asan"
CC=clang CXX=clang++ cmake -S "$root" -B "$asan" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTERVOLA_SANITIZE=ON \
  -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O0 -g1 -DNDEBUG" -DCMAKE_C_FLAGS_RELWITHDEBINFO="-O0 -g1 -DNDEBUG" \
  -DTERVOLA_CORE_OPTIMIZE=-O1 \
  -DTERVOLA_WERROR=OFF -DTERVOLA_BUILD_BENCH=OFF >/dev/null
cmake --build "$asan" -j"$build_jobs"
step "sanitizer tests"
if ! (cd "$asan" && UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure -j"$jobs" >"$asan/ctest.log" 2>&1); then
  tail -n 200 "$asan/ctest.log"
  echo "the sanitizer build's tests failed; the whole log is $asan/ctest.log" >&2
  exit 1
fi
grep -E 'tests passed|Total Test time' "$asan/ctest.log"

step "fuzz build (clang, libFuzzer)"
# Only the core and the fuzz bodies, at -O1 with line tables: a fuzzer finds as much, and the
# build takes half the time of -O2 with full debugging information.
fuzz="$root/build-fuzz"
fuzz_targets=(xml_parser document_load xml_values query flysight_track csv_jumps)
CC=clang CXX=clang++ cmake -S "$root" -B "$fuzz" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g1 -DNDEBUG" -DCMAKE_C_FLAGS_RELWITHDEBINFO="-O1 -g1 -DNDEBUG" \
  -DTERVOLA_FUZZ=ON -DTERVOLA_BUILD_GUI=OFF -DTERVOLA_BUILD_BENCH=OFF >/dev/null
cmake --build "$fuzz" -j"$build_jobs" --target "${fuzz_targets[@]/#/fuzz_}"

# Each target gets its full seconds; as many run at once as there are cores, since a fuzzer
# uses one.
step "fuzzing ${#fuzz_targets[@]} targets for $fuzz_seconds s each, $jobs at a time"
export root fuzz fuzz_seconds
rm -f "$fuzz"/fuzz-*.failed
printf '%s\n' "${fuzz_targets[@]}" | xargs -P "$jobs" -I{} bash -c \
  'TERVOLA_FUZZ_NO_BUILD=1 "$root/scripts/fuzz.sh" {} "$fuzz_seconds" >"$fuzz/fuzz-{}.log" 2>&1 || touch "$fuzz/fuzz-{}.failed"' || true
for target in "${fuzz_targets[@]}"; do
  log="$fuzz/fuzz-$target.log"
  if [ -e "$fuzz/fuzz-$target.failed" ]; then
    rm -f "$fuzz/fuzz-$target.failed"
    tail -n 60 "$log"
    echo "fuzz target $target found a problem; its input is in $fuzz/fuzz-findings/$target" >&2
    exit 1
  fi
  echo "$target:"
  grep -E '^(Done|stat::number_of_executed_units|stat::peak_rss_mb)' "$log"
done

step "main tests"
cd "$build"
ctest --output-on-failure -j"$jobs" | tee "$build/ctest.log"
summary
# The test summary comes last, as the run's result.
echo
grep -E 'tests passed|tests failed|Total Test time' "$build/ctest.log"
