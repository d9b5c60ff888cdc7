#!/usr/bin/env bash
# Fails when a library shows more than its contract, or calls what no library of this project may.
#
#   scripts/check_symbols.sh BUILD-FOLDER
#
# 1. libTSLM5DataManager.so exports the functions that include/tslm5/component/entry_points.h
#    declares, and nothing else.
# 2. libTSLMRep5.so exports tslm5::OpenRun, and nothing else.
# 3. The rooms' own archives print nothing, end no process, and never turn numbers into text or
#    back by the C locale.
set -euo pipefail

if [ $# -ne 1 ]; then
  echo "usage: scripts/check_symbols.sh BUILD-FOLDER" >&2
  exit 2
fi
lib="$1/lib"
header="$(dirname "$0")/../include/tslm5/component/entry_points.h"
failed=0

# The functions that a plain C header declares, one a line.
declared_functions() {
  sed '/^ *#/d' "$1" | tr '\n' ' ' | sed -E 's#/\*([^*]|\*+[^*/])*\*+/##g' |
    grep -oE '[A-Za-z_][A-Za-z0-9_]* *\([^()]*\) *;' | sed -E 's/ *\(.*//'
}

# The demangled names, without arguments, that a shared library exports, one a line.
exported_names() {
  nm -D -C --defined-only "$1" | sed -E 's/^[0-9a-f]* *[A-Za-z] //; s/\(.*//; s/@.*//'
}

# check_exports LIBRARY EXPECTED-NAMES
check_exports() {
  local expected actual
  if [ ! -f "$1" ]; then
    echo "$1: missing" >&2
    failed=1
    return
  fi
  expected=$(sort -u <<<"$2")
  actual=$(exported_names "$1" | sort -u)
  if [ "$expected" != "$actual" ]; then
    echo "$1: exports differ from the contract (< the contract, > the library):" >&2
    diff <(echo "$expected") <(echo "$actual") >&2 || true
    failed=1
  fi
}

check_exports "$lib/libTSLM5DataManager.so" "$(declared_functions "$header")"
check_exports "$lib/libTSLMRep5.so" "tslm5::OpenRun"

# Mangled names: the C functions and streams that print, end the process, or read and write numbers
# by the C locale.
prints='_?_?[vfd]?printf(_chk)?|vfprintf|puts|putchar|perror|stdout|stderr'
prints+='|_ZSt[34](cout|cerr|clog)|_ZN3fmt2v[0-9]+6vprint.*'
ends='abort|exit|_exit|_Exit|quick_exit|__assert_fail'
by_locale='setlocale|strto(f|d|ld)|ato[fil]|v?sn?printf|__vsn?printf_chk|__sn?printf_chk|v?sscanf'

shopt -s nullglob
archives=0
for archive in "$lib"/libtslm5_*.a; do
  case "${archive##*/}" in
    libtslm5_host*.a | *test*.a) continue ;;
  esac
  archives=$((archives + 1))
  forbidden="$prints|$ends|$by_locale"
  # nlohmann/json brings them along, and does not depend on the locale with them.
  [ "${archive##*/}" != libtslm5_preparation.a ] ||
    forbidden="$prints|$ends|setlocale|ato[fil]|v?sscanf"
  found=$(nm --undefined-only --format=posix "$archive" |
    awk -v forbidden="^($forbidden)$" '/:$/ { object = $1 } $1 ~ forbidden { print "  " object " " $1 }')
  if [ -n "$found" ]; then
    printf '%s: calls what no library may:\n%s\n' "$archive" "$found" >&2
    failed=1
  fi
done
if [ "$archives" -eq 0 ]; then
  echo "$lib: no archive libtslm5_*.a" >&2
  failed=1
fi

[ "$failed" -eq 0 ] && echo "2 libraries and $archives archives keep their contracts"
exit "$failed"
