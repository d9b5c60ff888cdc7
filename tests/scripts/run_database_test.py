"""Holds docs/run-database.md to the schema of a run that the host has made."""

import os
import pathlib
import re
import sqlite3
import subprocess
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT = TOP / "docs" / "run-database.md"

# Tables that a load does not make.
ONLY_BY_EMBEDDING = {"TimeSeriesTrainingSet", "TimeSeriesTestingSet"}


def documented_tables(text):
    """The columns of each table of the document, as (name, type), in its order."""
    tables = {}
    for heading, body in re.findall(r"^## ([^\n]*`[^\n]*)\n(.*?)(?=^## |\Z)", text, re.S | re.M):
        table = body.split("| column | type | meaning |\n|---|---|---|\n")[1].split("\n\n")[0]
        columns = re.findall(r"^\| `([^`]+)` \| ([^|]+?) \| [^|]+\|$", table, re.M)
        assert len(columns) == len(table.strip().splitlines()), heading
        for name in re.findall(r"`(\w+)`", heading):
            tables[name] = columns
    return tables


def documented_parameters(text):
    row = r"^\| `(\w+)` \| (?:`(\w+)`|the token) \| (intvalue|floatvalue) \|"
    return re.findall(row, text, re.M)


class RunDatabase(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.text = DOCUMENT.read_text()
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        run = pathlib.Path(folder.name) / "air.db"
        words = [os.environ["TSLM5_HOST"], "load", TOP / "examples/data/air_quality.csv"]
        words += ["--run", run, "--testing-share", "0.2", "--normalize", "zscore"]
        words += ["--missing", "unknown"]
        environment = {**os.environ, "LC_ALL": "C"}
        subprocess.run(words, check=True, stdout=subprocess.DEVNULL, env=environment, timeout=120)
        cls.run_file = sqlite3.connect(run)
        cls.addClassCleanup(cls.run_file.close)

    def ask(self, statement):
        return self.run_file.execute(statement).fetchall()

    def columns_of(self, table):
        columns = []
        for _, name, kind, _, _, key in self.ask(f"PRAGMA table_info({table})"):
            name = re.sub(r"^d\d+$", "d<i>", name)
            column = (name, (kind or "–") + (", key" if key else ""))
            if column not in columns:
                columns.append(column)
        return columns

    def test_tables_and_columns_are_those_of_a_run(self):
        documented = documented_tables(self.text)
        names = [name for (name,) in self.ask("SELECT name FROM sqlite_master WHERE sql <> ''")]
        self.assertIn("TrainingSetBackup", names)
        real = {name.removesuffix("Backup") for name in names}
        self.assertEqual(real | ONLY_BY_EMBEDDING, set(documented))
        for name in names:
            with self.subTest(name):
                self.assertEqual(self.columns_of(name), documented[name.removesuffix("Backup")])

    def test_schema_version_is_the_one_told(self):
        version = re.search(r"\*\*The schema version\*\* is \*\*(\d+)\*\*", self.text)[1]
        self.assertEqual(self.ask("PRAGMA user_version"), [(int(version),)])

    def test_parameters_are_told_and_have_their_value_where_it_is_told(self):
        documented = documented_parameters(self.text)
        stored = self.ask("SELECT namespace, element, intvalue, floatvalue FROM RunParameters")
        told = []
        for space, element, whole, number in stored:
            self.assertNotEqual(whole is None, number is None, element)
            kind = "floatvalue" if whole is None else "intvalue"
            told.append((space, "" if space == "missing_token" else element, kind))
        self.assertEqual(sorted(told), sorted(documented))

    def test_columns_without_a_scale_have_figures_that_change_nothing(self):
        row = re.search(r"^\| 1 \| (.+) \|$", self.text, re.M)[1]
        identity = tuple(float(figure) for figure in row.split(" | "))
        for table in ("DataSetStatisticsForCode", "DataSetStatisticsForMissing"):
            figures = self.ask(
                "SELECT IsNominal OR IsResponse, Average, StandardDeviation, Minimum, Maximum "
                f"FROM {table} JOIN DataSetColumn USING (ColumnIndex)"
            )
            self.assertEqual({bool(unscaled) for unscaled, *_ in figures}, {True, False})
            for unscaled, *own in figures:
                self.assertEqual(tuple(own) == identity, bool(unscaled), (table, own))

    def test_a_split_keeps_the_record_numbers_of_the_file(self):
        keys = self.ask("SELECT row FROM TrainingSet UNION ALL SELECT row FROM TestingSet")
        first, last = self.ask("SELECT MIN(row), MAX(row) FROM OriginalData")[0]
        self.assertEqual(sorted(key for (key,) in keys), list(range(first, last + 1)))
        self.assertEqual(self.ask("SELECT d0, d1 FROM OriginalData WHERE row = 3"), [("May", "3")])


if __name__ == "__main__":
    unittest.main()
