"""`tslm5 load`: what it prints and what the run holds afterwards."""

import json
import unittest

from host_case import HostCase, change, dump, query

WORDS = "name,weight,price\nred,1.50,7\ngreen,,2\n\nblue,NA,4\n"
NUMBERS = "a,b\n1,2\n\n3;5,4\n"


class LoadTest(HostCase):
    def test_tells_what_it_did(self):
        self.write("numbers.csv", NUMBERS)
        self.assertEqual(
            self.done("load", "numbers.csv", "--run", "run.db", "--no-check"),
            "numbers.csv is the training set of run.db\n"
            "separator  comma: it gives 2 fields in each of the 3 lines looked at\n"
            "lines      4 read = 2 records + 1 label line + 1 empty line\n"
            "records    2 stored\n"
            "columns    2: a, b\n"
            "changed    1 cell lost a tab or a semicolon; the first: line 4, column 1 (a): "
            '"3;5"\n',
        )

    def test_tells_what_it_made_of_words(self):
        self.write("words.csv", WORDS)
        self.assertEqual(
            self.done("load", "words.csv", "--run", "run.db", "--no-check"),
            "words.csv is the training set of run.db\n"
            "separator  comma: it gives 3 fields in each of the 4 lines looked at\n"
            "lines      5 read = 3 records + 1 label line + 1 empty line\n"
            "records    3 stored\n"
            "columns    3: name, weight, price\n"
            "missing    2 cells without a value, kept as missing; the first: line 3, column 2 "
            '(weight): ""\n'
            "text       3 text cells, encoded; the first: line 2, column 1 (name): "
            '"red"\n'
            "response   price (regression)\n"
            "coded      name: 3 categories\n"
            'tokens     weight: "" 1, "NA" 1\n',
        )

    def test_json_is_one_object_with_all_keys(self):
        file = self.write("numbers.csv", NUMBERS)
        printed = self.done("load", file, "--run", self.run_path, "--json", "--no-check")
        self.assertEqual(
            json.loads(printed),
            {
                "run": str(self.run_path),
                "set": "training",
                "file": str(file),
                "separator": "comma",
                "layout": "rows",
                "lines": 4,
                "rows": 2,
                "labelLines": 1,
                "emptyLines": 1,
                "columns": 2,
                "hasLabels": True,
                "labels": ["a", "b"],
                "missingCells": 0,
                "textCells": 0,
                "changedCells": 1,
                "firstMissingCell": None,
                "firstTextCell": None,
                "firstChangedCell": {"line": 4, "column": 1, "label": "a", "value": "3;5"},
                "warnings": [],
                "preparation": None,
            },
        )

    def test_json_tells_of_words_and_missing_cells(self):
        loaded = self.load(WORDS)
        self.assertEqual((loaded["missingCells"], loaded["textCells"]), (2, 3))
        self.assertEqual(
            loaded["firstMissingCell"], {"line": 3, "column": 2, "label": "weight", "value": ""}
        )
        self.assertEqual(
            loaded["firstTextCell"], {"line": 2, "column": 1, "label": "name", "value": "red"}
        )

    def test_writes_the_application_s_part_of_the_run(self):
        self.load(WORDS)
        self.assertEqual(
            query(self.run_path, "SELECT * FROM OriginalData"),
            [("red", "1.50", "7", 1), ("green", "", "2", 2), ("blue", "NA", "4", 3)],
        )
        self.assertEqual(
            query(self.run_path, "SELECT * FROM DataSetColumn"),
            [
                (1, 0, "d0", "name", 1, 0, 0, 0),
                (2, 1, "d1", "weight", 0, 2, 0, 0),
                (3, 2, "d2", "price", 0, 0, 0, 1),
            ],
        )
        self.assertEqual(
            query(self.run_path, "SELECT * FROM OriginalDataLabels"),
            [("name", 0, 1), ("weight", 1, 1), ("price", 2, 1)],
        )
        self.assertEqual(
            query(self.run_path, "SELECT SetId, [column], label FROM DataSetLabels"),
            [(1, 0, "name"), (1, 1, "weight"), (1, 2, "price")],
        )
        types = query(self.run_path, "SELECT name, type FROM pragma_table_info('OriginalData')")
        self.assertEqual(
            types, [("d0", "TEXT"), ("d1", "TEXT"), ("d2", "TEXT"), ("row", "INTEGER")]
        )

    def test_a_run_of_numbers_has_its_parameters_too(self):
        self.load(NUMBERS)
        self.assertEqual(
            query(
                self.run_path,
                "SELECT namespace, element, intvalue FROM RunParameters WHERE element IN "
                "('ProblemCategory', 'Merging', 'NormalizationType')",
            ),
            [("set_gen", "ProblemCategory", 0), ("data", "Merging", 0),
             ("data", "NormalizationType", 0)],
        )

    def test_originals_are_trimmed_and_quoted(self):
        self.load("label; it's\n 1;2 \n", "--separator", "semicolon")
        self.assertEqual(
            query(self.run_path, "SELECT d0, d1 FROM OriginalData WHERE row = 1"), [("1", "2")]
        )
        self.assertEqual(query(self.run_path, "SELECT label FROM DataSetLabels"), [("label",), ("it's",)])

    def test_line_ends_make_no_difference(self):
        unix = self.load("a b,c\n1,2\n\n3,4\n")
        held = self.show()
        windows = self.load("a b,c\r\n1,2\r\n\r\n3,4\r\n")
        self.assertEqual(unix, windows)
        self.assertEqual(self.show(), held)
        self.assertEqual(held["rows"], [[1, 2], [3, 4]])
        self.assertEqual(query(self.run_path, "SELECT d1 FROM OriginalData"), [("2",), ("4",)])

    def test_every_separator(self):
        for name, separator in [
            ("space", "  "), ("tab", "\t"), ("comma", ","), ("semicolon", ";"), ("bar", "|")
        ]:
            text = f"a{separator}b\n1{separator}2\n3{separator}4\n"
            for asked in ("auto", name):
                with self.subTest(separator=name, asked=asked):
                    loaded = self.load(text, "--separator", asked)
                    self.assertEqual(loaded["separator"], name)
                    self.assertEqual(self.show()["rows"], [[1, 2], [3, 4]])

    def test_one_column(self):
        loaded = self.load("blood pressure\n120\n130\n")
        self.assertEqual(loaded["separator"], "none")
        self.assertEqual(loaded["labels"], ["blood pressure"])
        self.assertEqual(self.show()["rows"], [[120], [130]])

    def test_no_labels(self):
        loaded = self.load("1,2\n3,4\n", "--no-labels")
        self.assertEqual((loaded["hasLabels"], loaded["labels"]), (False, ["d0", "y"]))
        self.assertEqual((loaded["lines"], loaded["labelLines"], loaded["rows"]), (2, 0, 2))
        names = query(self.run_path, "SELECT Name, OriginalLabel FROM DataSetColumn")
        self.assertEqual(names, [("d0", "d0"), ("d1", "d1")])
        self.assertEqual(query(self.run_path, "SELECT * FROM DataSetLabels"), [])

    def test_labels_go_with_the_data_they_named(self):
        self.load("a,b\n1,2\n")
        self.load("3,4\n", "--no-labels")
        self.assertEqual(query(self.run_path, "SELECT * FROM DataSetLabels"), [])
        self.assertEqual(self.show()["labels"], ["d0", "y"])

    def test_a_label_line_that_is_none_is_told(self):
        for labels in ("a,5", "same,Same"):
            with self.subTest(labels=labels):
                file = self.write("data.csv", f"{labels}\n1,2\n")
                result = self.program("load", file, "--run", self.run_path, "--json")
                self.assertEqual(result.returncode, 0)
                warning = (
                    "the first line was dropped, but not taken for labels: one of them is a "
                    "number, or two are the same; the set has no labels (--no-labels keeps the "
                    "line as a record)"
                )
                self.assertEqual(result.stderr, f"tslm5: warning: {warning}\n")
                loaded = json.loads(result.stdout)
                self.assertEqual(loaded["warnings"], [warning])
                self.assertEqual((loaded["hasLabels"], loaded["rows"]), (False, 1))

    def test_blanks_that_make_columns_are_told(self):
        file = self.write("data.csv", "1 5,2\n3 6,4\n")
        result = self.program("load", file, "--run", self.run_path, "--no-labels", "--no-check")
        self.assertEqual(
            result.stderr,
            "tslm5: warning: blanks count as separators too: 2 of the records have more columns "
            'than the comma gives, the first on line 1: "1 5,2"\n',
        )
        self.assertEqual(self.show()["rows"], [[1, 5, 2], [3, 6, 4]])

    def test_blanks_beside_separators_are_no_values(self):
        self.load("a , b\n1, 2\n3 ,4\n")
        self.assertEqual(self.show()["rows"], [[1, 2], [3, 4]])
        self.assertEqual(self.show()["labels"], ["a", "b"])

    def test_columns_layout(self):
        loaded = self.load("1,2,3\n4,5,6\n", "--layout", "columns", "--no-labels")
        self.assertEqual((loaded["lines"], loaded["rows"], loaded["columns"]), (3, 3, 2))
        self.assertEqual(self.show()["rows"], [[1, 4], [2, 5], [3, 6]])
        self.assertEqual(
            query(self.run_path, "SELECT * FROM OriginalData"),
            [("1", "4", 1), ("2", "5", 2), ("3", "6", 3)],
        )

    def test_a_columns_layout_needs_a_separator(self):
        file = self.write("data.csv", "a\n1\n2\n")
        self.failed(
            1,
            "no separator gives the same number of fields in every line; with the layout columns one is "
            "needed (--separator)",
            *("load", file, "--run", self.run_path, "--layout", "columns"),
        )

    def test_a_quote_at_one_end_is_no_quoted_field(self):
        self.assertEqual(self.load('size,n\n5",1\n"6,2\n', "--separator", "comma")["warnings"], [])

    def test_encodings(self):
        text = "größe,b\n1,2\n"
        for encoding in ("utf-8", "utf-8-sig", "utf-16", "cp1252"):
            with self.subTest(encoding=encoding):
                self.assertEqual(self.load(text.encode(encoding))["labels"], ["größe", "b"])

    def test_decimal_commas(self):
        loaded = self.load("a;b\n1,5;2,5\n", LC_ALL="de_DE.UTF-8")
        self.assertEqual((loaded["separator"], loaded["textCells"]), ("semicolon", 0))
        self.assertEqual(self.show()["rows"], [[1.5, 2.5]])

    def test_a_statement_in_a_label_is_a_label(self):
        label = "1'); DROP TABLE TrainingSet; --"
        loaded = self.load(f'{label},"b"\n1,2\n', "--separator", "comma")
        self.assertEqual(loaded["labels"], [label, '"b"'])
        self.assertEqual(self.show(), {
            "set": "training", "labels": [label, '"b"'], "firstRow": 1, "rows": [[1, 2]]
        })
        self.assertEqual(
            query(self.run_path, "SELECT OriginalLabel FROM DataSetColumn"), [(label,), ('"b"',)]
        )

    def test_the_same_load_twice_gives_the_same_run(self):
        def without_history():
            return [line for line in dump(self.run_path) if "RunHistory" not in line]

        self.load(WORDS)
        once = without_history()
        self.load(WORDS)
        self.assertEqual(without_history(), once)

    def test_what_was_computed_from_the_former_data_goes(self):
        self.load("a,b\n1,2\n")
        for statement in (
            "INSERT INTO DataSetStatistics VALUES (NULL, 1, 0, 1, 1, 1, 1, 1)",
            "INSERT INTO DataSetStatistics VALUES (NULL, 2, 0, 1, 1, 1, 1, 1)",
            "INSERT INTO DataSetColumnCategories VALUES ('d0', 'x', 1, 1)",
        ):
            change(self.run_path, statement)
        self.load("a,b\n3,4\n")
        self.assertEqual(query(self.run_path, "SELECT DataSetId FROM DataSetStatistics"), [(2,)])
        self.assertEqual(query(self.run_path, "SELECT * FROM DataSetColumnCategories"), [])


if __name__ == "__main__":
    unittest.main()
