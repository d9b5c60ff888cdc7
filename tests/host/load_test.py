"""`tslm5 load`: what it prints and what the run holds afterwards."""

import gzip
import json
import os
import subprocess
import unittest

from host_case import PROGRAM, HostCase, change, dump, plain_environment, query

WORDS = "name,weight,price\nred,1.50,7\ngreen,,2\n\nblue,NA,4\n"
NUMBERS = "a,b\n1,2\n\n3.5,4\n"


class LoadTest(HostCase):
    def test_tells_what_it_did(self):
        self.write("numbers.csv", NUMBERS)
        self.assertEqual(
            self.done("load", "numbers.csv", "--run", "run.db", "--no-check"),
            "numbers.csv is the training set of run.db\n"
            "separator  comma: it gives 2 fields in each record\n"
            "lines      4 read = 2 records + 1 label line + 1 empty line\n"
            "records    2 stored\n"
            "columns    2: a, b\n",
        )

    def test_tells_what_it_made_of_words(self):
        self.write("words.csv", WORDS)
        self.assertEqual(
            self.done("load", "words.csv", "--run", "run.db", "--no-check"),
            "words.csv is the training set of run.db\n"
            "separator  comma: it gives 3 fields in each record\n"
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
                "decimal": "point",
                "encoding": "UTF-8",
                "skippedLines": 0,
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
                "changedCells": 0,
                "firstMissingCell": None,
                "firstTextCell": None,
                "firstChangedCell": None,
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

    def test_numbers_and_repeated_words_can_be_labels(self):
        self.assertEqual(self.load("name,2019,2020\nx,1,2\ny,3,4\n")["labels"],
                         ["name", "2019", "2020"])
        file = self.write("data.csv", "same,Same\n1,2\n3,4\n")
        result = self.program("load", file, "--run", self.run_path, "--json")
        self.assertEqual(result.returncode, 0)
        warning = (
            'line 1, column 2: the label is there already and was made "Same_2": rename it'
        )
        self.assertEqual(result.stderr, f"tslm5: warning: {warning}\n")
        loaded = json.loads(result.stdout)
        self.assertEqual(loaded["warnings"], [warning])
        self.assertEqual((loaded["labels"], loaded["rows"]), (["same", "Same_2"], 2))

    def test_a_first_line_of_data_is_a_record(self):
        loaded = self.load("1,2\n3,4\n")
        self.assertEqual((loaded["rows"], loaded["labelLines"]), (2, 0))
        file = self.write("data.csv", "1,2\n3,4\n")
        result = self.program("load", file, "--run", self.run_path, "--labels", "--json")
        self.assertIn('the first line looks like "data"', result.stderr)
        self.assertEqual(json.loads(result.stdout)["labels"], ["1", "2"])

    def test_labels_that_could_be_a_record_are_told(self):
        file = self.write("data.csv", "c,a\nx,no\ny,yes\nz,perhaps\n")
        result = self.program("load", file, "--run", self.run_path, "--json")
        warning = (
            "line 1: taken for the labels, though it could be a record (--no-labels takes it for "
            "one)"
        )
        loaded = json.loads(result.stdout)
        self.assertEqual((loaded["warnings"], loaded["labels"]), ([warning], ["c", "a"]))
        self.assertEqual(self.load("c,a\nx,no\ny,yes\nz,perhaps\n", "--no-labels")["rows"], 4)

    def test_a_column_of_row_names_without_a_label(self):
        file = self.write("r.csv", "mpg cyl\nMazda 21 6\nHonda 30 4\n")
        result = self.program("load", file, "--run", self.run_path, "--json")
        loaded = json.loads(result.stdout)
        self.assertEqual((loaded["columns"], loaded["labels"][1:]), (3, ["mpg", "cyl"]))
        self.assertIn("it was taken for row names", result.stderr)

    def test_a_cell_is_what_stands_between_two_separators(self):
        self.load("a,b\n1;5,2\n1 5,4\n ,6\n")
        self.assertEqual(
            query(self.run_path, "SELECT d0, d1 FROM OriginalData"),
            [("1;5", "2"), ("1 5", "4"), ("", "6")],
        )

    def test_quoted_fields(self):
        loaded = self.load(
            '"the name",b\n"x, y",1\n"say ""hi""",2\n"two\nlines","3"\nin "the" middle,4\n'
        )
        self.assertEqual((loaded["labels"], loaded["rows"]), (["the name", "b"], 4))
        self.assertEqual(
            query(self.run_path, "SELECT d0, d1 FROM OriginalData"),
            [("x, y", "1"), ('say "hi"', "2"), ("two\nlines", "3"), ('in "the" middle', "4")],
        )
        self.assertEqual([row[1] for row in self.show()["rows"]], [1, 2, 3, 4])
        file = self.write("data.csv", 'a,b\n"x",1\ny,2\n')
        result = self.program("load", file, "--run", self.run_path, "--no-quotes")
        self.assertIn("stands in quotes, which were set to be part of the text", result.stderr)
        self.assertEqual(query(self.run_path, "SELECT d0 FROM OriginalData"), [('"x"',), ("y",)])

    def test_numbers_in_quotes_are_numbers(self):
        self.assertEqual(self.load('"a","b"\n1,2\n5,6\n')["labels"], ["a", "b"])
        self.assertIsNone(self.load('a,b\n"1","2"\n"3","4"\n')["preparation"])
        self.assertEqual(self.show()["rows"], [[1, 2], [3, 4]])

    def test_an_unclosed_quote_is_told_by_its_line(self):
        file = self.write("data.csv", 'a,b\nx,1\n"y,2\nz,3\n')
        result = self.program("load", file, "--run", self.run_path)
        self.assertIn("line 3", result.stderr)
        self.assertIn("are not closed", result.stderr)

    def test_decimal_commas_of_the_file_in_every_locale(self):
        for locale in ("C", "de_DE.UTF-8"):
            loaded = self.load("a;b\n1,5;2,5\n3;4,25\n", LC_ALL=locale)
            self.assertEqual((loaded["decimal"], loaded["textCells"]), ("comma", 0))
            self.assertEqual(self.show()["rows"], [[1.5, 2.5], [3, 4.25]])
            self.assertEqual(self.load("a,b\n1.5,2\n3,4\n", LC_ALL=locale)["decimal"], "point")
            self.assertEqual(self.show()["rows"], [[1.5, 2], [3, 4]])

    def test_lines_before_the_table(self):
        content = "made by hand\na,b\n1,2\n3,4\n5,6\n"
        file = self.write("data.csv", content)
        self.failed(
            1, "line 1: a line stands before the table (--skip-lines 1 passes over it, "
            "--skip-lines 0 takes it for records)", "load", file, "--run", self.run_path)
        for asked in ("1", "auto"):
            loaded = self.load(content, "--skip-lines", asked)
            self.assertEqual((loaded["skippedLines"], loaded["labels"]), (1, ["a", "b"]))
            self.assertEqual(self.show()["rows"], [[1, 2], [3, 4], [5, 6]])

    def test_a_named_encoding(self):
        content = "město,b\nžluť,2\n1,3\n".encode("cp1250")
        loaded = self.load(content, "--encoding", "windows-1250")
        self.assertEqual((loaded["labels"][0], loaded["encoding"]), ("město", "windows-1250"))
        file = self.write("data.csv", content)
        result = self.program("load", file, "--run", self.run_path, "--encoding", "klingon")
        self.assertEqual(result.returncode, 2)
        self.assertIn("klingon", result.stderr)

    def test_a_compressed_file(self):
        loaded = self.load(gzip.compress(b"a,b\n1,x\n2,y\n"))
        self.assertEqual((loaded["rows"], loaded["labels"]), (2, ["a", "b"]))
        self.assertIsNone(self.load(gzip.compress(b"a,b\n1,2\n2,4\n"))["preparation"])
        self.assertEqual(self.show()["rows"], [[1, 2], [2, 4]])

    def test_standard_input_and_pipes(self):
        for path in ("-", "/dev/stdin"):
            result = subprocess.run(
                [PROGRAM, "load", path, "--run", self.run_path, "--json"],
                input=b"a,b\n1,2\n3,4\n", capture_output=True, env=plain_environment(),
                check=True)
            self.assertEqual(json.loads(result.stdout)["rows"], 2)
        self.assertEqual(self.show()["rows"], [[1, 2], [3, 4]])
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        writer = subprocess.Popen(["sh", "-c", f"printf 'a,b\\n5,x\\n6,y\\n' > {pipe}"])
        self.done("load", pipe, "--run", self.run_path)
        writer.wait()
        self.assertEqual(query(self.run_path, "SELECT d0 FROM OriginalData"), [("5",), ("6",)])

    def test_the_fixed_rules(self):
        file = self.write("data.csv", "1 5,2\n3 6,4\n")
        result = self.program("load", file, "--run", self.run_path, "--no-labels", "--no-check",
                              "--fixed")
        self.assertEqual(
            result.stderr,
            "tslm5: warning: blanks count as separators too: 2 of the records have more columns "
            'than the comma gives, the first on line 1: "1 5,2"\n',
        )
        self.assertEqual(self.show()["rows"], [[1, 5, 2], [3, 6, 4]])
        file = self.write("data.csv", "a,b\n1,2\n1;5,4\n")
        printed = json.loads(self.done("load", file, "--run", self.run_path, "--fixed", "--json"))
        self.assertEqual(printed["firstChangedCell"],
                         {"line": 3, "column": 1, "label": "a", "value": "1;5"})
        self.assertEqual(self.show()["rows"], [[1, 2], [15, 4]])
        for labels in ("a,5", "same,Same"):
            file = self.write("data.csv", f"{labels}\n1,2\n")
            result = self.program("load", file, "--run", self.run_path, "--fixed")
            self.assertIn("the first line was dropped, but not taken for labels", result.stderr)

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
        file = self.write("data.csv", 'size,n\n5",1\n6",2\n')
        self.assertEqual(
            json.loads(self.done("load", file, "--run", self.run_path, "--json"))["warnings"], [])
        self.assertEqual(query(self.run_path, "SELECT d0 FROM OriginalData"), [('5"',), ('6"',)])

    def test_encodings(self):
        text = "größe,b\n1,2\n"
        for encoding in ("utf-8", "utf-8-sig", "utf-16", "cp1252"):
            with self.subTest(encoding=encoding):
                self.assertEqual(self.load(text.encode(encoding))["labels"], ["größe", "b"])

    def test_a_statement_in_a_label_is_a_label(self):
        label = "1'); DROP TABLE TrainingSet; --"
        loaded = self.load(f'{label},"b"\n1,2\n', "--separator", "comma")
        self.assertEqual(loaded["labels"], [label, "b"])
        self.assertEqual(self.show(), {
            "set": "training", "labels": [label, "b"], "firstRow": 1, "rows": [[1, 2]]
        })
        self.assertEqual(
            query(self.run_path, "SELECT OriginalLabel FROM DataSetColumn"), [(label,), ("b",)]
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
