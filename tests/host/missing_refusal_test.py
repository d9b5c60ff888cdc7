"""`tslm5 missing`: what it refuses, and that a failure leaves the run as it was."""

import os
import pty
import signal
import subprocess
import unittest

from host_case import PROGRAM, HostCase, change, dump, plain_environment, query

TRAINING = "size,kind,wind,y\n1,a,NA,5\n2.5,?,3,6\nNA,b,?,7\n8,a,,8\n4,b,10,9\n"


class MissingRefusalTest(HostCase):
    def prepare(self, *options, training=TRAINING):
        file = self.write("training.csv", training)
        result = self.program("load", file, "--run", self.run_path, *options)
        self.assertEqual(result.returncode, 0, result.stderr)

    def refused(self, code, message, *words):
        before = dump(self.run_path)
        self.failed(code, message, "missing", self.run_path, *words)
        self.assertEqual(dump(self.run_path), before)

    def test_refusals(self):
        self.prepare()
        self.refused(2, "--replace needs COLUMN, the column of the token", "--replace", "NA=1")
        self.refused(
            2, 'COLUMN: there is no column "x"; the labels are size, kind, wind, y', "x"
        )
        self.refused(2, "--replace: y (d3) has no gaps", "y", "--replace", "NA=1")
        self.refused(
            2,
            '--replace: wind (d2) has no token "na"; it has "NA", "?", ""',
            *("wind", "--replace", "?=1", "na=1"),
        )
        self.refused(
            2,
            "--replace: kind (d1) is categorical and has no mean; give the name of a category or "
            "a number",
            *("kind", "--replace", "?=mean"),
        )
        self.refused(
            2, '--replace: the token "?" is replaced twice', "wind", "--replace=?=1", "--replace=?=2"
        )
        nothing = "no replacement is chosen yet (--replace TOKEN=... chooses one)"
        self.refused(1, nothing, "--apply")
        self.refused(1, nothing, "size", "--apply")

    def test_a_column_without_numbers_has_no_figures(self):
        self.prepare(training="a,b\nNA,1\nNA,2\n")
        self.refused(
            1,
            "a (d0) has no number in the training set to take the figure of; give a number",
            *("a", "--replace", "NA=mean"),
        )
        self.done("missing", self.run_path, "a", "--replace", "NA=3", "--apply")
        self.assertEqual(query(self.run_path, "SELECT d0 FROM TrainingSet"), [(3,), (3,)])

    def test_an_apostrophe_in_a_token(self):
        self.prepare("--missing", "n'a", "--no-check", training="a,b\n1,1\nn'a,2\n")
        self.refused(
            1,
            'the token "n\'a" holds an apostrophe, which the component does not take in a value; '
            "nothing was changed",
            *("a", "--replace", "n'a=3"),
        )

    def test_what_the_component_does_not_apply(self):
        self.prepare("--normalize", "zscore")
        words = "the replacements of size (d0) could not be applied: {}; nothing was changed"
        replace = ("size", "--replace", "NA=3", "--apply")
        change(self.run_path, "UPDATE DataSetStatisticsForCode SET StandardDeviation = 0")
        self.refused(3, words.format(
            "the run is normalised, and the values of the column do not deviate"), *replace)
        change(self.run_path, "UPDATE RunParameters SET intvalue = 2 "
               "WHERE element = 'NormalizationType'")
        change(self.run_path, "UPDATE DataSetStatisticsForMissing SET Minimum = Maximum")
        self.refused(3, words.format(
            "the run is normalised, and the column's minimum and maximum are equal"), *replace)
        change(self.run_path, "DELETE FROM DataSetStatisticsForMissing")
        self.refused(3, words.format(
            "the run does not keep the column's figures, which its normalisation needs"), *replace)

    def test_ctrl_c_leaves_the_run_as_it_was(self):
        self.prepare("--no-stats", "--no-check",
                     training="a,b,c,d\n" + "1,2,3,4\nNA,5,6,7\n" * 100_000)
        before = dump(self.run_path)
        terminal, stderr = pty.openpty()
        process = subprocess.Popen(
            [PROGRAM, "missing", self.run_path, "a", "--replace", "NA=mean", "--apply"],
            stdout=subprocess.PIPE, stderr=stderr, env=plain_environment(),
        )
        os.close(stderr)
        shown = b""
        try:
            while piece := os.read(terminal, 4096):
                if b"Statistics [" in piece and b"Statistics [" not in shown:
                    process.send_signal(signal.SIGINT)
                shown += piece
        except OSError:
            pass  # the other end is closed
        os.close(terminal)
        output = process.stdout.read()
        process.stdout.close()
        self.assertEqual((process.wait(60), output), (130, b""))
        self.assertTrue(shown.endswith(b" cancelled\r\n"), shown[-200:])
        self.assertEqual(dump(self.run_path), before)


if __name__ == "__main__":
    unittest.main()
