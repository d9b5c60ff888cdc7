"""Where two features meet: a table of pairs, each cell a test of the same name.

            | words | gaps | scale | recode | testing | classes | embed | reset
    plain   |   x   |  x   |   x   |   x    |    x    |    x    |   x   |   x
    words   |       |  x   |   x   |   x    |    x    |    x    |   x   |   x
    gaps    |       |      |   x   |   x    |    x    |    x    |   x   |   x
    scale   |       |      |       |   x    |    x    |    x    |   x   |   x
    recode  |       |      |       |        |    x    |    x    |       |   x
    testing |       |      |       |        |         |    x    |   x   |   x
    classes |       |      |       |        |         |         |   x   |   x
    embed   |       |      |       |        |         |         |       |   x

plain: a file of numbers alone, which the component loads by itself; words: a column that is coded;
gaps: missing cells and their replacements; scale: a normalised run; recode: changed codes; testing: a
testing set; classes: figures of the response's classes; embed: a series made into records; reset: the
testing records become the training set. No series can be recoded: it holds no words.
"""

import json
import math
import statistics
import unittest

from host_case import HostCase, change, dump, query

PLAIN = "a,b,y\n1,10,0\n3,30,1\n5,60,0\n7,20,1\n"
WORDS = "kind,a,y\nred,1,0\nblue,3,1\nred,5,0\ngreen,7,1\n"
GAPS = "kind,a,y\nred,1,0\n?,3,1\nblue,NA,0\ngreen,7,1\n"
SERIES = "value\n" + "".join(f"{value}\n" for value in (1, 2, 4, 8, 16, 32))


class FeaturePairs(HostCase):
    def cells(self, column, table="TrainingSet"):
        return [value for (value,) in query(self.run_path, f"SELECT {column} FROM {table} ORDER BY row")]

    def near(self, found, wanted):
        self.assertEqual(len(found), len(wanted))
        for one, other in zip(found, wanted):
            self.assertTrue(math.isclose(one, other, rel_tol=1e-12, abs_tol=1e-12), (found, wanted))

    def load_with_figures(self, content, *options):
        file = self.write("data.csv", content)
        return json.loads(
            self.done("load", file, "--run", self.run_path, "--json", "--no-check", *options)
        )

    def step(self, *words):
        result = self.program(words[0], self.run_path, *words[1:], "--json")
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)

    def refused(self, message, *words):
        before = dump(self.run_path)
        self.failed(1, message, *words)
        self.assertEqual(dump(self.run_path), before)

    def load_testing(self, content):
        return self.load(content, "--set", "testing", name="testing.csv")

    def class_figures(self, data_set=1):
        """Class and record count of the figures that a set's classes have, for its first column."""
        return query(
            self.run_path,
            "SELECT Class, RecordCount FROM DataSetClassStatistics WHERE ColumnId = 0 AND "
            f"DataSetId = {data_set} ORDER BY Class",
        )

    def missing_counts(self):
        return [count for (count,) in query(
            self.run_path, "SELECT MissingCount FROM DataSetColumn ORDER BY Id")]

    def nulls(self, columns):
        return [self.cells(f"d{column}").count(None) for column in range(columns)]

    def embed(self, dimension, delay, samples=0):
        return self.step("embed", "--dimension", dimension, "--delay", delay, "--testing-samples", samples)

    # plain

    def test_plain_x_words(self):
        self.load(PLAIN)
        loaded = self.load(WORDS)
        self.assertEqual(loaded["preparation"]["columns"][0]["categories"], 3)
        self.load(PLAIN)
        self.assertEqual(query(self.run_path, "SELECT * FROM DataSetColumnCategories"), [])
        self.assertEqual(query(self.run_path, "SELECT SUM(IsNominal) FROM DataSetColumn"), [(0,)])

    def test_plain_x_gaps(self):
        self.load(PLAIN)
        self.load_testing("a,b,y\nNA,7,1\n")
        self.step("missing", "a", "--replace", "NA=mean", "--apply")
        self.assertEqual(self.cells("d0", "TestingSet"), [4])
        self.assertEqual(self.cells("d0"), [1, 3, 5, 7])

    def test_plain_x_scale(self):
        self.load(PLAIN, "--normalize", "minmax")
        self.load_testing("a,b,y\n4,35,1\n")
        self.assertEqual(self.cells("d0", "TestingSet"), [0.5])
        self.assertEqual(self.cells("d2", "TestingSet"), [1])
        self.program("load", self.write("data.csv", PLAIN), "--run", self.run_path)
        self.assertEqual(self.cells("d0"), [1, 3, 5, 7])
        self.assertEqual(self.cells("d0", "TestingSet"), [4], "prepared anew, without the scale")

    def test_plain_x_recode(self):
        self.load(PLAIN)
        before = dump(self.run_path)
        words = "a (d0) has no categories; the columns that have some: none"
        self.failed(2, words, "categories", self.run_path, "a", "--assign", "1=9")
        self.assertEqual(dump(self.run_path), before)

    def test_plain_x_testing(self):
        self.load(PLAIN)
        loaded = self.load_testing("a,b,y\n4,35,1\n")
        self.assertIsNone(loaded["preparation"], "its response stands last: nothing is prepared")
        self.assertEqual(query(self.run_path, "SELECT * FROM TestingSet"), [(4, 35, 1, 5)])

    def test_plain_x_classes(self):
        self.load_with_figures(PLAIN)
        self.assertEqual(self.class_figures(), [(0, 2), (1, 2)])
        self.load_with_figures("a,b,y\n1,10,5\n3,30,6\n5,60,7\n")
        self.assertEqual(self.class_figures(), [], "three responses are no classes")

    def test_plain_x_embed(self):
        self.load(SERIES)
        self.embed(1, 2)
        self.assertEqual(self.show()["rows"], [[1, 4], [2, 8], [4, 16], [8, 32]])
        self.load(PLAIN)
        self.refused(
            "the training set has 3 columns; a series of one column can be embedded",
            "embed", self.run_path, "--dimension", 1, "--delay", 1,
        )

    def test_plain_x_reset(self):
        self.load(PLAIN)
        self.load_testing("a,b,y\n4,35,1\n")
        self.step("reset")
        self.assertEqual(self.show("--original")["rows"], [[4, "4", 35, "35", 1, "1"]])
        self.step("undo")
        self.assertEqual(self.cells("d0"), [1, 3, 5, 7])

    # words

    def test_words_x_gaps(self):
        self.load(GAPS)
        self.step("missing", "kind", "--replace", "?=blue", "--apply")
        self.assertEqual(self.cells("d0"), [1, 3, 3, 4])
        self.assertEqual(self.cells("d1"), [1, 3, None, 7], "gaps of another column")

    def test_words_x_scale(self):
        self.load(WORDS, "--normalize", "minmax")
        self.assertEqual(self.cells("d0"), [1, 2, 1, 3], "codes are not normalised")
        self.near(self.cells("d1"), [0, 1 / 3, 2 / 3, 1])

    def test_words_x_recode(self):
        self.load(WORDS)
        self.step("categories", "kind", "--assign", "red=10")
        self.assertEqual(self.cells("d0"), [10, 2, 10, 3])
        self.load(WORDS)
        self.assertEqual(self.cells("d0"), [1, 2, 1, 3], "a new load codes anew")

    def test_words_x_testing(self):
        self.load(WORDS)
        self.load_testing("kind,a,y\nblue,9,1\n")
        self.assertEqual(query(self.run_path, "SELECT * FROM TestingSet"), [(2, 9, 1, 5)])

    def test_words_x_classes(self):
        self.load_with_figures("a,y\n1,no\n2,yes\n3,no\n")
        self.assertEqual(self.class_figures(), [(0, 2), (1, 1)])

    def test_words_x_embed(self):
        self.load("value\na\nb\na\nb\na\n", "--labels")
        self.refused(
            "the series holds words, which were coded; only numbers can be embedded",
            "embed", self.run_path, "--dimension", 1, "--delay", 1,
        )

    def test_words_x_reset(self):
        self.load(WORDS)
        self.load_testing("kind,a,y\nblue,9,1\nred,8,0\n")
        self.step("reset")
        self.assertEqual(self.show("--original")["rows"],
                         [[2, "blue", 9, "9", 1, "1"], [1, "red", 8, "8", 0, "0"]])

    # gaps

    def test_gaps_x_scale(self):
        self.load(GAPS, "--normalize", "zscore")
        self.step("missing", "a", "--replace", "NA=max", "--apply")
        values = [1, 3, 7]
        mean, deviation = statistics.mean(values), statistics.stdev(values)
        self.near(self.cells("d1"), [(x - mean) / deviation for x in (1, 3, 7, 7)])

    def test_gaps_x_recode(self):
        self.load(GAPS)
        self.step("missing", "kind", "--replace", "?=blue", "--apply")
        self.step("categories", "kind", "--assign", "red=20")
        self.assertEqual(self.cells("d0"), [20, 3, 3, 4], "the filled gap keeps its number")

    def test_gaps_x_testing(self):
        self.load(GAPS)
        self.load_testing("kind,a,y\n?,NA,1\n")
        self.step("missing", "a", "--replace", "NA=median", "--apply")
        self.assertEqual(self.cells("d1", "TestingSet"), [3], "by the training records' figures")
        self.assertEqual(self.cells("d0", "TestingSet"), [None])

    def test_gaps_x_classes(self):
        self.load_with_figures(GAPS)
        sql = ("SELECT Class, Centroid, RecordCount FROM DataSetClassStatistics WHERE ColumnId = 1 "
               "AND DataSetId = 1 ORDER BY Class")
        self.assertEqual(query(self.run_path, sql), [(0, 1, 2), (1, 5, 2)])
        self.step("missing", "a", "--replace", "NA=4", "--apply")
        self.assertEqual(query(self.run_path, sql), [(0, 2.5, 2), (1, 5, 2)])

    def test_gaps_x_embed(self):
        self.load(SERIES, "--problem", "timeseries")
        change(self.run_path, "UPDATE TrainingSet SET d0 = NULL WHERE row = 3")  # another program
        self.embed(2, 1)
        self.assertEqual(self.show()["rows"],
                         [[1, 2, None], [2, None, 8], [None, 8, 16], [8, 16, 32]])
        self.assertEqual(self.missing_counts(), [1, 1, 1])
        self.assertEqual(self.missing_counts(), self.nulls(3), "one gap is in three columns")

    def test_gaps_x_reset(self):
        self.load(GAPS)
        self.load_testing("kind,a,y\nred,NA,1\n?,8,0\n")
        self.step("missing", "a", "--replace", "NA=5", "--apply")
        self.step("reset")
        self.assertEqual(self.show("--original")["rows"],
                         [[1, "red", 5, "NA", 1, "1"], [None, "?", 8, "8", 0, "0"]])

    # scale

    def test_scale_x_recode(self):
        for scale in ("zscore", "minmax", "range:-1:1"):
            with self.subTest(scale=scale):
                self.load(GAPS, "--normalize", scale)
                self.step("categories", "kind", "--assign", "red=10", "blue=30", "green=50")
                self.step("missing", "kind", "--replace", "?=blue", "--apply")
                self.assertEqual(self.cells("d0"), [10, 30, 30, 50], "a code is not normalised")
                self.step("categories", "kind", "--assign", "red=5", "blue=5", "green=5")
                self.step("missing", "kind", "--replace", "?=7", "--apply")
                self.assertEqual(self.cells("d0"), [5, 7, 5, 5], "codes of no width fill a gap too")

    def test_scale_x_testing(self):
        self.load(WORDS, "--normalize", "range:0:12")
        self.load_testing("kind,a,y\nred,4,1\n")
        self.near(self.cells("d1", "TestingSet"), [6])
        self.assertEqual(self.cells("d0", "TestingSet"), [1])

    def test_scale_x_classes(self):
        self.load_with_figures(WORDS, "--normalize", "minmax")
        sql = ("SELECT Class, Centroid FROM DataSetClassStatistics WHERE ColumnId = 1 AND "
               "DataSetId = 1 ORDER BY Class")
        found = query(self.run_path, sql)
        self.assertEqual([one for one, _ in found], [0, 1], "the response is not normalised")
        self.near([centroid for _, centroid in found], [1 / 3, 2 / 3])

    def test_scale_x_embed(self):
        self.load(SERIES, "--problem", "timeseries", "--normalize", "minmax")
        rows = [row[:] for row in self.show()["rows"]]
        self.assertEqual(rows, [[x] for x in (1, 2, 4, 8, 16, 32)], "a response is not normalised")
        self.embed(1, 1)
        self.assertEqual(self.show()["rows"][0], [1, 2])

    def test_scale_x_reset(self):
        self.load(WORDS, "--normalize", "minmax")
        self.load_testing("kind,a,y\nred,4,1\n")
        self.step("reset")
        self.near(self.cells("d1"), [0.5])
        self.step("undo")
        self.near(self.cells("d1"), [0, 1 / 3, 2 / 3, 1])

    # recode

    def test_recode_x_testing(self):
        self.load(WORDS)
        self.step("categories", "kind", "--assign", "blue=7")
        self.load_testing("kind,a,y\nblue,9,1\nred,8,0\n")
        self.assertEqual(self.cells("d0", "TestingSet"), [7, 1], "coded by what the run holds")
        self.step("categories", "kind", "--assign", "red=5")
        self.assertEqual(self.cells("d0", "TestingSet"), [7, 5])

    def test_recode_x_classes(self):
        self.load_with_figures("a,y\n1,no\n2,yes\n3,maybe\n")
        self.assertEqual(self.class_figures(), [])
        self.step("categories", "y", "--assign", "maybe=1")
        self.assertEqual(self.class_figures(), [(0, 1), (1, 2)])

    def test_recode_x_reset(self):
        self.load(WORDS)
        self.load_testing("kind,a,y\nblue,9,1\nred,8,0\n")
        self.step("reset")
        self.step("categories", "kind", "--assign", "blue=7")
        self.assertEqual(self.cells("d0"), [7, 1])
        self.assertEqual(self.cells("d0", "TestingSet"), [7, 1])
        self.step("undo")
        self.assertEqual(self.cells("d0"), [1, 2, 1, 3], "as it was kept before")

    # testing

    def test_testing_x_classes(self):
        self.load_with_figures(PLAIN)
        self.load_with_figures("a,b,y\n4,35,1\n5,36,1\n6,37,0\n", "--set", "testing")
        self.assertEqual(self.class_figures(), [(0, 2), (1, 2)])
        self.assertEqual(self.class_figures(2), [(0, 1), (1, 2)])

    def test_testing_x_embed(self):
        self.load(SERIES, "--problem", "timeseries")
        self.load_testing("value\n64\n128\n")
        self.embed(1, 1)
        self.assertEqual(self.cells("d0", "TestingSet"), [64, 128])
        self.assertEqual(self.show("--set", "testing", "--original")["rows"], [[64, "64"], [128, "128"]])

    def test_testing_x_reset(self):
        self.load(PLAIN)
        self.load_testing("a,b,y\n4,35,1\n")
        self.step("reset")
        self.assertEqual(self.cells("d0", "TestingSet"), [4], "the testing records stay")
        self.load_testing("a,b,y\n6,45,0\n")
        self.step("undo")
        self.assertEqual(self.cells("d0"), [1, 3, 5, 7])
        self.assertEqual(self.cells("d0", "TestingSet"), [6])

    # classes

    def test_classes_x_embed(self):
        self.load_with_figures("value\n1\n0\n0\n1\n0\n", "--problem", "timeseries")
        self.assertEqual(self.class_figures(), [(0, 3), (1, 2)])
        self.embed(1, 1)
        self.assertEqual(self.class_figures(), [(0, 3), (1, 1)], "those of the embedded records")

    def test_classes_x_reset(self):
        self.load_with_figures(PLAIN)
        self.load_with_figures("a,b,y\n4,35,5\n5,36,6\n6,37,7\n", "--set", "testing")
        self.assertEqual(self.class_figures(), [(0, 2), (1, 2)])
        self.step("reset")
        self.assertEqual(self.class_figures(), [], "the records that had them are gone")
        self.step("undo")
        self.assertEqual(self.class_figures(), [(0, 2), (1, 2)])

    # embed

    def test_embed_x_reset(self):
        self.load(SERIES, "--problem", "timeseries")
        self.load_testing("value\n64\n128\n")
        self.embed(1, 1, 1)
        self.step("reset")
        self.assertEqual(self.show()["rows"], [[64], [128]])
        self.assertEqual(self.show()["labels"], ["value"])
        self.step("undo")
        self.assertEqual(self.show()["rows"], [[1, 2], [2, 4], [4, 8], [8, 16]])
        self.assertEqual(self.show()["labels"], ["t_1", "t_0"])


class FeatureTable(unittest.TestCase):
    def test_every_cell_has_its_test(self):
        header, *rows = [
            [cell.strip() for cell in line.split("|")] for line in __doc__.splitlines() if "|" in line
        ]
        cells = [
            f"test_{row[0]}_x_{column}"
            for row in rows
            for column, mark in zip(header[1:], row[1:])
            if mark == "x"
        ]
        tests = [name for name in dir(FeaturePairs) if name.startswith("test_")]
        self.assertEqual(sorted(cells), sorted(tests))


if __name__ == "__main__":
    unittest.main()
