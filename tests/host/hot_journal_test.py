"""A run whose last change was cut off in its commit: whatever command comes next works, says what
was undone, and finds the run as it was before that change."""

import os
import re
import shutil
import sqlite3
import subprocess
import unittest

from host_case import PROGRAM, HostCase, contents, plain_environment

ROWS = 20_000
NOBODY = "65534"


class HotJournalTest(HostCase):
    def setUp(self):
        super().setUp()
        words = "".join(f"{'xy'[t % 2]},{t}.5,{'NA' if t % 9 == 0 else t}\n" for t in range(ROWS))
        self.load("kind,size,answer\n" + words, "--response", "size")
        self.kept = self.folder / "kept.db"
        shutil.copyfile(self.run_path, self.kept)
        self.cut = self.folder / "cut.db"
        connection = sqlite3.connect(self.run_path, isolation_level=None)
        self.addCleanup(connection.close)
        connection.execute("PRAGMA cache_size = 1")  # so that the file is written before the commit
        connection.execute("BEGIN IMMEDIATE")
        connection.execute("UPDATE TrainingSet SET d1 = d1 + 1000")
        shutil.copyfile(self.run_path, self.cut)
        shutil.copyfile(f"{self.run_path}-journal", f"{self.cut}-journal")
        connection.execute("ROLLBACK")
        connection.close()
        self.assertNotEqual(self.cut.read_bytes(), self.kept.read_bytes())

    def interrupt(self):
        """Makes the run one that a crash has cut off in the middle of a commit."""
        shutil.copyfile(self.cut, self.run_path)
        shutil.copyfile(f"{self.cut}-journal", f"{self.run_path}-journal")

    def undone(self):
        return (
            rf"^tslm5: warning: {re.escape(str(self.run_path))} held a change that was interrupted "
            r"at \d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ; it is undone, and the run is as it was before "
            r"that change\n$"
        )

    def test_every_reading_command(self):
        run = self.run_path
        commands = [
            ("info", run),
            ("show", run, "--rows", "1:3"),
            ("show", run, "--original", "--json", "--rows", "1:2"),
            ("original", run, "--rows", "1:3"),
            ("stats", run),
            ("plot", run, "answer"),
            ("categories", run),
            ("missing", run),
            ("history", run),
            ("report", run, "-o", self.folder / "page.html"),
        ]
        for words in commands:
            shutil.copyfile(self.kept, run)
            expected = self.done(*words)
            self.interrupt()
            result = self.program(*words)
            self.assertEqual((result.returncode, result.stdout), (0, expected), words)
            self.assertRegex(result.stderr, self.undone())
            self.assertFalse((self.folder / "run.db-journal").exists(), words)
            self.assertEqual(self.done(*words), expected)

    def test_every_changing_command(self):
        run = self.run_path
        more = self.write("more.csv", "kind,answer,size\nx,2,1\ny,4,3\n")
        commands = [
            ("load", more, "--run", run, "--set", "testing"),
            ("load", self.write("new.csv", "a,b\n1,2\n"), "--run", run),
            ("categories", run, "kind", "--assign", "x=7"),
            ("missing", run, "answer", "--replace", "NA=1", "--apply"),
        ]
        for words in commands:
            shutil.copyfile(self.kept, run)
            self.done(*words)
            expected = contents(run)
            self.interrupt()
            result = self.program(*words)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertRegex(result.stderr, self.undone())
            self.assertEqual(contents(run), expected, words)

    def test_a_place_that_cannot_be_written(self):
        if os.geteuid() != 0 or shutil.which("setpriv") is None:
            self.skipTest("needs root and setpriv, to run as another user")
        prefix = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        if subprocess.run([*prefix, "test", "-x", PROGRAM], check=False).returncode != 0:
            self.skipTest("another user may not run the program where it was built")
        self.interrupt()
        self.folder.chmod(0o755)
        result = subprocess.run(
            [*prefix, PROGRAM, "show", str(self.run_path)],
            capture_output=True,
            text=True,
            env=plain_environment(),
            check=False,
        )
        self.assertEqual((result.returncode, result.stdout), (3, ""))
        run = re.escape(str(self.run_path))
        self.assertRegex(
            result.stderr,
            rf"^tslm5: The run {run} holds a change that was interrupted, which must be undone "
            rf"before the run can be read, but [^\n]*: Permission denied\. Open it once where it "
            rf"can be written, or copy {run} and {run}-journal together to a folder that can be "
            r"written and open the copy\.\n$",
        )
        self.assertTrue((self.folder / "run.db-journal").exists())


if __name__ == "__main__":
    unittest.main()
