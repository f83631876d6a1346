#!/usr/bin/env bash
# Runs one check on an installed tree (see CheckInstall.cmake):
#   validate.sh desktop|appstream|mime|manpage PREFIX VERSION TESTDATA
# Exits 77 (the test is skipped) only when a tool the check needs is not installed.
set -euo pipefail
check=$1 prefix=$2 version=$3 data=$4
id=fi.orlithe.TervolaPocket

need() {
  for tool in "$@"; do
    if ! command -v "$tool" >/dev/null; then
      echo "SKIP: $tool is not installed (scripts/deps.sh installs it)"
      exit 77
    fi
  done
}
fail() {
  echo "FAIL: $*" >&2
  exit 1
}

case "$check" in
desktop)
  need desktop-file-validate
  entry="$prefix/share/applications/$id.desktop"
  out=$(desktop-file-validate "$entry" 2>&1) || fail "desktop-file-validate: $out"
  echo "desktop-file-validate: ${out:-no remarks}"
  # Hints are advice; errors and warnings fail.
  if grep -E ': (error|warning):' <<<"$out"; then fail "desktop-file-validate reports problems"; fi
  ;;

appstream)
  need appstreamcli
  # The file on its own, then the tree: the latter also finds the desktop entry it launches.
  appstreamcli validate --no-net "$prefix/share/metainfo/$id.metainfo.xml" \
    || fail "appstreamcli validate"
  appstreamcli validate-tree --no-net "$prefix" || fail "appstreamcli validate-tree"
  ;;

mime)
  need xmllint update-mime-database
  for file in "$prefix/share/mime/packages/$id.xml" "$prefix/share/metainfo/$id.metainfo.xml" \
              "$prefix/share/icons/hicolor/scalable/apps/$id.svg"; do
    xmllint --noout "$file" || fail "$file is not well-formed XML"
  done
  # Build a MIME database from the package alone and resolve real logbooks through its tables,
  # the way a desktop does: by file name, and for a plain logbook by its root element.
  db=$(mktemp -d)
  trap 'rm -rf "$db"' EXIT
  mkdir "$db/packages"
  cp "$prefix/share/mime/packages/$id.xml" "$db/packages/"
  update-mime-database "$db" 2>/dev/null || fail "update-mime-database"
  by_name() {
    # Globs match without regard to case unless flagged "cs".
    local name weight type pattern flags
    while IFS=: read -r weight type pattern flags; do
      [[ $weight == \#* ]] && continue
      name=$1
      if [[ ,$flags, != *,cs,* ]]; then name=${name,,}; pattern=${pattern,,}; fi
      # shellcheck disable=SC2053 # the glob is meant as a pattern
      if [[ $name == $pattern ]]; then echo "$type"; return; fi
    done <"$db/globs2"
  }
  by_root() {
    # Lines are "NAMESPACE LOCALNAME TYPE"; the empty namespace leaves two fields.
    local root=$1 ns element type
    while read -r ns element type; do
      [ -z "$type" ] && { type=$element; element=$ns; }
      if [ "$element" = "$root" ]; then echo "$type"; return; fi
    done <"$db/XMLnamespaces"
  }
  tvz="$(dirname "$0")/../../examples/demo.tvz"
  tvl="$data/golden.tvl"
  for sample in "$tvz" "$tvl"; do
    [ -f "$sample" ] || fail "sample logbook missing: $sample"
  done
  got=$(by_name "$(basename "$tvz")")
  [ "$got" = application/x-tervola-logbook-compressed ] || fail "demo.tvz resolves to '$got'"
  got=$(by_name "$(basename "$tvl")")
  [ "$got" = application/x-tervola-logbook ] || fail "golden.tvl resolves to '$got'"
  got=$(by_name "JUMPS.TVZ")
  [ "$got" = application/x-tervola-logbook-compressed ] || fail "JUMPS.TVZ resolves to '$got'"
  root=$(xmllint --xpath 'local-name(/*)' "$tvl")
  got=$(by_root "$root")
  [ "$got" = application/x-tervola-logbook ] || fail "root element '$root' resolves to '$got'"
  grep -qx 'application/x-tervola-logbook-compressed application/gzip' "$db/subclasses" \
    || fail ".tvz is not a kind of gzip"
  grep -qx 'application/x-tervola-logbook application/xml' "$db/subclasses" \
    || fail ".tvl is not a kind of XML"
  echo "demo.tvz, JUMPS.TVZ -> application/x-tervola-logbook-compressed (gzip);" \
       "golden.tvl and root <$root> -> application/x-tervola-logbook (XML)"
  ;;

manpage)
  need groff
  page="$prefix/share/man/man1/tervola.1.gz"
  gzip -t "$page" || fail "$page is not gzip"
  header=$(gzip -dc "$page" | head -n 1)
  [[ $header == ".TH TERVOLA 1 "*"\"Tervola Pocket $version\""* ]] || fail "header: $header"
  warnings=$(gzip -dc "$page" | groff -man -ww -z -Tutf8 2>&1)
  [ -z "$warnings" ] || fail "groff warns: $warnings"
  text=$(gzip -dc "$page" | groff -man -Tascii -P-cbou 2>/dev/null)
  # Every command and every long option the tool's help names is in the page.
  tool="$prefix/bin/tervola"
  commands=$("$tool" --help | sed -n '/^Commands:/,/^$/p' | awk 'NF > 1 && /^  / {print $1}')
  [ -n "$commands" ] || fail "no commands in tervola --help"
  for command in $commands; do
    grep -qE "(^|[^a-z])tervola $command " <<<"$text" \
      || fail "command '$command' not in the man page packaging/tervola.1.in"
    for option in $("$tool" "$command" --help | grep -oE -- '--[a-z][a-z-]*' | sort -u); do
      grep -qE -- "$option([^a-z-]|\$)" <<<"$text" \
        || fail "option $option of '$command' not in the man page packaging/tervola.1.in"
    done
  done
  echo "man page covers: ${commands//$'\n'/ } and their options"
  ;;

*)
  fail "unknown check: $check"
  ;;
esac
