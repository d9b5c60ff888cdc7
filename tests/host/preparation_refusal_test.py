"""Files that cannot be prepared: each is named for what it is, and the run stays as it was."""

import json
import os
import pty
import signal
import subprocess
import unittest

from host_case import PROGRAM, HostCase, dump, plain_environment

TRAINING = "colour,wind,answer\nred,1,no\nblue,2,yes\n"
CONSTANT = (
    "Unable to proceed: The Response Variable is a constant in the Training data. Please make sure "
    "to include at least two different values in the dataset."
)


class PreparationRefusalTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load(TRAINING)
        self.before = dump(self.run_path)

    def with_testing(self):
        self.load("colour,wind,answer\nred,5,no\n", "--set", "testing")
        self.before = dump(self.run_path)

    def refused(self, message, content, *options, code=1, new_too=True):
        file = self.write("bad.csv", content)
        words = ("load", file, "--no-check", *options)
        self.failed(code, message, *words, "--run", self.run_path)
        self.assertEqual(dump(self.run_path), self.before)
        if not new_too:
            return
        self.failed(code, message, *words, "--run", self.folder / "new.db")
        self.assertEqual(list(self.folder.glob("new.db*")), [])

    def test_a_missing_response(self):
        for cell, shown in (("NA", "NA"), ("", ""), (".abc", ".abc"), ("none", "none")):
            with self.subTest(cell=cell):
                self.refused(
                    f'line 4, column 3 (c): the response is missing: "{shown}"; a record without it '
                    "cannot be used",
                    f"a,b,c\nx,1,2\n\nx,1,{cell}\ny,2,3\n",
                    *("--missing", "none"),
                )

    def test_a_missing_response_is_named_by_its_place_in_the_file(self):
        self.refused(
            'line 3, column 1 (a): the response is missing: "?"; a record without it cannot be used',
            "a,b\n1,x\n?,y\n",
            *("--response", "a"),
        )

    def test_a_constant_response(self):
        self.refused(CONSTANT, "a,b\nx,1\ny,1\n")
        self.refused(
            "Unable to proceed: The Response Variable has only 1 kind of class. Please make sure "
            "that your dataset has at least 2 different classes.",
            "a,b\n1,no\n2,no\n",
        )
        self.refused(
            "Unable to proceed: The Response Variable has only 1 kind of class. Please make sure "
            "that the response variable is binary.",
            "a,b\n1,no\n2,no\n",
            *("--problem", "binary"),
        )

    def test_too_many_categories(self):
        rows = "".join(f"w{i},{i}\n" for i in range(10001))
        self.refused(
            "Unable to proceed: The variable a word has more than 10000 categories. Please make "
            "sure that the variable is correct as Tessaloom only supports up 10000 categories.",
            "a word,b\n" + rows,
        )
        self.done("load", self.write("most.csv", "a,b\n" + rows[: rows.rindex("w10000")]), "--run",
                  self.folder / "most.db", "--no-stats")

    def test_commas_that_the_locale_takes_for_decimals(self):
        file = self.write("commas.csv", "a,b,c\n1,2,3\n3,4,5\n")
        message = (
            "every line holds commas, but in your locale they are decimal separators; say "
            "--separator comma, or --separator none for one column"
        )
        german = {"LC_ALL": "de_DE.UTF-8"}
        self.failed(1, message, "load", file, "--run", self.run_path, "--fixed", **german)
        self.assertEqual(dump(self.run_path), self.before)
        new = self.folder / "new.db"
        self.done("load", file, "--run", new, "--separator", "comma", "--fixed", **german)

    def test_the_fixed_rules_leave_no_choice(self):
        file = self.write("plain.csv", "a,b\n1,5\n2,6\n")
        for option in (("--labels",), ("--no-quotes",), ("--decimal", "comma"),
                       ("--skip-lines", "1"), ("--encoding", "UTF-8")):
            self.failed(
                2, "--fixed reads by the contract's rules: --labels, --no-quotes, --decimal, "
                "--skip-lines and --encoding do not go with it",
                "load", file, "--run", self.run_path, "--fixed", *option)
        self.failed(
            2, "--fixed stores the numbers of the file as they are: --response, --problem, "
            "--testing, --testing-share, --normalize, --positive-class and --missing do not go "
            "with it", "load", file, "--run", self.run_path, "--fixed", "--response", "a")
        self.failed(2, "--labels and --no-labels exclude each other", "load", file, "--run",
                    self.run_path, "--labels", "--no-labels")
        self.assertEqual(dump(self.run_path), self.before)

    def test_a_positive_class_belongs_to_classes(self):
        file = self.write("plain.csv", "a,b\n1,5\n2,6\n")
        message = "--positive-class goes with --problem classification or binary"
        for problem in ("regression", "timeseries"):
            self.failed(2, message, "load", file, "--run", self.run_path, "--positive-class", "5",
                        "--problem", problem)
        new = self.folder / "new.db"
        told = self.done("load", file, "--run", new, "--positive-class", "5")
        self.assertIn("(classification)", told)

    def test_an_unknown_positive_class(self):
        self.refused(
            '--positive-class: the response c has no class "NO"; its classes are no, yes, perhaps',
            "a,c\n1,no\n2,yes\n3,perhaps\n",
            *("--positive-class", "NO"),
        )

    def test_a_binary_problem_of_three_classes(self):
        self.refused(
            "a binary problem needs a response of two classes, but c has 3: 1, 2, 3 "
            "(--positive-class singles one out)",
            "a,c\n1,1\n2,2\n3,3\n",
            *("--problem", "binary"),
        )

    def test_an_unknown_response(self):
        self.refused(
            '--response: there is no column "d"; the labels are a, b',
            "a,b\n1,2\n3,4\n", *("--response", "d"), code=2,
        )

    def test_a_word_in_a_column_of_numbers(self):
        self.refused(
            'line 3, column 2 (wind): "strong" is a word, but the column held numbers alone in the '
            "training set",
            "colour,wind,answer\nred,5,no\nred,strong,no\n",
            *("--set", "testing"), new_too=False,
        )
        file = self.write("testing.csv", "a,b\nx,5\n")
        self.refused(
            'line 2, column 1 (a): "x" is a word, but the column held numbers alone in the training '
            "set",
            "a,b\n1,2\n3,4\n", *("--testing", file),
        )

    def test_testing_records_that_do_not_fit_a_new_training_set(self):
        self.with_testing()
        self.refused(
            'the run\'s testing record 1, column 1 (a): "red" is a word, but the column held '
            "numbers alone in the training set",
            "a,b,c\n1,2,3\n4,NA,6\n", new_too=False,
        )

    def test_words_before_there_is_a_training_set(self):
        file = self.write("words.csv", TRAINING)
        self.failed(
            1,
            'line 2, column 1 (colour): "red" is a word; a testing set with words needs the '
            "training set in the run first",
            *("load", file, "--run", self.folder / "new.db", "--set", "testing"),
        )
        self.assertEqual(list(self.folder.glob("new.db*")), [])

    def test_other_columns(self):
        file = self.write("testing.csv", "a\n5\n")
        self.refused(
            "the testing file has 1 columns, but the training file has 2; both must have the same",
            "a,b\n1,2\n3,4\n", *("--testing", file, "--separator", "auto"),
        )
        self.refused(
            "the testing set has 2 columns, but the training set of the run has 3; both must have "
            "the same",
            "a,b\nx,2\n", *("--set", "testing"), new_too=False,
        )

    def test_one_record_cannot_be_split(self):
        self.refused(
            "--testing-share: one record cannot be split into a training and a testing set",
            "a,b\n1,2\n", *("--testing-share", "0.5"),
        )

    def test_ragged_words(self):
        self.refused(
            "line 3 has 3 fields, but the first record, on line 2, has 2",
            "a,b\nx y,2\nz,4,5\n", *("--problem", "regression"),
        )

    def test_a_word_is_not_blamed_for_a_ragged_line(self):
        file = self.write("ragged.csv", "a,b\n1,2\n3,x\n4\n")
        self.failed(
            1, "line 4 has 1 field, but the first record, on line 2, has 2",
            *("load", file, "--run", self.run_path),
        )

    def test_labels_that_do_not_fit(self):
        self.refused(
            "line 1: a line stands before the table (--skip-lines 1 passes over it, --skip-lines 0 "
            "takes it for records)",
            "a,b\nx y,2,1,5\nz,4,2,6\n", *("--separator", "comma"),
        )

    def test_wrong_usage(self):
        for options, message in [
            (("--testing-share", "1"),
             '--testing-share: invalid share "1"; expected a number between 0 and 1'),
            (("--testing-share", "x"),
             '--testing-share: invalid share "x"; expected a number between 0 and 1'),
            (("--testing-share", "0.5", "--seed", "-1"),
             '--seed: invalid seed "-1"; expected a whole number from 0 to 2147483647'),
            (("--testing-share", "0.5", "--seed", "2147483648"),
             '--seed: invalid seed "2147483648"; expected a whole number from 0 to 2147483647'),
            (("--seed", "1"), "--seed goes with --testing-share"),
            (("--testing-share", "0.5", "--testing", "f"),
             "--testing and --testing-share exclude each other"),
            (("--set", "testing", "--testing", "f"),
             "--testing and --testing-share go with a training set, not with --set testing"),
            (("--set", "testing", "--normalize", "none"),
             "a testing set is prepared by what the run holds: --problem, --normalize and "
             "--positive-class go with the training set"),
        ]:
            with self.subTest(options=options):
                self.refused(message, TRAINING, *options, code=2)

    def test_a_missing_testing_file(self):
        self.refused(
            f"{self.folder}/absent.csv: no such file", TRAINING,
            *("--testing", self.folder / "absent.csv"), code=3,
        )

    def interrupted(self, at):
        """Presses Ctrl-C when the terminal shows `at`."""
        rows = "".join(f"w{i % 7},{i},{i % 2}\n" for i in range(200_000))
        file = self.write("big.csv", "a,b,c\n" + rows)
        terminal, stderr = pty.openpty()
        process = subprocess.Popen(
            [PROGRAM, "load", str(file), "--run", str(self.run_path), "--testing-share", "0.4"],
            stdout=subprocess.PIPE, stderr=stderr, env=plain_environment(),
        )
        os.close(stderr)
        shown = b""
        while True:
            try:
                piece = os.read(terminal, 4096)
            except OSError:
                break
            if not piece:
                break
            shown += piece
            if at is not None and at in shown:
                process.send_signal(signal.SIGINT)
                at = None
        os.close(terminal)
        output = process.stdout.read()
        process.stdout.close()
        self.assertEqual((process.wait(60), output), (130, b""), shown[-200:])
        self.assertTrue(shown.endswith(b" cancelled\r\n"), shown[-200:])
        self.assertEqual(dump(self.run_path), self.before)

    def test_an_interruption_while_the_records_are_stored(self):
        self.with_testing()
        self.interrupted(b"Loading [")

    def test_an_interruption_while_the_originals_are_kept(self):
        self.interrupted(b"Keeping the originals [")

    def test_the_run_can_be_used_afterwards(self):
        self.refused(CONSTANT, "a,b\nx,1\ny,1\n")
        file = self.write("next.csv", TRAINING)
        result = self.program("load", file, "--run", self.run_path, "--json")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(json.loads(result.stdout)["rows"], 2)


if __name__ == "__main__":
    unittest.main()
