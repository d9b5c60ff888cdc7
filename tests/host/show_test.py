"""`tslm5 show` and `tslm5 info`: exact texts."""

import json
import re
import unittest

from host_case import HostCase, change


class ShowTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load("größe,b c,price\n1,NA,0.1\n-20.5,3,1e300\n7,8,9\n", "--separator", "comma")

    def test_table(self):
        self.assertEqual(
            self.done("show", self.run_path),
            "row  größe  b c   price\n"
            "  1      1   NA     0.1\n"
            "  2  -20.5    3  1E+300\n"
            "  3      7    8       9\n",
        )

    def test_table_of_a_range(self):
        self.assertEqual(
            self.done("show", self.run_path, "--rows", "3", "--columns", "b c,d0"),
            "row  b c  größe\n  3    8      7\n",
        )

    def test_table_shows_twenty_rows(self):
        self.load("a\n" + "".join(f"{i}\n" for i in range(1, 101)))
        lines = self.done("show", self.run_path).splitlines()
        self.assertEqual(lines[0], "row   a")
        self.assertEqual(lines[20], " 20  20")
        self.assertEqual(lines[21:], ["and 80 more rows; --rows 21: shows them"])
        rest = self.done("show", self.run_path, "--rows", "21:").splitlines()
        self.assertEqual((len(rest), rest[1], rest[-1]), (81, " 21   21", "100  100"))

    def test_csv(self):
        self.assertEqual(
            self.done("show", self.run_path, "--format", "csv"),
            "größe,b c,price\n1,,0.1\n-20.5,3,1E+300\n7,8,9\n",
        )

    def test_csv_quotes_labels(self):
        self.load('a"b;c,d\n1;2\n', "--separator", "semicolon")
        self.assertEqual(
            self.done("show", self.run_path, "--format", "csv"), '"a""b","c,d"\n1,2\n'
        )
        self.assertEqual(self.show("--columns", "c,d")["rows"], [[2]])

    def test_json(self):
        expected = {
            "set": "training",
            "labels": ["größe", "b c", "price"],
            "firstRow": 2,
            "rows": [[-20.5, 3, 1e300], [7, 8, 9]],
        }
        printed = self.done("show", self.run_path, "--rows", "2:", "--json")
        self.assertEqual(json.loads(printed), expected)
        self.assertEqual(
            self.done("show", self.run_path, "--rows", "2:", "--format", "json"), printed
        )
        self.assertEqual(self.show()["rows"][0], [1, None, 0.1])

    def test_ranges(self):
        for rows, first, values in [
            ("1:2", 1, [1, -20.5]), (":2", 1, [1, -20.5]), ("2:9", 2, [-20.5, 7]), ("2", 2, [-20.5])
        ]:
            with self.subTest(rows=rows):
                shown = self.show("--rows", rows, "--columns", "größe")
                self.assertEqual(shown["firstRow"], first)
                self.assertEqual(shown["rows"], [[value] for value in values])

    def test_what_is_not_there(self):
        run = self.run_path
        self.failed(
            2,
            '--columns: there is no column "x"; the labels are größe, b c, price',
            *("show", run, "--columns", "price,x"),
        )
        self.failed(
            2,
            "--rows: the first row asked for is 4, but the training set has 3 rows",
            *("show", run, "--rows", "4"),
        )
        self.failed(
            2,
            '--rows: "3:1" ends before it begins; expected A:B, A:, :B or A, counted from 1',
            *("show", run, "--rows", "3:1"),
        )
        for name in ("testing", "time-series-training", "time-series-testing"):
            self.failed(
                3,
                f"{run} has no {name} set (tslm5 info tells what it has)",
                *("show", run, "--set", name),
            )

    def test_time_series_sets(self):
        for number, (table, name) in enumerate(
            [("TimeSeriesTrainingSet", "time-series-training"),
             ("TimeSeriesTestingSet", "time-series-testing")]
        ):
            change(self.run_path, f"CREATE TABLE {table} (d0 FLOAT, row INTEGER PRIMARY KEY)")
            change(self.run_path, f"INSERT INTO {table} VALUES ({number}.5, 1)")
            self.assertEqual(self.show("--set", name)["rows"], [[number + 0.5]])

    def test_info(self):
        path = self.folder / "data.csv"
        self.write("more.csv", "1,2,3\n")
        result = self.program(
            *("load", self.folder / "more.csv", "--run", self.run_path),
            *("--set", "testing", "--no-labels"),
        )
        self.assertEqual(result.returncode, 0, result.stderr)
        text = re.sub(
            r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", "TIME", self.done("info", self.run_path)
        )
        self.assertEqual(
            text,
            f"{self.run_path}: schema version 1\n"
            "\n"
            "training set\n"
            "  rows     3\n"
            "  columns  3\n"
            "  labels   größe, b c, price\n"
            f"  loaded   TIME from {path}\n"
            "\n"
            "testing set\n"
            "  rows     1\n"
            "  columns  3\n"
            "  labels   größe, b c, price\n"
            f"  loaded   TIME from {self.folder / 'more.csv'}\n",
        )

    def test_info_as_json(self):
        info = json.loads(self.done("info", self.run_path, "--json"))
        time = info["sets"][0].pop("time")
        self.assertRegex(time, r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        self.assertEqual(
            info,
            {
                "run": str(self.run_path),
                "schemaVersion": 1,
                "sets": [
                    {
                        "set": "training",
                        "rows": 3,
                        "columns": 3,
                        "hasLabels": True,
                        "labels": ["größe", "b c", "price"],
                        "file": str(self.folder / "data.csv"),
                    }
                ],
            },
        )

    def test_info_of_a_run_without_history(self):
        change(self.run_path, "DROP TABLE RunHistory")
        self.assertIn(
            "  loaded   the run does not tell when and from where\n",
            self.done("info", self.run_path),
        )
        info = json.loads(self.done("info", self.run_path, "--json"))
        self.assertIsNone(info["sets"][0]["file"])


class UsageTest(HostCase):
    def test_help_is_no_failure(self):
        for words in (["--help"], ["load", "--help"], ["info", "-h"], ["show", "--help"]):
            self.assertIn("Examples:\n", self.done(*words))
        self.assertRegex(self.done("--version"), r"^tslm5 \d+\.\d+\.\d+\n$")

    def test_wrong_usage(self):
        for words in ([], ["frob"], ["load"], ["load", "f"], ["show"], ["info", "a", "b"],
                      ["load", "f", "--run", "r", "--separator", "x"], ["info", "r", "--rows", "1"],
                      ["show", "r", "--json", "--format", "csv"], ["load", "f", "--run", ":memory:"]):
            result = self.program(*words)
            self.assertEqual((result.returncode, result.stdout), (2, ""), words)
            self.assertRegex(result.stderr, r"^tslm5: [^\n]+\n$")


if __name__ == "__main__":
    unittest.main()
