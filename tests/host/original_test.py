"""`tslm5 original`: the texts that a run's numbers were made from."""

import json
import unittest

from host_case import HostCase, change, query

TRAINING = "size;kind;class\n1.50;red;2\n2e1;NA;7\n?;blue;2\n"
TESTING = "size;kind;class\n7.0;red;7\n.5;blue;2\n"


class OriginalTest(HostCase):
    def setUp(self):
        super().setUp()
        options = ("--problem", "classification", "--missing", "?")
        self.load_with_statistics(TRAINING, *options)
        self.load_with_statistics(TESTING, "--set", "testing", name="more.csv")

    def load_with_statistics(self, content, *options, name="data.csv"):
        file = self.write(name, content)
        self.program("load", file, "--run", self.run_path, "--no-check", *options)

    def original(self, *options, **changes):
        words = ("original", self.run_path, "--json", *options)
        return json.loads(self.done(*words, **changes))

    def test_table(self):
        self.assertEqual(
            self.done("original", self.run_path),
            "row  key  size  kind  class\n"
            "  1    1  1.50   red      2\n"
            "  2    2   2e1    NA      7\n"
            "  3    3     ?  blue      2\n",
        )

    def test_csv_of_some_columns(self):
        self.assertEqual(
            self.done(
                *("original", self.run_path, "--set", "testing", "--format", "csv"),
                *("--columns", "class,d0"),
            ),
            "key,class,size\n4,7,7.0\n5,2,.5\n",
        )

    def test_json(self):
        self.assertEqual(
            self.original("--rows", "2:"),
            {
                "set": "training",
                "labels": ["key", "size", "kind", "class"],
                "firstRow": 2,
                "rows": [[2, "2e1", "NA", "7"], [3, "?", "blue", "2"]],
            },
        )

    def test_both_are_one_after_the_other_with_labels(self):
        both = self.original("--set", "both")
        self.assertEqual(both["labels"], ["key", "size", "kind", "class"])
        self.assertEqual([row[0] for row in both["rows"]], [1, 2, 3, 4, 5])
        self.assertEqual(both["rows"][3], [4, "7.0", "red", "7"])

    def test_all_has_records_of_no_set(self):
        change(self.run_path, "INSERT INTO OriginalData VALUES ('9', 'grey', '3', 6)")
        self.assertEqual(self.original("--set", "all")["rows"][5], [6, "9", "grey", "3"])
        self.assertEqual(len(self.original("--set", "training")["rows"]), 3)

    def test_classes(self):
        def classes(name):
            return [row[3] for row in self.original("--set", name, "--binarise")["rows"]]

        self.assertEqual(classes("training"), ["0", "1", "0"])
        self.assertEqual(classes("testing"), ["1", "0"])
        self.assertEqual(classes("both"), ["0", "1", "0", "1", "0"])

    def test_a_comma_locale_shows_decimal_commas(self):
        self.assertEqual(self.original(LC_ALL="de_DE.UTF-8")["rows"][0][1], "1,50")
        both = self.original("--set", "both", LC_ALL="de_DE.UTF-8")
        self.assertEqual(both["rows"][0][1], "1.50")

    def test_a_record_without_originals_is_empty(self):
        change(self.run_path, "DELETE FROM OriginalData WHERE row = 1")
        self.assertEqual(
            self.original()["rows"],
            [[2, "2e1", "NA", "7"], [3, "?", "blue", "2"], [None, None, None, None]],
        )


class OtherRunsTest(HostCase):
    def binarise(self, message, *options):
        self.failed(
            2,
            f"--binarise: {message}",
            *("original", self.run_path, "--binarise", *options),
        )

    def test_classes_of_a_regression(self):
        self.load("a;b\n1;2\n3;4\n")
        self.binarise(
            "the run's problem is regression; a response has classes where the problem is "
            "classification or binary (tslm5 load --problem)"
        )

    def test_classes_of_all_records(self):
        self.load("a;b\n1;2\n3;4\n")
        self.binarise(
            "all records together have no classes; --set training, testing or both has them",
            *("--set", "all"),
        )

    def test_classes_without_statistics(self):
        self.load("a;b\n1;2\n3;4\n", "--problem", "classification")
        self.binarise("the run has no statistics, which tell the largest class (tslm5 stats)")

    def test_classes_of_both_sets_where_texts_are_coded(self):
        for content, options in [
            ("a;b\n1;no\n3;yes\n", ()),
            ("a;b\n1;2\n3;3\n4;1\n", ("--positive-class", "3")),
        ]:
            self.load(content, "--problem", "binary" if options else "classification", *options)
            self.done("stats", self.run_path)
            self.binarise(
                "both sets together are told apart by the response's texts, which are not the "
                "run's numbers here; --set training or testing goes by the numbers",
                *("--set", "both"),
            )
            words = ("original", self.run_path, "--binarise", "--format", "csv", "--columns", "b")
            rows = self.done(*words).split()
            self.assertEqual(rows[1:3], ["1,0", "2,1"])

    def test_what_is_not_there(self):
        self.load("a;b\n1;2\n3;4\n")
        has_no = f"{self.run_path} has no testing set (tslm5 info tells what it has)"
        self.failed(3, has_no, "original", self.run_path, "--set", "testing")
        rows = "--rows: the first row asked for is 3, but the training set has 2 rows"
        self.failed(2, rows, "original", self.run_path, "--rows", "3")
        change(self.run_path, "DROP TABLE OriginalData")
        self.failed(3, f"{self.run_path} keeps no original texts", "original", self.run_path)
        self.assertEqual(query(self.run_path, "SELECT COUNT(*) FROM TrainingSet"), [(2,)])

    def test_labels_of_a_run_that_keeps_none(self):
        self.load("1;2\n3;4\n", "--no-labels")
        change(self.run_path, "DELETE FROM OriginalDataLabels")
        for name in ("training", "both", "all"):
            shown = self.done("original", self.run_path, "--set", name, "--format", "csv")
            self.assertEqual(shown, "key,d0,y\n1,1,2\n2,3,4\n")


if __name__ == "__main__":
    unittest.main()
