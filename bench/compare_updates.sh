#!/usr/bin/env bash
# Recodes a category and fills the gaps of a column, in turn by the sqlite3 shell and by the component,
# each time on a fresh copy of one run, and prints the median seconds of the clock and of the
# processor. Then the same with an index on the texts that the sub-selects look for. The shell sends
# the same statements, once with its own page cache and once with the 48 MiB of a run, whose first
# filling costs some 20 ms a connection.
#
#   bench/compare_updates.sh BUILD-FOLDER [ROWS] [ROUNDS]      (needs the package sqlite3)
set -euo pipefail

build=$(realpath "${1:?usage: bench/compare_updates.sh BUILD-FOLDER [ROWS] [ROUNDS]}")
rows=${2:-1000000}
rounds=${3:-5}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

# Ten columns: d0 five words (a fifth each) and one rare word, d1 a number with a tenth of gaps of two
# kinds, the rest numbers.
sqlite3 run.db <<SQL
CREATE TABLE OriginalData (row INTEGER PRIMARY KEY, d0 TEXT, d1 TEXT, d2 TEXT, d3 TEXT, d4 TEXT, d5 TEXT, d6 TEXT, d7 TEXT, d8 TEXT, d9 TEXT);
CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, d3 FLOAT, d4 FLOAT, d5 FLOAT, d6 FLOAT, d7 FLOAT, d8 FLOAT, d9 FLOAT, row INTEGER PRIMARY KEY);
CREATE TABLE DataSetColumnCategories (Name TEXT, NominalValue TEXT, NumericValue NUMERIC, CategoryCount INTEGER);
CREATE TABLE MissingMappings (Id INTEGER PRIMARY KEY, ColumnIndex INTEGER, MissingCount INTEGER, OriginalValue TEXT, Replacement NUMERIC, ReplacementType INTEGER);
CREATE TABLE RunParameters (namespace TEXT, element TEXT, intvalue INTEGER, floatvalue REAL);
INSERT INTO DataSetColumnCategories VALUES ('d0', 'word0', 0, $rows / 5), ('d0', 'rare', 9, 10);
INSERT INTO MissingMappings VALUES (1, 1, $rows / 20, '?', 5, 1), (2, 1, $rows / 20, 'NA', 7.5, 1);
WITH RECURSIVE n(row) AS (SELECT 1 UNION ALL SELECT row + 1 FROM n WHERE row < $rows)
INSERT INTO OriginalData SELECT row,
  CASE WHEN row % ($rows / 10) = 7 THEN 'rare' ELSE 'word' || (row * 7 % 5) END,
  CASE row % 20 WHEN 3 THEN '?' WHEN 13 THEN 'NA' ELSE row / 8.0 END,
  row * 1.25, row * 2.5, row / 3.0, row % 100, row % 7, row * 0.5, row % 13, row % 2 FROM n;
INSERT INTO TrainingSet SELECT substr(d0, 5), CASE WHEN d1 IN ('?', 'NA') THEN NULL ELSE d1 END,
  d2, d3, d4, d5, d6, d7, d8, d9, row FROM OriginalData;
UPDATE TrainingSet SET d0 = 9 WHERE row IN (SELECT row FROM OriginalData WHERE d0 = 'rare');
SQL

recode() {
  cat <<SQL
SELECT NumericValue FROM DataSetColumnCategories WHERE Name = 'd0' AND NominalValue = '$1';
UPDATE DataSetColumnCategories SET NumericValue = 50 WHERE Name = 'd0' AND NominalValue = '$1';
UPDATE TrainingSet SET d0 = 50 WHERE row IN (SELECT row FROM OriginalData WHERE d0 = '$1');
SQL
}

fill() {
  cat <<'SQL'
BEGIN IMMEDIATE;
UPDATE TrainingSet SET d1 = 5 WHERE row IN (SELECT od.row FROM OriginalData od WHERE od.d1 = '?');
UPDATE TrainingSet SET d1 = 7.5 WHERE row IN (SELECT od.row FROM OriginalData od WHERE od.d1 = 'NA');
COMMIT;
SQL
}

# The seconds of the statements on standard input, without those of opening the run: those of the
# clock and those of the processor.
shell_seconds() {
  { printf 'PRAGMA cache_size = %s;\n.timer on\n' "$1"; cat; } | sqlite3 copy.db |
    awk '/^Run Time/ { wall += $4; cpu += $6 + $8 } END { printf "%.3f %.3f\n", wall, cpu }'
}

# The median of a column of numbers.
median() { cut -d ' ' -f "$1" "$2" | sort -n | sed -n "$(((rounds + 1) / 2))p"; }

# compare NAME SHELL-FUNCTION SHELL-ARGUMENT UPDATE_ONCE-ARGUMENTS...
compare() {
  local name=$1 statements=$2 argument=$3 round cache
  shift 3
  rm -f ./*.txt
  for ((round = 0; round < rounds; ++round)); do
    for cache in -2000 -49152; do
      cp run.db copy.db && sync copy.db
      "$statements" "$argument" | shell_seconds "$cache" >>"shell$cache.txt"
    done
    cp run.db copy.db && sync copy.db
    "$build/bin/update_once" copy.db "$@" >>component.txt
  done
  printf '%-36s' "$name"
  local field
  for field in 1 2; do
    printf '   %6.3f %6.3f %6.3f' "$(median "$field" shell-2000.txt)" \
      "$(median "$field" shell-49152.txt)" "$(median "$field" component.txt)"
  done
  echo
}

compare_all() {
  compare "UpdateCategory, a fifth$1" recode word0 category d0 word0 50
  compare "UpdateCategory, ten records$1" recode rare category d0 rare 50
  compare "ApplyMissing, a tenth$1" fill '' missing 1
}

size() { stat -c %s run.db; }

printf '%s rows of 10 columns, median of %s\n' "$rows" "$rounds"
printf '%-36s   %-20s   %s\n' 'sqlite3, with our cache, component' 'clock' 'processor'
compare_all ''
before=$(size)
printf '.timer on\nCREATE INDEX words ON OriginalData (d0);\nCREATE INDEX gaps ON OriginalData (d1);\n' |
  sqlite3 run.db | awk '/^Run Time/ { printf "an index                               %6.3f\n", $4 }'
printf 'both indexes                         %s bytes on %s\n' "$(($(size) - before))" "$before"
compare_all ', indexed'
