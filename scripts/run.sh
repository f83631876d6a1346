#!/usr/bin/env bash
# Builds the program and starts it on the bundled demo logbook.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"

build="$root/build"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTERVOLA_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target tervola-pocket tervola

demo="$root/examples/demo.tvz"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display found: showing the demo logbook through the command-line tool instead."
  "$build/cli/tervola" info "$demo"
  exit 0
fi
exec "$build/program/tervola-pocket" "$demo"
