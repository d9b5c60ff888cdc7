"""Testing records that become the training set, and the way back."""

import json
import unittest

from host_case import HostCase, dump, query


class ResetTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load("value\n1\n2\n3\n4\n5\n", "--problem", "timeseries")
        self.load("value\n8.0\n9.0\n", "--set", "testing", name="later.csv")

    def step(self, name):
        return json.loads(self.done(name, self.run_path, "--json"))

    def values(self, table):
        return [value for (value,) in query(self.run_path, f"SELECT d0 FROM {table} ORDER BY row")]

    def embed(self):
        self.done("embed", self.run_path, "--dimension", 2, "--delay", 1)

    def refused(self, message, *words):
        before = dump(self.run_path)
        self.failed(1, message, *words)
        self.assertEqual(dump(self.run_path), before)

    def nothing_to(self, step):
        words = f"{self.run_path}: nothing to {step}: no reset is pending"
        self.refused(words, step, self.run_path)

    def test_there_and_back(self):
        told = self.step("reset")
        self.assertEqual((told["rows"], told["columns"], told["backupRows"]), (2, 1, 5))
        self.assertEqual(self.values("TrainingSet"), [8, 9])
        self.assertEqual(self.values("TrainingSetBackup"), [1, 2, 3, 4, 5])
        told = self.step("undo")
        self.assertEqual((told["rows"], told["backupRows"]), (5, 0))
        self.assertEqual(self.values("TrainingSet"), [1, 2, 3, 4, 5])
        self.assertEqual(self.values("TrainingSetBackup"), [])
        self.nothing_to("undo")

    def test_an_undo_goes_back_one_reset(self):
        self.step("reset")
        self.step("reset")
        self.step("undo")
        self.assertEqual(self.values("TrainingSet"), [8, 9])

    def test_a_kept_reset_is_final(self):
        self.step("reset")
        told = self.step("keep")
        self.assertEqual((told["rows"], told["backupRows"]), (2, 0))
        self.nothing_to("undo")
        self.nothing_to("keep")
        self.assertEqual(self.values("TrainingSet"), [8, 9])

    def test_the_words(self):
        run = self.run_path
        self.assertEqual(
            self.done("reset", run),
            f"{run}: the testing set is the training set now: 2 records\n"
            "the former training set is kept: 5 records; tslm5 undo restores it, tslm5 keep drops it\n",
        )
        self.assertEqual(
            self.done("undo", run),
            f"{run}: training set restored: 5 records\n",
        )
        self.done("reset", run)
        self.assertEqual(
            self.done("keep", run), f"{run}: the reset is final: 5 records of the former training set dropped\n"
        )

    def test_statistics_follow(self):
        sql = "SELECT Minimum, Maximum FROM DataSetStatistics WHERE DataSetId = 1"
        self.step("reset")
        self.assertEqual(query(self.run_path, sql), [(8, 9)])
        self.step("undo")
        self.assertEqual(query(self.run_path, sql), [(1, 5)])

    def test_records_keep_their_texts(self):
        self.step("reset")
        self.assertEqual(self.show("--original")["rows"], [[8, "8.0"], [9, "9.0"]])
        self.step("undo")
        self.assertEqual(self.show("--original", "--rows", "5")["rows"], [[5, "5"]])

    def test_of_an_embedded_set(self):
        self.embed()
        self.step("reset")
        shown = self.show("--original")
        self.assertEqual(shown["labels"], ["value", "value (original)"])
        self.assertEqual(shown["rows"], [[8, "8.0"], [9, "9.0"]])
        columns = "SELECT ColumnIndex, OriginalLabel, IsResponse FROM DataSetColumn ORDER BY Id"
        self.assertEqual(query(self.run_path, columns), [(0, "value", 1)])
        self.step("undo")
        shown = self.show("--original", "--rows", "3")
        self.assertEqual(shown["rows"], [[3, "3", 4, "4", 5, "5"]])
        self.assertEqual(shown["labels"][::2], ["t_2", "t_1", "t_0"])
        self.assertEqual(
            query(self.run_path, columns), [(0, "t_2", 0), (1, "t_1", 0), (2, "t_0", 1)]
        )

    def test_a_series_is_not_told_in_the_columns_of_an_embedding(self):
        self.embed()
        words = (
            " set has 1 columns, the original texts of the run 3, those of an embedding (tslm5 show "
            "--set {} --original shows its own)"
        )
        for name, option in (("testing", "testing"), ("testing", "both")):
            message = f"the {name}" + words.format(name)
            self.failed(3, message, "original", self.run_path, "--set", option)
        told = json.loads(self.done("original", self.run_path, "--json"))
        self.assertEqual(told["rows"], [[1, "1", "2", "3"], [2, "2", "3", "4"], [3, "3", "4", "5"]])
        self.step("reset")
        self.failed(3, "the training" + words.format("training"), "original", self.run_path)

    def test_a_testing_set_loaded_in_between(self):
        self.embed()
        self.step("reset")
        self.load("value\n6\n7\n", "--set", "testing", name="latest.csv")
        self.assertEqual(self.show("--original")["rows"], [[8, "8.0"], [9, "9.0"]])
        self.assertEqual(self.show("--set", "testing", "--original")["rows"], [[6, "6"], [7, "7"]])
        self.step("undo")
        rows = self.show("--original")["rows"]
        self.assertEqual([row[0::2] for row in rows], [[1, 2, 3], [2, 3, 4], [3, 4, 5]])
        # The first texts of each are still there, the others were let go.
        self.assertEqual([row[1::2] for row in rows], [[str(t), None, None] for t in (1, 2, 3)])

    def test_embedding_lets_a_reset_go(self):
        self.load("value\n8\n9\n10\n", "--set", "testing", name="later.csv")
        self.step("reset")
        result = self.program("embed", self.run_path, "--dimension", 1, "--delay", 1, "--json")
        self.assertEqual(result.returncode, 0)
        warning = "the reset of before can no longer be undone"
        self.assertEqual(result.stderr, f"tslm5: warning: {warning}\n")
        self.assertEqual(json.loads(result.stdout)["warnings"], [warning])
        self.assertEqual(self.show()["rows"], [[8, 9], [9, 10]])
        self.nothing_to("undo")

    def test_embedding_after_a_reset_keeps_the_texts_of_the_testing_set(self):
        self.load("value\n" + "".join(f"{t}.0\n" for t in range(9)), "--set", "testing", name="b.csv")
        self.step("reset")
        self.program("embed", self.run_path, "--dimension", 1, "--delay", 1)
        texts = [row[1] for row in self.show("--set", "testing", "--original")["rows"]]
        self.assertEqual(texts, [f"{t}.0" for t in range(9)])
        rows = self.show("--original")["rows"]
        self.assertEqual(rows, [[t, f"{t}.0", t + 1, f"{t + 1}.0"] for t in range(8)])

    def test_without_a_testing_set(self):
        self.run_path.unlink()
        self.load("value\n1\n2\n")
        self.refused(
            f"{self.run_path}: there is no testing set, so there is nothing to reset the training set to",
            "reset",
            self.run_path,
        )

    def test_without_a_training_set(self):
        self.run_path.unlink()
        self.load("value\n1\n2\n", "--set", "testing")
        for step in ("reset", "undo", "keep"):
            message = f"{self.run_path} has no training set (tslm5 info tells what it has)"
            self.failed(3, message, step, self.run_path)

    def test_the_history_tells_each_step(self):
        for step in ("reset", "undo", "reset", "keep"):
            self.step(step)
        steps = json.loads(self.done("history", self.run_path, "--json"))["steps"]
        self.assertEqual([s["command"] for s in steps[2:]], ["reset", "undo", "reset", "keep"])
        self.assertEqual(steps[-1]["commandLine"], f"tslm5 keep {self.run_path}")


if __name__ == "__main__":
    unittest.main()
