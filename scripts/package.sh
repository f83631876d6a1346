#!/usr/bin/env bash
# Builds the Debian package: a Release build of the two programs in build-package/, then CPack.
# Prints the path of the .deb; install it with "apt-get install ./build-package/<file>.deb".
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/deps.sh"

build="$root/build-package"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DTERVOLA_BUILD_TESTS=OFF -DTERVOLA_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"${TERVOLA_JOBS:-$(nproc)}"
rm -f "$build"/tervola-pocket_*.deb
(cd "$build" && cpack -G DEB -B "$build" >/dev/null)
deb=$(ls "$build"/tervola-pocket_*.deb)
echo "$deb"
