"""`tslm5 show --original`: the text as it stood in the file beside the stored number."""

import unittest

from host_case import HostCase, change

TRAINING = "a;b\n1.50;2\n2e1;+3\n"


class OriginalCellsTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load(TRAINING)
        self.load("a;b\n7.0;8\n.5;9\n", "--set", "testing")

    def test_table(self):
        self.assertEqual(
            self.done("show", self.run_path, "--original"),
            "row    a  a (original)  b  b (original)\n"
            "  1  1.5          1.50  2             2\n"
            "  2   20           2e1  3            +3\n",
        )

    def test_json(self):
        self.assertEqual(
            self.show("--original", "--columns", "b"),
            {"set": "training", "labels": ["b", "b (original)"], "firstRow": 1,
             "rows": [[2, "2"], [3, "+3"]]},
        )

    def test_csv_quotes_the_texts(self):
        change(self.run_path, "UPDATE OriginalData SET d0 = 'x,\"y\"' WHERE row = 2")
        self.assertEqual(
            self.done("show", self.run_path, "--original", "--format", "csv"),
            "a,a (original),b,b (original)\n"
            "1.5,1.50,2,2\n"
            '20,"x,""y""",3,+3\n',
        )

    def test_the_texts_are_joined_by_key(self):
        self.assertEqual(
            self.show("--original", "--set", "testing")["rows"],
            [[7, "7.0", 8, "8"], [0.5, ".5", 9, "9"]],
        )
        change(self.run_path, "UPDATE TrainingSet SET row = 100 WHERE row = 1")
        change(self.run_path, "UPDATE OriginalData SET row = 100 WHERE row = 1")
        self.assertEqual(
            self.show("--original", "--columns", "a")["rows"], [[20, "2e1"], [1.5, "1.50"]]
        )

    def test_a_range_has_the_texts_of_its_own_rows(self):
        self.assertEqual(
            self.show("--original", "--columns", "a", "--rows", "2")["rows"], [[20, "2e1"]]
        )

    def test_a_text_that_was_not_kept_is_missing(self):
        change(self.run_path, "DELETE FROM OriginalData WHERE row = 1")
        change(self.run_path, "UPDATE OriginalData SET d0 = '' WHERE row = 2")
        self.assertEqual(
            self.show("--original", "--columns", "a")["rows"], [[1.5, None], [20, ""]]
        )

    def test_control_characters_do_not_reach_a_table(self):
        change(self.run_path, "UPDATE OriginalData SET d1 = char(27) || '[2J' WHERE row = 1")
        self.assertIn("\\u{001B}[2J", self.done("show", self.run_path, "--original"))

    def test_a_set_without_originals(self):
        change(self.run_path, "DROP TABLE OriginalData")
        self.failed(
            3, "the run keeps no original texts of the training set",
            *("show", self.run_path, "--original"),
        )
        self.assertEqual(self.show()["rows"], [[1.5, 2], [20, 3]])


if __name__ == "__main__":
    unittest.main()
