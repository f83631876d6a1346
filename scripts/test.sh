#!/usr/bin/env bash
# Builds everything with warnings as errors and runs every test suite.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"

jobs=$(nproc)
build="$root/build-test"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTERVOLA_WERROR=ON >/dev/null
cmake --build "$build" -j"$jobs"

export QT_QPA_PLATFORM=offscreen
cd "$build"
ctest --output-on-failure -j"$jobs"
