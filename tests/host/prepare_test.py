"""`tslm5 load` of files with words and gaps: single cells from the file to the run."""

import csv
import json
import math
import statistics
import unittest
from pathlib import Path

from host_case import HostCase, dump, query

AIR = Path(__file__).resolve().parents[2] / "examples" / "data" / "air_quality.csv"
DATA = (
    "colour,size,wind,answer\n"
    "red,1.5,NA,no\n"
    "blue,?,3,yes\n"
    "New York,2.5,na,no\n"
    "red,,7,no\n"
)


class PrepareTest(HostCase):
    def cell(self, column, key, table="TrainingSet"):
        """A cell's text and the number made of it."""
        return query(
            self.run_path,
            f"SELECT od.{column}, t.{column} FROM {table} t JOIN OriginalData od ON od.row = t.row "
            f"WHERE t.row = {key}",
        )[0]

    def test_words_are_coded_by_their_first_appearance(self):
        self.load(DATA)
        self.assertEqual(self.cell("d0", 1), ("red", 1))
        self.assertEqual(self.cell("d0", 2), ("blue", 2))
        self.assertEqual(self.cell("d0", 3), ("New York", 3))
        self.assertEqual(self.cell("d0", 4), ("red", 1))
        self.assertEqual(self.cell("d3", 1), ("no", 0))
        self.assertEqual(self.cell("d3", 2), ("yes", 1))
        self.assertEqual(
            query(self.run_path, "SELECT * FROM DataSetColumnCategories"),
            [("d0", "red", 1, 2), ("d0", "blue", 2, 1), ("d0", "New York", 3, 1),
             ("d3", "no", 0, 3), ("d3", "yes", 1, 1)],
        )
        self.assertEqual(
            query(self.run_path, "SELECT Name, IsNominal, MissingCount FROM DataSetColumn"),
            [("d0", 1, 0), ("d1", 0, 2), ("d2", 0, 2), ("d3", 1, 0)],
        )

    def test_missing_cells_are_null_and_mapped_token_by_token(self):
        self.load(DATA)
        self.assertEqual(self.cell("d1", 2), ("?", None))
        self.assertEqual(self.cell("d1", 4), ("", None))
        self.assertEqual(self.cell("d2", 1), ("NA", None))
        self.assertEqual(self.cell("d2", 2), ("3", 3))
        self.assertEqual(
            query(self.run_path, "SELECT * FROM MissingMappings"),
            [(1, 1, 1, "?", None, 0), (2, 1, 1, "", None, 0), (3, 2, 1, "NA", None, 0),
             (4, 2, 1, "na", None, 0)],
        )

    def test_a_point_and_no_number_is_missing(self):
        self.load("a,b\n.abc,1\n.5,2\n7,3\n")
        self.assertEqual(self.cell("d0", 1), (".abc", None))
        self.assertEqual(self.cell("d0", 2), (".5", 0.5))

    def test_named_tokens_are_missing_too(self):
        self.load("a,b,c\n-999,n.a.,1\n5,x,2\nunknown,n.a.,3\n", "--missing", "unknown, n.a.",
                  "--missing", "-999")
        self.assertEqual(self.cell("d0", 1), ("-999", None))
        self.assertEqual(self.cell("d0", 3), ("unknown", None))
        self.assertEqual(self.cell("d1", 3), ("n.a.", None))
        self.assertEqual(
            query(self.run_path, "SELECT ColumnIndex, MissingCount, OriginalValue FROM "
                  "MissingMappings"),
            [(0, 1, "-999"), (0, 1, "unknown"), (1, 2, "n.a.")],
        )
        self.assertEqual(
            query(self.run_path, "SELECT Name, IsNominal FROM DataSetColumn"),
            [("d0", 0), ("d1", 1), ("d2", 0)],
        )

    def test_the_response_moves_to_the_end(self):
        for name in ("size", "d1"):
            with self.subTest(name=name):
                loaded = self.load("size2,size,c\n1,5,x\n2,6,y\n", "--response", name)
                self.assertEqual(loaded["labels"], ["size2", "c", "size"])
                self.assertEqual(self.cell("d2", 2), ("6", 6))
                self.assertEqual(self.cell("d1", 2), ("y", 2))
                self.assertEqual(
                    query(self.run_path, "SELECT OriginalLabel, IsResponse FROM DataSetColumn"),
                    [("size2", 0), ("c", 0), ("size", 1)],
                )
                self.assertEqual(loaded["firstTextCell"]["column"], 3)

    def test_the_problem_is_noted(self):
        for name, code in (("regression", 0), ("classification", 1), ("timeseries", 2),
                           ("binary", 3)):
            is_series = name == "timeseries"  # which is one column
            self.load("b\n5\n6\n" if is_series else "a,b\n1,5\n2,6\n", "--problem", name)
            self.assertEqual(
                query(self.run_path, "SELECT namespace, intvalue, floatvalue FROM RunParameters "
                      "WHERE element = 'ProblemCategory'"),
                [("set_gen", code, None)],
            )

    def test_the_problem_follows_the_response(self):
        self.assertEqual(self.load(DATA)["preparation"]["problem"], "classification")
        loaded = self.load("c,a\nx,1\ny,2\n")
        self.assertEqual(loaded["preparation"]["problem"], "regression")

    def test_two_classes_have_an_encoding(self):
        self.load(DATA)
        self.assertEqual(query(self.run_path, "SELECT * FROM ResponseEncoding"), [("yes", 1, 0)])
        self.load("c,a\nx,7\ny,5\n", "--problem", "classification")
        self.assertEqual(query(self.run_path, "SELECT * FROM ResponseEncoding"), [("7", 7, 5)])
        self.assertEqual(
            query(self.run_path, "SELECT * FROM DataSetColumnCategories WHERE Name = 'd1'"),
            [("d1", "7", 7, 1), ("d1", "5", 5, 1)],
        )
        self.load("c,a\nx,no\ny,yes\nz,perhaps\n", "--labels")
        self.assertEqual(query(self.run_path, "SELECT * FROM ResponseEncoding"), [])

    def merging(self):
        return query(
            self.run_path,
            "SELECT intvalue FROM RunParameters WHERE namespace = 'data' AND element = 'Merging'",
        )

    def test_a_positive_class_is_one_and_every_other_zero(self):
        self.load("c,a\nx,no\ny,yes\nz,perhaps\n", "--positive-class", "perhaps", "--labels")
        self.assertEqual(self.show()["rows"], [[1, 0], [2, 0], [3, 1]])
        self.assertEqual(
            query(self.run_path, "SELECT * FROM ResponseEncoding"), [("perhaps", 1, 0)]
        )
        self.assertEqual(
            query(self.run_path, "SELECT NominalValue, NumericValue FROM DataSetColumnCategories "
                  "WHERE Name = 'd1'"),
            [("no", 0), ("yes", 0), ("perhaps", 1)],
        )
        self.assertEqual(self.merging(), [(1,)])

    def test_a_positive_class_of_two_merges_nothing(self):
        self.load(DATA, "--positive-class", "no")
        self.assertEqual([row[3] for row in self.show()["rows"]], [1, 0, 1, 1])
        self.assertEqual(self.merging(), [(0,)])

    def test_a_positive_class_may_be_a_number(self):
        self.load("a,b\n5,1\n6,2\n7,3\n", "--positive-class", "2", "--problem", "binary")
        self.assertEqual([row[1] for row in self.show()["rows"]], [0, 1, 0])

    def test_real_data(self):
        loaded = json.loads(
            self.done("load", AIR, "--run", self.run_path, "--json", "--response", "temperature")
        )
        with AIR.open(encoding="utf-8") as file:
            records = list(csv.DictReader(file))
        self.assertEqual((loaded["rows"], len(records)), (153, 153))
        months = {"May": 1, "June": 2, "July": 3, "August": 4, "September": 5}
        rows = self.show("--original")["rows"]
        for record, row in zip(records, rows):
            for label, (number, text) in zip(
                ("month", "day", "ozone", "solar_radiation", "wind", "temperature"),
                zip(row[::2], row[1::2]),
            ):
                self.assertEqual(text, record[label])
                if text == "NA":
                    self.assertIsNone(number)
                else:
                    self.assertEqual(number, months.get(text) or float(text))
        self.assertEqual(
            query(self.run_path, "SELECT ColumnIndex, MissingCount, OriginalValue FROM "
                  "MissingMappings"),
            [(2, 37, "NA"), (3, 7, "NA")],
        )
        averages = query(self.run_path, "SELECT Centroid FROM DataSetStatistics")
        self.assertTrue(math.isclose(averages[4][0],
                                     statistics.mean(float(r["wind"]) for r in records)))

    def test_forms_of_files(self):
        plain = "größe;Ä\nrot;1\nNew York;2\n"
        self.load(plain)
        wanted = self.show("--original")
        self.assertEqual(wanted["labels"][:2], ["größe", "größe (original)"])
        self.assertEqual(wanted["rows"], [[1, "rot", 1, "1"], [2, "New York", 2, "2"]])
        for form in (plain.replace("\n", "\r\n"), plain.encode("cp1252"),
                     plain.encode("utf-16"), plain.replace(";", " ; "), plain.replace(";", "\t"),
                     plain.replace(";", "|")):
            with self.subTest(form=form):
                self.load(form)
                self.assertEqual(self.show("--original"), wanted)

    def test_blanks_between_the_fields(self):
        self.load("a  b c\nred 1   2\nblue NA 3\n", "--separator", "space")
        self.assertEqual(self.show()["rows"], [[1, 1, 2], [2, None, 3]])

    def test_no_labels(self):
        loaded = self.load("red,1\nblue,2\n", "--no-labels", "--response", "d0")
        self.assertEqual((loaded["hasLabels"], loaded["labels"]), (False, ["d0", "y"]))
        self.assertEqual(self.show()["rows"], [[1, 0], [2, 1]])
        self.assertEqual(
            query(self.run_path, "SELECT Name, OriginalLabel FROM DataSetColumn"),
            [("d0", "d0"), ("d1", "d1")],
        )

    def test_one_column_of_words(self):
        self.load("answer\nno\nyes\nno\n", "--labels")
        self.assertEqual(self.show()["rows"], [[0], [1], [0]])

    def test_records_in_columns(self):
        loaded = self.load("colour,red,blue\nsize,1,NA\nprice,5,6\n", "--layout", "columns")
        self.assertEqual(loaded["labels"], ["colour", "size", "price"])
        self.assertEqual(self.show()["rows"], [[1, 1, 5], [2, None, 6]])

    def test_decimal_commas(self):
        for locale in ("C", "de_DE.UTF-8"):  # which decides nothing
            self.load("a;b\nrot;1,5\nblau;2,5\n", LC_ALL=locale)
            self.assertEqual(self.show()["rows"], [[1, 1.5], [2, 2.5]])
            self.load("a;b\nrot;1.5\nblau;2.5\n", LC_ALL=locale)
            self.assertEqual(self.show()["rows"], [[1, 1.5], [2, 2.5]])

    def test_apostrophes_and_statements_are_words(self):
        statement = "1'); DROP TABLE TrainingSet; --"
        self.load(f"a,b\nit's,2\n{statement},3\n", "--separator", "comma")
        self.assertEqual(
            self.show("--original")["rows"], [[1, "it's", 2, "2"], [2, statement, 3, "3"]]
        )

    def test_words_that_differ_in_a_separator_are_two(self):
        self.load("a;b\nx y;1\nx,y;2\nx|y;3\nxby;4\n", "--separator", "semicolon")
        self.assertEqual([row[0] for row in self.show()["rows"]], [1, 2, 3, 4])

    def test_the_same_load_twice_gives_the_same_run(self):
        def content():
            return [line for line in dump(self.run_path) if "RunHistory" not in line]

        self.load(DATA, "--normalize", "zscore", "--missing", "x")
        once = content()
        self.load("a,b\n1,2\n3,4\n")
        for table in ("DataSetColumnCategories", "MissingMappings", "ResponseEncoding",
                      "DataSetStatisticsForCode", "DataSetStatisticsForMissing"):
            self.assertEqual(query(self.run_path, f"SELECT * FROM {table}"), [], table)
        self.load(DATA, "--normalize", "zscore", "--missing", "x")
        self.assertEqual(content(), once)

    def test_few_words_in_a_column_of_numbers_are_told(self):
        rows = "".join(f"{i},{i}\n" for i in range(30))
        file = self.write("data.csv", "a,b\n" + rows + "3O,1\n")
        result = self.program("load", file, "--run", self.run_path)
        self.assertEqual(
            result.stderr,
            "tslm5: warning: the column a is coded as categories for 1 of its 31 cells, the others "
            'being numbers; the first: line 32, column 1 (a): "3O"\n',
        )
        self.load("a,b\n" + "1,1\n" * 9 + "x,2\n")  # a tenth is no slip

    def test_statistics_are_computed_unless_they_are_not_wanted(self):
        file = self.write("data.csv", DATA)
        self.done("load", file, "--run", self.run_path)
        self.assertEqual(
            query(self.run_path, "SELECT Centroid FROM DataSetStatistics")[:2], [(1.75,), (2.0,)]
        )
        self.load(DATA)
        self.assertEqual(query(self.run_path, "SELECT * FROM DataSetStatistics"), [])


if __name__ == "__main__":
    unittest.main()
