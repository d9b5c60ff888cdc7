#!/usr/bin/env bash
# Fails when a public header does not compile alone, with nothing but include/ on its path.
#
#   scripts/check_headers.sh
#
# Uses the compiler named in CXX (c++ when it is not set).
set -euo pipefail

cd "$(dirname "$0")/../include"
find tslm5 -name '*.h' -print0 | sort -z |
  xargs -0 -n 1 -P "$(nproc)" "${CXX:-c++}" -std=c++20 -x c++ -fsyntax-only -Wall -Wextra -Werror -I .
printf '#include "tslm5/component/entry_points.h"\n' | "${CC:-cc}" -std=c11 -x c -fsyntax-only -I . -
