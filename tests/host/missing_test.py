"""`tslm5 missing`: replacements are shown, chosen, applied and taken back."""

import csv
import json
import math
import statistics
import subprocess
import unittest
from pathlib import Path

from host_case import PROGRAM, HostCase, query

AIR = Path(__file__).resolve().parents[2] / "examples" / "data" / "air_quality.csv"
TRAINING = "size,kind,wind,y\n1,a,NA,5\n2.5,?,3,6\nNA,b,?,7\n8,a,,8\n4,b,10,9\n"
TESTING = "size,kind,wind,y\n2,a,4,5\nNA,c,?,6\n"
SIZES = [1, 2.5, 8, 4]  # of the training records
SCALES = {
    "none": lambda x: x,
    "zscore": lambda x: (x - statistics.mean(SIZES)) / statistics.stdev(SIZES),
    "minmax": lambda x: (x - 1) / 7,
    "range:-2:3": lambda x: (x - 1) / 7 * 5 - 2,
}


class MissingTest(HostCase):
    def prepare(self, *options, training=TRAINING, testing=TESTING):
        words = ["--testing", self.write("testing.csv", testing)] if testing else []
        file = training if isinstance(training, Path) else self.write("training.csv", training)
        result = self.program("load", file, "--run", self.run_path, *words, *options)
        self.assertEqual(result.returncode, 0, result.stderr)

    def missing(self, *words):
        return self.done("missing", self.run_path, *words)

    def tokens(self, column):
        columns = json.loads(self.missing(column, "--json"))["columns"]
        return {one["token"]: one for one in columns[0]["tokens"]}

    def cell(self, column, record, table="TrainingSet"):
        """The text and the number of a cell; records are counted from 1."""
        return query(
            self.run_path,
            f"SELECT od.{column}, t.{column} FROM {table} t JOIN OriginalData od ON od.row = t.row "
            f"ORDER BY t.row LIMIT 1 OFFSET {record - 1}",
        )[0]

    def assert_cell(self, text, number, *place):
        kept, value = self.cell(*place)
        self.assertEqual(kept, text)
        self.assertTrue(math.isclose(value, number, rel_tol=1e-12, abs_tol=1e-12),
                        (value, number))

    def test_the_table(self):
        self.prepare()
        self.assertEqual(
            self.missing(),
            "size (d0): 2 gaps\n"
            "token  cells  open  replacement  chosen as\n"
            "NA         2     2            -  not chosen\n"
            "\n"
            "kind (d1), categorical: 1 gap\n"
            "token  cells  open  replacement  chosen as\n"
            "?          1     1            -  not chosen\n"
            "\n"
            "wind (d2): 4 gaps\n"
            "token    cells  open  replacement  chosen as\n"
            "NA           1     1            -  not chosen\n"
            "?            2     2            -  not chosen\n"
            "(empty)      1     1            -  not chosen\n",
        )
        self.assertEqual(self.missing("y"), "y (d3): no gaps\n")

    def test_json(self):
        self.prepare()
        told = self.done("missing", self.run_path, "kind", "--replace", "?=b")
        self.assertTrue(
            told.endswith("chosen, not yet applied: --apply writes the replacements into the data\n")
        )
        self.assertEqual(
            json.loads(self.missing("kind", "--json")),
            {"columns": [{
                "index": 1, "label": "kind", "categorical": True, "cells": 1,
                "tokens": [{"token": "?", "cells": 1, "open": 1, "replacement": 3.0,
                            "replacementType": 6, "chosenAs": "category", "categories": ["b"]}],
            }]},
        )
        self.assertIsNone(self.tokens("size")["NA"]["replacement"])

    def test_a_run_without_gaps(self):
        self.prepare(training="a,b\n1,2\n", testing=None)
        self.assertEqual(self.missing(), "no column has gaps\n")
        self.assertEqual(json.loads(self.missing("--json")), {"columns": []})

    def test_figures_are_those_of_the_training_records(self):
        figures = {"mean": (statistics.mean(SIZES), 1), "median": (statistics.median(SIZES), 2),
                   "min": (1, 3), "max": (8, 4), "-7.25": (-7.25, 5)}
        for scale, scaled in SCALES.items():
            self.prepare("--normalize", scale)
            for word, (value, kind) in figures.items():
                with self.subTest(scale=scale, word=word):
                    self.missing("size", "--replace", f"NA={word}", "--apply")
                    token = self.tokens("size")["NA"]
                    self.assertEqual((token["replacementType"], token["open"]), (kind, 0))
                    self.assertTrue(math.isclose(token["replacement"], value, rel_tol=1e-12))
                    self.assert_cell("NA", scaled(value), "d0", 3)
                    self.assert_cell("NA", scaled(value), "d0", 2, "TestingSet")
                    self.assert_cell("2.5", scaled(2.5), "d0", 2)

    def test_a_replacement_waits_for_apply(self):
        self.prepare("--normalize", "minmax")
        before = query(self.run_path, "SELECT * FROM TrainingSet")
        text = self.missing("wind", "--replace", "?=max", "NA=4")
        self.assertIn("?            2     2           10  maximum\n", text)
        self.assertIn("NA           1     1            4  number\n", text)
        self.assertEqual(query(self.run_path, "SELECT * FROM TrainingSet"), before)
        self.missing("wind", "--apply")
        self.assertEqual(self.cell("d2", 3), ("?", 1))
        self.assert_cell("NA", (4 - 3) / 7, "d2", 1)
        self.assertEqual(self.cell("d2", 4), ("", None))
        self.missing("wind", "--replace", "=3", "--apply")
        self.assertEqual(self.cell("d2", 4), ("", 0))

    def test_apply_fills_every_column_that_has_a_choice(self):
        self.prepare()
        self.missing("size", "--replace", "NA=1")
        self.missing("wind", "--replace", "(empty)=2")
        self.missing("--apply")
        self.assertEqual(self.cell("d0", 3), ("NA", 1))
        self.assertEqual(self.cell("d2", 4), ("", 2))
        self.assertEqual(self.cell("d2", 1), ("NA", None))
        self.assertEqual(self.cell("d1", 2), ("?", None))

    def test_a_gap_among_categories_gets_a_code(self):
        for scale in SCALES:
            with self.subTest(scale=scale):
                self.prepare("--normalize", scale)
                self.assertEqual(self.cell("d1", 3), ("b", 3))
                self.missing("kind", "--replace", "?=b", "--apply")
                self.assertEqual(self.cell("d1", 2), ("?", 3))
                text = self.missing("kind", "--replace", "?=7", "--apply")
                self.assertEqual(self.cell("d1", 2), ("?", 7))
                self.assertIn("?          1     0            7  number\n", text)

    def test_a_code_of_several_categories_is_told_by_the_first(self):
        self.prepare(training="a,b\nred,1\nblue,2\ngreen,3\nNA,4\n", testing=None)
        self.done("categories", self.run_path, "a", "--merge", "red,blue=7", "--no-stats")
        told = self.missing("a", "--replace", "NA=7")
        self.assertIn("7 (blue and 1 more)", told)

    def test_codes_are_not_rounded_by_a_range(self):
        self.prepare("--normalize", "range:0.1:0.7",
                     training="c,r\n" + "".join(f"w{i},{i}\n" for i in range(40)) + "?,1\n",
                     testing=None)
        for code in range(1, 41):
            self.missing("c", "--replace", f"?=w{code - 1}", "--apply", "--no-stats")
            self.assertEqual(self.cell("d0", 41), ("?", code))

    def test_none_opens_the_gaps_again(self):
        self.prepare("--normalize", "zscore")
        before = query(self.run_path, "SELECT * FROM TrainingSet")
        testing = query(self.run_path, "SELECT * FROM TestingSet")
        mappings = query(self.run_path, "SELECT * FROM MissingMappings")
        self.missing("wind", "--replace", "?=max", "NA=4", "=mean", "--apply")
        self.assertNotEqual(query(self.run_path, "SELECT * FROM TrainingSet"), before)
        self.missing("wind", "--replace", "?=none")
        self.assertEqual(self.cell("d2", 3), ("?", None))
        self.assertIsNotNone(self.cell("d2", 1)[1])
        self.missing("wind", "--replace", "NA=none", "=none")
        self.assertEqual(query(self.run_path, "SELECT * FROM TrainingSet"), before)
        self.assertEqual(query(self.run_path, "SELECT * FROM TestingSet"), testing)
        self.assertEqual(query(self.run_path, "SELECT * FROM MissingMappings"), mappings)

    def test_a_constant_column_of_a_normalised_run(self):
        for scale in ("zscore", "minmax", "range:-1:1"):
            with self.subTest(scale=scale):
                self.prepare("--normalize", scale, testing=None,
                             training="a,b,r\n5,1,1\n5,2,2\nNA,3,3\n")
                self.missing("a", "--replace", "NA=mean", "--apply")
                self.assertEqual(self.cell("d0", 3), ("NA", 5))

    def test_a_number_that_stands_for_a_gap_is_in_no_figure(self):
        self.prepare("--missing", "-999", testing=None, training="a,r\n1,1\n-999,2\n3,3\n")
        self.missing("a", "--replace", "-999=median", "--apply")
        self.assertEqual(self.cell("d0", 2), ("-999", 2))

    def test_decimals_behind_a_comma(self):
        file = self.write("comma.csv", "a;r\n1,5;1\nNA;2\n3,5;3\n4,5;4\n")
        self.program("load", file, "--run", self.run_path, "--no-check", LC_ALL="de_DE.UTF-8")
        self.missing("a", "--replace", "NA=median", "--apply")
        self.assertEqual(self.cell("d0", 2), ("NA", 3.5))

    def test_the_statistics_follow(self):
        self.prepare(testing=None)
        count = "SELECT Maximum FROM DataSetStatistics WHERE DataSetId = 1 AND ColumnIndex = 0"
        self.assertEqual(query(self.run_path, count), [(8,)])
        self.missing("size", "--replace", "NA=20")
        self.assertEqual(query(self.run_path, count), [(8,)])
        self.missing("size", "--apply")
        self.assertEqual(query(self.run_path, count), [(20,)])
        self.missing("size", "--replace", "NA=none")
        self.assertEqual(query(self.run_path, count), [(8,)])
        self.missing("size", "--replace", "NA=20", "--apply", "--no-stats")
        self.assertEqual(query(self.run_path, count), [])

    def test_the_real_file(self):
        with open(AIR, encoding="utf-8", newline="") as file:
            texts = [record["ozone"] for record in csv.DictReader(file)]
        numbers = [float(text) for text in texts if text != "NA"]
        gap = texts.index("NA") + 1
        self.prepare("--normalize", "zscore", training=AIR, testing=None)
        self.assertEqual(self.tokens("ozone")["NA"]["cells"], texts.count("NA"))
        self.assertEqual(self.cell("d2", gap), ("NA", None))
        self.missing("ozone", "--replace", "NA=median", "--apply")
        median = statistics.median(numbers)
        scaled = (median - statistics.mean(numbers)) / statistics.stdev(numbers)
        self.assert_cell("NA", scaled, "d2", gap)
        self.missing("ozone", "--replace", "NA=none")
        self.assertEqual(self.cell("d2", gap), ("NA", None))

    def test_history_does_it_again(self):
        self.prepare(testing=None)
        self.missing("wind", "--replace", "?=mean", "=2", "--apply", "--no-stats")
        step = json.loads(self.done("history", self.run_path, "--json"))["steps"][-1]
        self.assertEqual(step["command"], "missing")
        self.assertEqual(
            step["parameters"],
            {"column": "wind", "replacements": {"wind": {"?": 6.5, "": 2.0}}, "apply": True},
        )
        self.assertEqual(
            step["commandLine"],
            f"tslm5 missing {self.run_path} wind '--replace=?=mean' --replace==2 --apply "
            "--no-stats",
        )
        filled = query(self.run_path, "SELECT * FROM TrainingSet")
        self.prepare(testing=None)
        line = step["commandLine"].replace("tslm5", PROGRAM, 1)
        subprocess.run(["bash", "-c", line], check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(query(self.run_path, "SELECT * FROM TrainingSet"), filled)


if __name__ == "__main__":
    unittest.main()
