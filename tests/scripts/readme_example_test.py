"""Runs the C++ example of README.md, and looks at its run with the program: the labels are there."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
LABELS = "sepal_length, sepal_width, petal_length, petal_width, species"


class ReadmeExample(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        shutil.copy(TOP / "examples/data/measurements.csv", self.folder)

    def run_program(self, program, *words):
        return subprocess.run(
            [os.environ[program], *words],
            cwd=self.folder,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            timeout=120,
            check=False,
        ).stdout

    def info(self):
        return self.run_program("TSLM5_HOST", "info", "flowers.db")

    def test_its_run_keeps_the_labels(self):
        self.assertEqual(self.run_program("TSLM5_README_EXAMPLE"), "petal_length 1.4\n")
        self.assertIn(f"\n  rows     150\n  columns  5\n  labels   {LABELS}\n", self.info())
        shown = self.run_program("TSLM5_HOST", "show", "flowers.db", "--rows", "1", "--columns", "species")
        self.assertEqual(shown, "row  species\n  1        1\n")

    def test_the_run_of_the_whole_program_keeps_them_too(self):
        self.run_program("TSLM5_READ_A_SET", "measurements.csv", "flowers.db")
        self.assertIn(f"\n  labels   {LABELS}\n", self.info())


if __name__ == "__main__":
    unittest.main()
