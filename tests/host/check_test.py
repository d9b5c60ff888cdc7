"""The command check, and the check that comes before a load."""

import json
import os
import pty
import signal
import subprocess
import time
import unittest

from host_case import PROGRAM, HostCase, dump, plain_environment

VALID = "a,b\n1,2\n3,4\n"
NOTE = (
    "note       words and missing values do not keep tslm5 load from a file: it codes the words and "
    "keeps a missing input as missing\n"
)
AUTO = "separator  comma: it gives 2 fields in each of the {} lines looked at\n"


class FixedCheckTest(HostCase):
    """By the contract's rules, to the letter."""

    def check(self, content, *options, code=0, name="data.csv", **changes):
        """Checks a text; what is printed. Nothing is complained of, whatever the answer."""
        self.write(name, content)
        result = self.program("check", name, "--fixed", *options, **changes)
        self.assertEqual((result.returncode, result.stderr), (code, ""), result.stdout)
        return result.stdout

    def json(self, content, *options, code=0, **changes):
        return json.loads(self.check(content, "--json", *options, code=code, **changes))

    def test_a_valid_file(self):
        self.assertEqual(
            self.check(VALID), "data.csv is valid: 2 records of 2 columns\n" + AUTO.format(3)
        )
        self.assertEqual(
            self.json(VALID),
            {
                "file": "data.csv",
                "separator": "comma",
                "valid": True,
                "message": "",
                "row": None,
                "column": None,
                "rows": 2,
                "changedCells": 0,
            },
        )

    def test_a_nul_byte(self):
        told = (
            "line 1 holds a NUL byte: this is no text, or UTF-16 without the mark at its beginning "
            "that says so"
        )
        for content in (b"a\0,b\n1,2\n3,4\n", b"\0" * 100):
            for options in ((), ("--all",)):
                printed = self.check(content, *options, code=1)
                self.assertTrue(printed.endswith(f"\n{told}\n"), printed)
                answer = self.json(content, *options, code=1)
                self.assertEqual((answer["message"], answer["row"]), (told, None))

    def test_lines_that_end_with_a_carriage_return(self):
        file = self.write("data.csv", "a,b\r1,2\r3,x\r")
        result = self.program("check", file, "--fixed")
        told = "the lines end with a carriage return alone, which is taken as a line end"
        self.assertEqual(result.stderr, f"tslm5: warning: {file}: {told}\n")
        self.assertIn("\nline 3, record 2, column 2 (b): ", result.stdout)
    def test_the_first_problem_and_its_place(self):
        self.assertEqual(
            self.check("a,b\n1,2\n3,x\ny,4\n", code=1),
            "data.csv is not valid\n"
            + AUTO.format(4)
            + 'line 3, record 2, column 2 (b): "x": Invalid Training. Value in row 2, column 2. is '
            "invalid: x\n" + NOTE,
        )
        answer = self.json("a,b\n1,2\n3,x\ny,4\n", code=1)
        self.assertEqual((answer["valid"], answer["row"], answer["column"]), (False, 2, 2))
        self.assertEqual(answer["rows"], 1)
        self.assertEqual(
            answer["message"], "Invalid Training. Value in row 2, column 2. is invalid: x"
        )

    def test_every_problem(self):
        content = "a,b\n1,2\n\n3,x\n4\ny,z\n"
        answer = self.json(content, "--all", code=1)
        self.assertEqual(answer["message"], "Invalid Training. The data contains empty rows.")
        self.assertEqual(answer["problemCount"], 5)
        self.assertEqual(
            [
                (p["line"], p["record"], p["column"], p["label"], p["value"])
                for p in answer["problems"]
            ],
            [
                (3, None, None, None, ""),
                (4, 2, 2, "b", "x"),
                (5, 3, None, None, "4"),
                (6, 4, 1, "a", "y"),
                (6, 4, 2, "b", "z"),
            ],
        )
        self.assertEqual(
            answer["problems"][2]["message"],
            "Unable to proceed: Row number 3 has an invalid number of columns.\r\n\r\nPlease make "
            "sure this is a valid record or remove it from the dataset.",
        )

    def test_the_shape_of_a_file_is_refused_without_the_note(self):
        printed = self.check("a,b\n1,2\n3\n", code=1)
        self.assertIn("Row number 2 has an invalid number of columns", printed)
        self.assertNotIn("note", printed)

    def test_shows_so_many_and_counts_all(self):
        content = "a,b\n1,2\n" + "x,y\n" * 30
        printed = self.check(content, "--all", code=1)
        self.assertIn("data.csv is not valid: 60 problems\n", printed)
        self.assertEqual(printed.count("is invalid: "), 20)
        self.assertTrue(printed.endswith("and 40 more problems; --max 60 shows them all\n" + NOTE))
        answer = self.json(content, "--all", "--max", "3", code=1)
        self.assertEqual((answer["problemCount"], len(answer["problems"])), (60, 3))
        answer = self.json(content, "--all", "--max", "0", code=1)
        self.assertEqual((answer["problemCount"], answer["problems"]), (60, []))

    def test_the_first_problem_of_all_is_the_answer(self):
        for content in ["a,b\n1,2\n3,x\n", "a,b\n1,2\n3\n", "a,b\n1,2\n3,\n", "a,b\n1,2\n,3\n4,5\n"]:
            with self.subTest(content):
                answer = self.json(content, "--all", code=1)
                self.assertEqual(answer["problems"][0]["message"], answer["message"])
                self.assertEqual(answer["problems"][0]["record"], answer["row"])

    def test_a_missing_response(self):
        content = "a,b\n1,2\n3,NA\n"
        message = (
            "Unable to proceed: Invalid input in row 2, column 2.\r\n\r\nThe response variable has "
            "missing values, which is not supported.\r\nPlease make sure you remove all missing "
            "values from the response."
        )
        answer = self.json(content, "--problem", "classification", "--all", code=1)
        self.assertEqual(answer["message"], message)
        self.assertEqual([p["message"] for p in answer["problems"]], [message])
        for problem in ("regression", "timeseries", "binary"):
            answer = self.json(content, "--problem", problem, code=1)
            self.assertEqual(
                answer["message"], "Invalid Training. Value in row 2, column 2. is invalid: NA"
            )

    def test_refusals_of_labels_and_separator(self):
        answer = self.json("a,b,c\n1,2\nx,4\n", "--separator", "comma", "--all", code=1)
        self.assertEqual(
            answer["message"], "The number of labels is different from the number of data columns."
        )
        self.assertEqual([p["line"] for p in answer["problems"]], [1, 3])
        answer = self.json("a b\n1 2\n", "--separator", "bar", code=1)
        self.assertEqual(answer["message"], "Invalid separator in the labels row.")
        answer = self.json("a,b\nx,2\n", code=1)
        self.assertEqual(
            answer["message"],
            "Either the separator is invalid or there are non-numeric values in the first data "
            "row.",
        )

    def test_what_the_clean_up_takes_out(self):
        printed = self.check("a,b\n1,2\n1;5,4\t\n")
        self.assertIn(
            "changed    2 cells lose a tab or a semicolon when they are loaded, the first on line "
            '3, column 1: "1;5"\n',
            printed,
        )
        self.assertEqual(self.json("a,b\n1,2\n1;5,4\t\n")["changedCells"], 2)

    def test_separator_and_labels_as_asked_for(self):
        self.assertIn("separator  bar: as asked for\n", self.check("1|2\n", "--separator", "bar",
                                                                 "--no-labels"))
        self.assertEqual(self.json("1;2\n3;4\n", "--no-labels")["separator"], "semicolon")

    def test_line_ends_make_no_difference(self):
        content = "a,b\n1,2\n3,x\n4\n"
        self.assertEqual(
            self.json(content, "--all", code=1),
            self.json(content.replace("\n", "\r\n"), "--all", code=1),
        )

    def test_a_decimal_comma(self):
        self.assertTrue(self.json("a;b\n1,5;2\n", LC_ALL="de_DE.UTF-8")["valid"])
        self.assertFalse(self.json("a;b\n1,5;2\n", code=1)["valid"])

    def test_foreign_values_are_cut_and_escaped(self):
        value = "\x1b[31m" + "x" * 100
        printed = self.check(f"a,b\n1,2\n3,{value}\n", "--all", code=1)
        self.assertNotIn("\x1b", printed)
        self.assertIn('"\\u{001B}[31m' + "x" * 48, printed)

    def test_file_trouble(self):
        self.failed(3, "none.csv: no such file", "check", "none.csv")
        self.failed(3, ".: this is a directory; a file was expected", "check", ".")
        self.assertEqual(self.json("", code=1)["message"], "Invalid file.")

    def test_wrong_usage(self):
        for words in (["check"], ["check", "f", "--max", "3"], ["check", "f", "--problem", "x"],
                      ["check", "f", "--all", "--max", "-1"]):
            self.assertEqual(self.program(*words).returncode, 2, words)

    def test_ctrl_c_cancels_whatever_the_check_would_say(self):
        self.cancels("--fixed")

    def cancels(self, *options):
        self.write("big.csv", "a,b\n" + "1,2\n" * 2_000_000)
        primary, secondary = pty.openpty()
        process = subprocess.Popen(
            [PROGRAM, "check", "big.csv", "--json", *options],
            cwd=self.folder,
            env=plain_environment(),
            stdout=subprocess.PIPE,
            stderr=secondary,
        )
        os.close(secondary)
        shown = b""
        while b"Checking" not in shown:
            shown += os.read(primary, 1000)
        process.send_signal(signal.SIGINT)
        printed, _ = process.communicate(timeout=60)
        time.sleep(0.01)
        try:
            while more := os.read(primary, 1000):
                shown += more
        except OSError:
            pass  # the other end is closed
        os.close(primary)
        self.assertEqual((process.returncode, printed), (130, b""))
        self.assertIn(b"cancelled", shown)


class CheckTest(HostCase):
    """What `load` would make of a file."""

    def json(self, content, *options, code=0):
        file = self.write("data.csv", content)
        result = self.program("check", file, "--json", *options)
        self.assertEqual(result.returncode, code, result.stderr)
        return json.loads(result.stdout)

    def test_a_file_that_can_be_loaded(self):
        self.write("data.csv", "a,b\n1,x\nNA,y\n")
        self.assertEqual(
            self.done("check", "data.csv"),
            "data.csv is valid: 2 records of 2 columns\n"
            "separator  comma: it gives 2 fields in each record\n"
            "missing    1 cell without a value, kept as missing; the first: line 3, column 1 (a): "
            '"NA"\n'
            "words      2 cells with a word, coded; the first: line 2, column 2 (b): \"x\"\n",
        )
        self.assertEqual(
            {key: value for key, value in self.json("a;b\n1,5;2\n3;4\n").items() if key != "file"},
            {"valid": True, "message": "", "separator": "semicolon", "decimal": "comma",
             "encoding": "UTF-8", "skippedLines": 0, "labels": ["a", "b"], "rows": 2, "columns": 2,
             "missingCells": 0, "textCells": 0, "warnings": []},
        )

    def test_every_uneven_record(self):
        content = "a,b\n1,2\n3\n4,5\n6,7,8\n"
        answer = self.json(content, "--all", code=1)
        self.assertEqual(answer["problemCount"], 2)
        self.assertEqual([(p["line"], p["message"]) for p in answer["problems"]], [
            (3, "line 3 has 1 field, but the first record, on line 2, has 2"),
            (5, "line 5 has 3 fields, but the first record, on line 2, has 2"),
        ])
        file = self.write("data.csv", content)
        self.failed(
            1, "line 3 has 1 field, but the first record, on line 2, has 2; 1 more (tslm5 check "
            "--all tells them)", "load", file, "--run", self.run_path)
        answer = self.json(content, "--all", "--max", "1", code=1)
        self.assertEqual((answer["problemCount"], len(answer["problems"])), (2, 1))

    def test_refuses_what_load_refuses_in_its_words(self):
        for content, options in [
            ("a,b\n1,2\n3,NA\n", ()), ("a,b\n1,x\n2,x\n", ()), (b"\0" * 100, ()), ("", ()),
            ("a,b\n", ()), ("1;2\n3;;4\n", ("--separator", "semicolon")),
            ("a,b\n1,no\n2,yes\n3,no\n", ("--problem", "binary")),
        ]:
            with self.subTest(content):
                answer = self.json(content, *options, code=0 if "--problem" in options else 1)
                file = self.write("data.csv", content)
                result = self.program("load", file, "--run", self.run_path, *options)
                self.assertEqual(result.returncode, 0 if answer["valid"] else 1)
                if not answer["valid"]:
                    self.assertIn(answer["message"], result.stderr)

    def test_ctrl_c(self):
        FixedCheckTest.cancels(self)


class CheckedLoadTest(HostCase):
    def test_a_valid_file_is_loaded(self):
        file = self.write("data.csv", VALID)
        self.assertEqual(json.loads(self.done("load", file, "--run", self.run_path, "--json"))["rows"], 2)

    def test_a_refused_file_leaves_the_run_as_it_was(self):
        self.load(VALID)
        before = dump(self.run_path)
        file = self.write("bad.csv", "a,b\n1,2\n\n3,4\n")
        words = (
            "line 3: Invalid Training. The data contains empty rows. (tslm5 check --fixed --all "
            "tells every problem; --no-check loads without the check)"
        )
        self.failed(1, words, "load", file, "--run", self.run_path, "--fixed")
        self.assertEqual(dump(self.run_path), before)
        self.failed(1, words, "load", file, "--run", self.folder / "new.db", "--fixed")
        self.assertFalse((self.folder / "new.db").exists())

    def test_words_and_missing_cells_do_not_refuse_a_load(self):
        file = self.write("words.csv", "a,b\nNA,2\nred,3\nNew York,4\n")
        printed = self.done("load", file, "--run", self.run_path, "--json")
        self.assertEqual(json.loads(printed)["textCells"], 2)

    def test_without_the_check(self):
        file = self.write("bad.csv", "a,b\n1,2\n\n3,4\n")
        printed = self.done("load", file, "--run", self.run_path, "--no-check", "--fixed",
                            "--json")
        self.assertEqual(json.loads(printed)["rows"], 2)


if __name__ == "__main__":
    unittest.main()
