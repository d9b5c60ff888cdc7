"""`tslm5 categories`: a run's codes are shown, changed, merged and encoded."""

import json
import unittest

from host_case import HostCase, change, dump, query

TRAINING = (
    "color,wind,kind\n"
    "red,1,yes\n"
    "dark blue,2,no\n"
    "red,3,maybe\n"
    "?,4,yes\n"
    'a=b,5,no\n'
)
TESTING = "color,wind,kind\ngrün,2,yes\nred,1,no\n"


class CategoriesTest(HostCase):
    def prepare(self, training=TRAINING, testing=TESTING, *options):
        words = [] if testing is None else ["--testing", self.write("testing.csv", testing)]
        return self.program(
            "load", self.write("training.csv", training), "--run", self.run_path, *words, *options
        )

    def categories(self, *words):
        return self.done("categories", self.run_path, *words)

    def columns(self, *words):
        return json.loads(self.categories("--json", *words))["columns"]

    def cells(self, column, table="TrainingSet"):
        """The cells of a column beside their texts, by record."""
        return query(
            self.run_path,
            f"SELECT od.{column}, t.{column} FROM {table} t JOIN OriginalData od ON od.row = t.row "
            "ORDER BY t.row",
        )

    def refused(self, code, message, *words):
        """The command must fail and leave the run as it was."""
        before = dump(self.run_path)
        self.failed(code, message, "categories", self.run_path, *words)
        self.assertEqual(dump(self.run_path), before)

    def test_the_table(self):
        self.prepare()
        self.assertEqual(
            self.categories(),
            "color (d0): 4 categories, 4 codes; the most frequent has code 1\n"
            "value      code  records\n"
            "a=b           4        1\n"
            "dark blue     2        1\n"
            "grün          5        0  not in the training set\n"
            "red           1        2\n"
            "\n"
            "kind (d2), the response: 3 categories, 3 codes; the most frequent has code 0\n"
            "value  code  records\n"
            "maybe     2        1\n"
            "no        1        2\n"
            "yes       0        2\n"
            "encoding: none\n",
        )
        self.assertEqual(self.categories("d0"), self.categories("color"))

    def test_wide_characters_keep_the_table_in_line(self):
        self.prepare("c,r\n北京,1\nab,2\n", None)
        lines = self.categories("c").splitlines()
        self.assertEqual(lines[2:], ["ab        2        1", "北京      1        1"])

    def test_json(self):
        self.prepare()
        self.assertEqual(
            self.columns("color")[0],
            {
                "index": 0, "label": "color", "categorical": True, "response": False,
                "mostFrequentCode": 1.0,
                "categories": [
                    {"value": "a=b", "code": 4.0, "records": 1, "merged": False},
                    {"value": "dark blue", "code": 2.0, "records": 1, "merged": False},
                    {"value": "grün", "code": 5.0, "records": 0, "merged": False},
                    {"value": "red", "code": 1.0, "records": 2, "merged": False},
                ],
            },
        )
        self.assertIsNone(self.columns("kind")[0]["encoding"])

    def test_only_the_first_of_many_unless_the_column_is_named(self):
        self.prepare("c,r\n" + "".join(f"w{i},{i}\n" for i in range(25)), None)
        text = self.categories()
        self.assertEqual(len(text.splitlines()), 2 + 20 + 1)
        self.assertTrue(text.endswith("and 5 more; tslm5 categories RUN.db d0 shows them\n"))
        self.assertEqual(len(self.categories("c").splitlines()), 2 + 25)
        self.assertEqual(len(self.columns()[0]["categories"]), 25)

    def test_a_run_without_words(self):
        self.prepare("a,b\n1,2\n3,4\n", None)
        self.assertEqual(self.categories(), "no column has categories\n")
        self.assertEqual(self.columns(), [])
        self.refused(2, "a (d0) has no categories; the columns that have some: none", "a")

    def test_codes_reach_both_sets(self):
        self.prepare()
        self.assertEqual(self.cells("d0")[0], ("red", 1))
        text = self.categories("color", "--assign", "red=7.5", "a=b=-2", "--assign=dark blue=1e2")
        self.assertIn("dark blue   100        1\n", text)
        self.assertEqual(
            self.cells("d0"),
            [("red", 7.5), ("dark blue", 100), ("red", 7.5), ("?", None), ("a=b", -2)],
        )
        self.assertEqual(self.cells("d0", "TestingSet"), [("grün", 5), ("red", 7.5)])
        self.assertEqual(self.cells("d1")[0], ("1", 1))
        self.assertEqual(
            query(self.run_path, "SELECT NumericValue FROM DataSetColumnCategories "
                  "WHERE NominalValue = 'red'"),
            [(7.5,)],
        )

    def test_codes_can_be_exchanged_and_put_back(self):
        self.prepare()
        before = self.cells("d0")
        self.categories("color", "--assign", "red=2", "dark blue=1")
        self.assertEqual([code for _, code in self.cells("d0")], [2, 1, 2, None, 4])
        self.categories("color", "--assign", "red=1", "dark blue=2")
        self.assertEqual(self.cells("d0"), before)

    def test_the_former_name_of_the_option_is_still_taken(self):
        """The histories of older runs hold it."""
        self.prepare()
        self.categories("color", "--set=red=7")
        self.assertEqual([code for _, code in self.cells("d0")], [7, 2, 7, None, 4])
        self.assertIn("--assign=red=7", self.done("history", self.run_path))
        self.assertNotIn("--set", self.done("categories", "--help"))

    def test_merging_marks_what_shares_a_code(self):
        self.prepare()
        text = self.categories("color", "--merge", "red, dark blue=3")
        self.assertIn(": 4 categories, 3 codes; the most frequent has code 3\n", text)
        self.assertIn("red           3        2  merged\n", text)
        self.assertEqual([code for _, code in self.cells("d0")], [3, 3, 3, None, 4])

    def test_a_value_with_a_comma_is_merged_by_set(self):
        self.prepare('c;r\na,b;1\nc;2\n', None, "--separator", "semicolon", "--no-check")
        self.categories("c", "--assign", "a,b=3", "--assign", "c=3")
        self.assertEqual(self.cells("d0"), [("a,b", 3), ("c", 3)])

    def test_the_statistics_follow(self):
        self.prepare()
        maximum = "SELECT DataSetId, Maximum FROM DataSetStatistics WHERE ColumnIndex = 0"
        self.assertEqual(query(self.run_path, maximum), [(1, 4), (2, 5)])
        self.categories("color", "--assign", "red=50")
        self.assertEqual(query(self.run_path, maximum), [(1, 50), (2, 50)])
        self.categories("color", "--assign", "red=1", "--no-stats")
        self.assertEqual(query(self.run_path, maximum), [])
        stats = json.loads(self.done("stats", self.run_path, "--json"))
        self.assertEqual(stats["columns"][0]["maximum"], 4.0)

    def test_the_figures_of_codes_follow(self):
        self.prepare()
        self.categories("color", "--assign", "red=10")
        for table in ("DataSetStatisticsForCode", "DataSetStatisticsForMissing"):
            self.assertEqual(
                query(self.run_path, f"SELECT Average, Minimum, Maximum FROM {table} "
                      "WHERE ColumnIndex = 0"),
                [((10 + 2 + 10 + 4) / 4, 2, 10)],
            )

    def test_refusals(self):
        self.prepare()
        self.refused(2, "--assign and --merge need COLUMN, the column of the values", "--assign", "a=1")
        self.refused(
            2, 'COLUMN: there is no column "colour"; the labels are color, wind, kind', "colour"
        )
        self.refused(
            2, "wind (d1) has no categories; the columns that have some: color, kind", "wind"
        )
        self.refused(
            2,
            'color (d0) has no category "rad"; it has "red", "a=b", "grün", "dark blue"',
            *("color", "--assign", "dark blue=9", "rad=1"),
        )
        self.refused(
            2, 'the value "red" is given two codes, 1 and 2', "color", "--assign=red=1", "--assign=red=2"
        )
        self.refused(
            2,
            'the value "red" is given two codes, 1 and 2',
            *("color", "--assign=red=1", "--merge=a=b, red=2"),
        )

    def test_an_apostrophe_is_refused_before_anything_is_changed(self):
        self.prepare("c;r\nO'Brien;1\nb;2\n", None)
        self.refused(
            1,
            'the category "O\'Brien" holds an apostrophe, which the component does not take in a '
            "value; nothing was changed",
            *("c", "--assign", "b=9", "--assign", "O'Brien=3"),
        )

    def test_a_replacement_whose_code_is_gone_is_told(self):
        self.prepare()
        self.done("missing", self.run_path, "color", "--replace", "?=red", "--apply")
        result = self.program("categories", self.run_path, "color", "--assign", "red=8")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(
            result.stderr,
            'tslm5: warning: color (d0): the replacement 1 of the token "?" is no category\'s code '
            "any more (tslm5 missing chooses another)\n",
        )
        self.assertEqual(self.cells("d0")[3], ("?", 1))

    def test_history_does_it_again(self):
        self.prepare()
        self.categories("color", "--assign", "dark blue=6", "--merge", "red,a=b=3", "--no-stats")
        step = json.loads(self.done("history", self.run_path, "--json"))["steps"][-1]
        self.assertEqual(step["command"], "categories")
        self.assertEqual(
            step["parameters"],
            {"column": "color", "codes": {"dark blue": 6.0, "red": 3.0, "a=b": 3.0}},
        )
        self.assertEqual(
            step["commandLine"],
            f"tslm5 categories {self.run_path} color '--assign=dark blue=6' --assign=red=3 --assign=a=b=3 "
            "--no-stats",
        )

    def test_a_failure_leaves_the_run_as_it_was(self):
        self.prepare()
        change(self.run_path, "CREATE TRIGGER no BEFORE UPDATE ON TestingSet BEGIN "
               "SELECT RAISE(ABORT, 'no'); END")
        before = dump(self.run_path)
        result = self.program("categories", self.run_path, "color", "--assign", "red=9")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(dump(self.run_path), before)

    def test_a_run_without_training_set(self):
        self.load("a,b\n1,2\n", "--set", "testing")
        self.failed(
            3,
            f"{self.run_path} has no training set (tslm5 info tells what it has)",
            *("categories", self.run_path),
        )


if __name__ == "__main__":
    unittest.main()
