"""Files that cannot be loaded: each is named for what it is, and the run stays as it was."""

import unittest

from host_case import HostCase, dump


class RefusalTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load("a,b\n1,2\n3,4\n")
        self.load("a,b\n5,6\n", "--set", "testing")
        self.before = dump(self.run_path)

    def refused(self, message, content, *options, code=1):
        """Loads a text that is refused: into the run, which stays, and into a new one."""
        file = self.write("bad.csv", content)
        for run in (self.run_path, self.folder / "new.db"):
            self.failed(code, message, "load", file, "--run", run, "--no-check", *options)
        self.assertEqual(dump(self.run_path), self.before)
        self.assertEqual(self.leftovers(), [])

    def leftovers(self):
        return sorted(
            path.name
            for path in self.folder.iterdir()
            if path.name.startswith("new.db") or path.name.endswith("-journal")
        )

    def test_missing_file_and_directory(self):
        for name, words in [
            ("none.csv", "no such file"),
            (".", "this is a directory; a file was expected"),
        ]:
            path = self.folder / name if name != "." else self.folder
            self.failed(3, f"{path}: {words}", "load", path, "--run", self.folder / "new.db")
        self.assertEqual(self.leftovers(), [])

    def test_empty_file(self):
        self.refused(f"{self.folder}/bad.csv: the file is empty", "")

    def test_labels_only(self):
        self.refused(
            "there are no records: 1 lines, 1 of them the label line and 0 empty (--no-labels "
            "takes the first line for a record)",
            "a,b\n",
        )

    def test_empty_lines_only(self):
        self.refused(
            "there are no records: 3 lines, 0 of them the label line and 3 empty",
            "\n \n\n",
            "--no-labels",
        )

    def test_ragged_rows(self):
        self.refused(
            "line 3 has 3 fields, but the first record, on line 2, has 2", "a,b\n1,2\n3,4,5\n"
        )
        self.refused(
            "line 3 has 1 field, but the first record, on line 2, has 2", "a,b\n1,2\n3\n6,7\n"
        )

    def test_ragged_columns(self):
        self.refused(
            "line 1 has 2 fields, but the first record, on line 2, has 3",
            "1,2\n3,4,5\n",
            *("--layout", "columns", "--separator", "comma", "--no-labels"),
        )

    def test_too_many_columns(self):
        line = ",".join(["1"] * 2500)
        self.refused(
            "line 1 has 2500 columns; a run holds 1999 at most", f"{line}\n{line}\n", "--no-labels"
        )

    def test_nul_bytes(self):
        self.refused(
            "line 2 holds a NUL byte: this is no text, or UTF-16 without the mark at its beginning "
            "that says so",
            b"a,b\n1,\x002\n",
        )

    def test_a_line_without_an_end(self):
        file = self.folder / "long.csv"
        with open(file, "wb") as sparse:
            sparse.truncate(3 << 30)
        for words in (("load", file, "--run", self.folder / "new.db"), ("check", file)):
            result = self.program(*words)
            told = result.stdout + result.stderr
            self.assertEqual(result.returncode, 1, told)
            self.assertIn("line 1 holds a NUL byte: this is no text", told)

    def test_labels_that_do_not_fit(self):
        self.refused(
            "line 1: a line stands before the table (--skip-lines 1 passes over it, --skip-lines 0 "
            "takes it for records)",
            "a,b\n1,2,3,4\n4,5,6,7\n",
        )

    def test_control_characters_are_not_shown_as_such(self):
        name = "bad\x1b[31m.csv"
        self.write(name, "a,b\n")
        result = self.program("load", name, "--run", self.run_path, "--response", "\x1b[31m")
        self.assertNotIn("\x1b", result.stderr + result.stdout)
        self.assertEqual(result.returncode, 1)

    def test_a_line_of_many_megabytes(self):
        line = "1," * 10_000_000 + "1"
        self.refused(
            f"{self.folder / 'bad.csv'}: line 1 does not end within 4 MiB: this is no delimited "
            "text",
            line, "--no-labels",
        )
        self.refused(
            "line 1 has 10000001 columns; a run holds 1999 at most", line, "--no-labels", "--fixed"
        )

    def test_a_run_that_is_none(self):
        file = self.write("good.csv", "a,b\n1,2\n")
        text = self.write("text.db", "this is no database, but a text that is long enough\n" * 9)
        result = self.program("load", file, "--run", text)
        self.assertEqual(result.returncode, 3)
        self.assertRegex(result.stderr, "^tslm5: the file is not a run database: ")
        folder = self.folder / "folder.db"
        folder.mkdir()
        self.assertEqual(self.program("load", file, "--run", folder).returncode, 3)
        absent = self.folder / "absent" / "run.db"
        self.assertEqual(self.program("load", file, "--run", absent).returncode, 3)
        for command in ("info", "show"):
            self.assertEqual(self.program(command, self.folder / "new.db").returncode, 3)
        self.assertEqual(self.leftovers(), [])


if __name__ == "__main__":
    unittest.main()
