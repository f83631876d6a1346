#!/usr/bin/env bash
# Builds the Debian package of a build folder with CPack and checks its files and control fields:
#   deb.sh CPACK BUILD OUTDIR VERSION
# Exits 77 (the test is skipped) only when dpkg's tools are not installed.
set -euo pipefail
cpack=$1 build=$2 out=$3 version=$4
id=fi.orlithe.TervolaPocket

for tool in dpkg dpkg-deb dpkg-shlibdeps; do
  if ! command -v "$tool" >/dev/null; then
    echo "SKIP: $tool is not installed (scripts/deps.sh installs dpkg-dev)"
    exit 77
  fi
done
fail() {
  echo "FAIL: $*" >&2
  exit 1
}

rm -rf "$out"
mkdir -p "$out"
if ! "$cpack" -G DEB --config "$build/CPackConfig.cmake" -B "$out" >"$out/cpack.log" 2>&1; then
  cat "$out/cpack.log"
  fail "cpack"
fi
arch=$(dpkg --print-architecture)
deb="$out/tervola-pocket_${version}_${arch}.deb"
[ -f "$deb" ] || { cat "$out/cpack.log"; fail "no $deb"; }

# Control fields.
field() { dpkg-deb -f "$deb" "$1"; }
dpkg-deb -f "$deb" Package Version Architecture Maintainer Section Depends Description
[ "$(field Package)" = tervola-pocket ] || fail "Package"
[ "$(field Version)" = "$version" ] || fail "Version"
[ "$(field Architecture)" = "$arch" ] || fail "Architecture"
[ "$(field Section)" = utils ] || fail "Section"
[[ $(field Maintainer) =~ ^[^\<]+\ \<[^@\>]+@[^\>]+\>$ ]] || fail "Maintainer"
description=$(field Description)
[[ $(head -n 1 <<<"$description") == "skydiver's logbook"* ]] || fail "Description's summary"
[ "$(wc -l <<<"$description")" -gt 3 ] || fail "Description has no long text"
# Depends comes from the programs' libraries (dpkg-shlibdeps), each with a lowest version.
depends=$(field Depends)
for package in libc6 libstdc++6 libqt6core6 libqt6gui6 libqt6widgets6 libqt6svg6 zlib1g; do
  grep -q "^$package (>= [^)]*)\$" <<<"${depends//, /$'\n'}" \
    || fail "Depends lacks $package: $depends"
done
# Qt's own translations, so that its buttons and dialogs speak the program's languages.
[ "$(field Recommends)" = qt6-translations-l10n ] || fail "Recommends"

# Files: everything under /usr, owned by root, and the installed set complete.
listing=$(dpkg-deb -c "$deb")
echo "$listing"
if awk '$2 != "root/root" || $6 !~ /^\.\/usr\// {found = 1} END {exit !found}' <<<"$listing"; then
  fail "a file outside ./usr/ or not owned by root"
fi
for file in usr/bin/tervola-pocket usr/bin/tervola \
            "usr/share/applications/$id.desktop" \
            "usr/share/mime/packages/$id.xml" \
            "usr/share/metainfo/$id.metainfo.xml" \
            "usr/share/icons/hicolor/scalable/apps/$id.svg" \
            usr/share/man/man1/tervola.1.gz; do
  grep -qE "^(-rwxr-xr-x|-rw-r--r--) root/root .* \./$file\$" <<<"$listing" \
    || fail "$file missing or with wrong mode"
done
[ "$(grep -c '^-' <<<"$listing")" -eq 7 ] || fail "unexpected files in the package"
