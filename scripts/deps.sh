#!/usr/bin/env bash
# Makes sure the Debian packages the build needs are installed. As root it installs what is
# missing; otherwise it prints the exact command to run and stops.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config git ccache
  zlib1g-dev libssl-dev libgtest-dev libexpat1-dev
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev libgl-dev
  qt6-l10n-tools qt6-tools-dev qt6-tools-dev-tools qt6-translations-l10n
  clang clang-format libclang-rt-14-dev lld
  fonts-dejavu-core
  desktop-file-utils appstream shared-mime-info libxml2-utils dpkg-dev groff-base
  poppler-utils
)
if [ "${TERVOLA_WITH_XVFB:-0}" = 1 ]; then packages+=(xvfb xauth); fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
else
  echo "These Debian packages are missing. Install them with:" >&2
  echo "  sudo apt-get install -y ${missing[*]}" >&2
  exit 1
fi
