#!/usr/bin/env bash
# Runs one fuzz target for a given time with AddressSanitizer and UndefinedBehaviorSanitizer:
#   scripts/fuzz.sh TARGET SECONDS [libFuzzer options ...]
# TARGET is xml_parser, document_load, xml_values, query, flysight_track or csv_jumps. The fuzz
# build (build-fuzz, clang) is configured and brought up to date first. The seeds in
# tests/fuzz/corpus/TARGET are read but never changed; what the fuzzer adds goes to build-fuzz/fuzz-corpus/TARGET, and the input of a
# finding to build-fuzz/fuzz-findings/TARGET (check it in under tests/fuzz/regressions/TARGET
# once it is fixed). Exits non-zero on a finding.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

if [ $# -lt 2 ]; then
  echo "usage: $0 TARGET SECONDS [libFuzzer options ...]" >&2
  exit 2
fi
target=$1
seconds=$2
shift 2
case "$target" in
  xml_parser|document_load|xml_values|query|flysight_track|csv_jumps) ;;
  *) echo "unknown fuzz target: $target (xml_parser, document_load, xml_values, query, flysight_track, csv_jumps)" >&2; exit 2 ;;
esac

build="$root/build-fuzz"
if [ "${TERVOLA_FUZZ_NO_BUILD:-0}" != 1 ]; then
  CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DTERVOLA_FUZZ=ON -DTERVOLA_BUILD_GUI=OFF -DTERVOLA_BUILD_BENCH=OFF >/dev/null
  cmake --build "$build" -j"${TERVOLA_JOBS:-2}" --target "fuzz_$target" >/dev/null
fi

corpus="$build/fuzz-corpus/$target"
findings="$build/fuzz-findings/$target"
mkdir -p "$corpus" "$findings"
"$build/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=10 \
  -print_final_stats=1 -artifact_prefix="$findings/" "$@" "$corpus" "$root/tests/fuzz/corpus/$target"
