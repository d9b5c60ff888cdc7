#!/usr/bin/env bash
# Loads one file of numbers twice: by `tslm5 load` and by the sqlite3 shell's .import into a table of
# the same columns, and prints the seconds of both.
#
#   bench/compare_with_import.sh BUILD-FOLDER [ROWS]      (needs the package sqlite3)
set -euo pipefail

build=$(realpath "${1:?usage: bench/compare_with_import.sh BUILD-FOLDER [ROWS]}")
rows=${2:-1000000}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$build/bin/write_numbers" "$folder/numbers.csv" "$rows" 10
cd "$folder"

seconds() {
  local begun
  begun=$(date +%s.%N)
  "$@" >/dev/null
  echo "$(date +%s.%N) $begun" | awk '{ printf "%.2f", $1 - $2 }'
}

import() {
  sqlite3 imported.db \
    'CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, d3 FLOAT, d4 FLOAT, d5 FLOAT, d6 FLOAT, d7 FLOAT, d8 FLOAT, d9 FLOAT)' \
    '.import --csv numbers.csv TrainingSet'
}

printf '%s rows of 10 columns, %s bytes\n' "$rows" "$(stat -c %s numbers.csv)"
printf 'sqlite3 .import        %s s\n' "$(seconds import)"
printf 'IDataSet.Parse         %s s\n' "$(seconds "$build/bin/parse_once" numbers.csv parsed.db)"
printf 'tslm5 load             %s s (check, table, original texts, statistics)\n' \
  "$(seconds "$build/bin/tslm5" load numbers.csv --run loaded.db --no-labels)"
