#!/usr/bin/env bash
# The check's limit on rows, at full size: 20,000,001 rows pass, 20,000,002 do not. Prints time and
# peak memory of both.
#
#   bench/twenty_million_rows.sh BUILD-FOLDER
set -euo pipefail

build=$(realpath "${1:?usage: bench/twenty_million_rows.sh BUILD-FOLDER}")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

for rows in 20000001 20000002; do
  "$build/bin/write_numbers" "$folder/numbers.csv" "$rows" 2
  printf '%s rows, %s bytes\n' "$rows" "$(stat -c %s "$folder/numbers.csv")"
  time "$build/bin/parse_once" --check "$folder/numbers.csv"
done
