"""Training and testing set of one run: their columns, row keys and original texts."""

import unittest

from host_case import HostCase, query

TRAINING = "a,b\n1,10\n2,20\n3,30\n"
TESTING = "a,b\n7,70\n8,80\n"


class SetsTest(HostCase):
    def keys(self, table):
        return [key for (key,) in query(self.run_path, f"SELECT row FROM {table} ORDER BY rowid")]

    def originals(self):
        return query(self.run_path, "SELECT row, d0 FROM OriginalData ORDER BY row")

    def test_testing_records_come_behind_the_training_ones(self):
        self.load(TRAINING)
        loaded = self.load(TESTING, "--set", "testing")
        self.assertEqual((loaded["set"], loaded["rows"]), ("testing", 2))
        self.assertEqual(self.keys("TrainingSet"), [1, 2, 3])
        self.assertEqual(self.keys("TestingSet"), [4, 5])
        self.assertEqual(self.originals(), [(1, "1"), (2, "2"), (3, "3"), (4, "7"), (5, "8")])
        self.assertEqual(self.show()["rows"], [[1, 10], [2, 20], [3, 30]])
        self.assertEqual(self.show("--set", "testing")["rows"], [[7, 70], [8, 80]])

    def test_a_testing_set_loaded_anew_takes_the_place_of_the_former(self):
        self.load(TRAINING)
        self.load(TESTING, "--set", "testing")
        self.load("a,b\n9,90\n", "--set", "testing")
        self.assertEqual(self.keys("TestingSet"), [4])
        self.assertEqual(self.originals(), [(1, "1"), (2, "2"), (3, "3"), (4, "9")])

    def test_a_longer_training_set_moves_the_testing_records(self):
        self.load(TRAINING)
        self.load(TESTING, "--set", "testing")
        self.load(TRAINING + "4,40\n", "--set", "training")
        self.assertEqual(self.keys("TestingSet"), [5, 6])
        self.assertEqual(
            self.originals(), [(1, "1"), (2, "2"), (3, "3"), (4, "4"), (5, "7"), (6, "8")]
        )

    def test_a_shorter_training_set_moves_the_testing_records(self):
        self.load(TRAINING)
        self.load(TESTING, "--set", "testing")
        self.load("a,b\n5,50\n")
        self.assertEqual(self.keys("TestingSet"), [2, 3])
        self.assertEqual(self.originals(), [(1, "5"), (2, "7"), (3, "8")])
        self.assertEqual(self.show("--set", "testing")["rows"], [[7, 70], [8, 80]])

    def test_a_testing_set_may_come_first(self):
        self.load(TESTING, "--set", "testing")
        self.assertEqual(self.keys("TestingSet"), [1, 2])
        self.assertEqual(self.show("--set", "testing")["labels"], ["a", "b"])
        self.load(TRAINING)
        self.assertEqual(self.keys("TestingSet"), [4, 5])
        self.assertEqual(self.originals(), [(1, "1"), (2, "2"), (3, "3"), (4, "7"), (5, "8")])

    def test_the_columns_are_those_of_the_training_set(self):
        self.load("a,b,c\n1,NA,5\n1,2,6\n")
        self.load("a,b,c\nNA,2,7\n", "--set", "testing")
        self.assertEqual(
            query(self.run_path, "SELECT OriginalLabel, MissingCount FROM DataSetColumn"),
            [("a", 0), ("b", 1), ("c", 0)],
        )
        self.assertEqual(
            query(self.run_path, "SELECT SetId, label FROM DataSetLabels"),
            [(1, "a"), (1, "b"), (1, "c"), (2, "a"), (2, "b"), (2, "c")],
        )

    def test_other_labels_in_the_testing_set_are_told(self):
        self.load(TRAINING)
        file = self.write("data.csv", "a,c\n7,70\n")
        result = self.program("load", file, "--run", self.run_path, "--set", "testing")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(
            result.stderr,
            'tslm5: warning: column 2 is called "c" in the testing set, but "b" in the run\n',
        )

    def test_both_sets_must_have_the_same_columns(self):
        self.load(TRAINING)
        self.load(TESTING, "--set", "testing")
        wide = self.write("wide.csv", "a,b,c\n1,2,3\n")
        self.failed(
            1,
            "the testing set has 3 columns, but the training set of the run has 2; both must have "
            "the same",
            *("load", wide, "--run", self.run_path, "--set", "testing"),
        )
        self.failed(
            1,
            "the training set has 3 columns, but the testing set of the run has 2; both must have "
            "the same",
            *("load", wide, "--run", self.run_path),
        )
        self.assertEqual(self.show("--set", "testing")["rows"], [[7, 70], [8, 80]])

    def test_a_training_set_alone_may_change_its_width(self):
        self.load(TRAINING)
        self.load("a,b,c\n1,2,3\n")
        self.assertEqual(
            query(self.run_path, "SELECT * FROM OriginalData"), [("1", "2", "3", 1)]
        )
        self.assertEqual(self.show()["rows"], [[1, 2, 3]])


if __name__ == "__main__":
    unittest.main()
