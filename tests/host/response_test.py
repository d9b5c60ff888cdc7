"""`tslm5 categories` of the response: its check, its binary encoding, its positive class."""

import json
import unittest

from host_case import HostCase, dump, query

TRAINING = "x,kind\n1,yes\n2,no\n3,maybe\n4,yes\n5,no\n"
TESTING = "x,kind\n6,maybe\n7,no\n"
BINOMIAL = "Unable to proceed: The response variable must be binomial."
SINGLED_OUT = "Unable to proceed: The response variable must have a unique Singled Out Class."


class ResponseTest(HostCase):
    def prepare(self, training=TRAINING, testing=TESTING):
        words = ["--testing", self.write("testing.csv", testing)] if testing else []
        self.done("load", self.write("training.csv", training), "--run", self.run_path, *words)

    def categories(self, *words):
        return self.done("categories", self.run_path, *words)

    def cells(self, table="TrainingSet"):
        return query(
            self.run_path,
            f"SELECT od.d1, t.d1 FROM {table} t JOIN OriginalData od ON od.row = t.row "
            "ORDER BY t.row",
        )

    def encoding(self):
        return query(
            self.run_path,
            "SELECT PositiveClass, NewPositiveValue, NewNegativeValue FROM ResponseEncoding",
        )

    def is_merging(self):
        return query(self.run_path, "SELECT intvalue FROM RunParameters WHERE element = 'Merging'")

    def refused(self, message, *words):
        before = dump(self.run_path)
        self.failed(1, message, "categories", self.run_path, *words)
        self.assertEqual(dump(self.run_path), before)

    def test_a_check_of_three_classes(self):
        self.prepare()
        result = self.program("categories", self.run_path, "--check")
        self.assertEqual((result.returncode, result.stderr), (1, ""))
        lines = result.stdout.splitlines()
        self.assertTrue(lines[0].startswith("kind (d1), the response: 3 categories, 3 codes"))
        self.assertEqual(lines[-1], f"check: {BINOMIAL}")
        result = self.program("categories", self.run_path, "--check", "--json")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(json.loads(result.stdout)["check"], {"fit": False, "message": BINOMIAL})

    def test_a_check_of_numbers(self):
        self.prepare("x,y\n1,2\n3,4\n", None)
        result = self.program("categories", self.run_path, "--check")
        self.assertEqual(
            (result.returncode, result.stdout),
            (1, f"y (d1), the response: no categories\ncheck: {BINOMIAL}\n"),
        )

    def test_a_check_that_passes(self):
        self.prepare("x,kind\n1,yes\n2,no\n", None)
        text = self.categories("--check")
        self.assertTrue(text.endswith("check: the response can be used as a binary one\n"))
        self.assertEqual(
            json.loads(self.categories("--check", "--json"))["check"],
            {"fit": True, "message": None},
        )

    def test_merge_check_and_encode(self):
        self.prepare()
        self.assertEqual(self.is_merging(), [(0,)])
        text = self.categories("kind", "--merge", "yes,no=4", "--encode")
        self.assertIn("maybe     2        1  positive class\n", text)
        self.assertIn('encoding: "maybe" is 2, every other class 4\n', text)
        self.assertEqual(
            self.cells(), [("yes", 4), ("no", 4), ("maybe", 2), ("yes", 4), ("no", 4)]
        )
        self.assertEqual(self.cells("TestingSet"), [("maybe", 2), ("no", 4)])
        self.assertEqual(self.encoding(), [("maybe", 2, 4)])
        self.assertEqual(self.is_merging(), [(1,)])
        classes = query(
            self.run_path,
            "SELECT DISTINCT Class FROM DataSetClassStatistics WHERE DataSetId = 1 ORDER BY 1",
        )
        self.assertEqual(classes, [(2,), (4,)])

    def test_what_is_refused_changes_nothing(self):
        self.prepare("x,kind\n1,a\n2,b\n3,c\n4,d\n", None)
        self.refused(BINOMIAL, "--encode")
        self.refused(SINGLED_OUT, "kind", "--merge", "a,b=0", "--merge", "c,d=1", "--encode")
        self.refused(SINGLED_OUT, "kind", "--merge", "a,b=0", "--merge", "c,d=1", "--check")
        self.refused(BINOMIAL, "kind", "--merge", "a,b,c,d=1", "--encode")

    def test_unmerged_again(self):
        self.prepare()
        before = self.cells()
        self.categories("kind", "--merge", "yes,no=4", "--encode")
        text = self.categories("kind", "--assign", "yes=0", "no=1")
        self.assertIn(
            'encoding: "maybe" is 2, every other class 4; the categories have other codes '
            "(--encode)\n",
            text,
        )
        self.assertEqual(self.cells(), before)
        self.assertEqual(self.is_merging(), [(0,)])

    def test_two_classes_keep_their_codes(self):
        self.prepare("x,kind\n1,yes\n2,no\n3,no\n", None)
        before = self.cells()
        self.categories("--encode")
        self.assertEqual(self.cells(), before)

    def test_the_positive_class_is_chosen(self):
        self.prepare("x,kind\n1,yes\n2,no\n3,no\n", None)
        for name, values in (("yes", (0, 1)), ("no", (1, 0))):
            text = self.categories("--encode", "--positive-class", name)
            self.assertIn(f'encoding: "{name}" is {values[0]}, every other class {values[1]}\n',
                          text)
            self.assertEqual(self.encoding(), [(name, *values)])
        self.assertEqual(self.cells(), [("yes", 0), ("no", 1), ("no", 1)])

    def test_a_positive_class_that_cannot_be(self):
        self.prepare()
        words = (
            "cannot be the positive class: the response must have two codes, one of them for this "
            "class alone (--merge gives several one code)"
        )
        self.refused(f'"yes" {words}', "--positive-class", "yes")
        self.categories("kind", "--merge", "yes,no=4")
        self.refused(f'"yes" {words}', "--positive-class", "yes")
        before = dump(self.run_path)
        self.failed(
            2,
            'kind (d1) has no category "Maybe"; it has "maybe", "yes", "no"',
            *("categories", self.run_path, "--positive-class", "Maybe"),
        )
        self.assertEqual(dump(self.run_path), before)

    def test_an_apostrophe_in_the_positive_class(self):
        self.prepare("x,kind\n1,isn't\n2,is\n3,maybe\n", None)
        self.refused(
            'the class "isn\'t" holds an apostrophe, which the component does not take in a value; '
            "nothing was changed",
            *("kind", "--merge", "is,maybe=5", "--encode"),
        )

    def test_history_does_it_again(self):
        self.prepare("x,kind\n1,yes\n2,no\n", None)
        self.categories("--check", "--encode", "--positive-class", "no")
        step = json.loads(self.done("history", self.run_path, "--json"))["steps"][-1]
        self.assertEqual(step["parameters"], {"encode": True, "positiveClass": "no"})
        self.assertEqual(
            step["commandLine"],
            f"tslm5 categories {self.run_path} --check --encode --positive-class=no",
        )


if __name__ == "__main__":
    unittest.main()
