"""Opens a run by its path in a program that does not link the storage engine.

The program is named in TSLM5_OPEN_BY_PATH.
"""

import os
import shutil
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(os.environ["TSLM5_OPEN_BY_PATH"])
LIBRARIES = PROGRAM.parent.parent / "lib"


class OpenByPath(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.run_file = self.folder / "run.db"
        connection = sqlite3.connect(self.run_file)
        connection.executescript(
            """
            CREATE TABLE OriginalData (d0 TEXT, row INTEGER PRIMARY KEY);
            CREATE TABLE TrainingSet (d0 FLOAT, row INTEGER PRIMARY KEY);
            CREATE TABLE OriginalDataLabels (Label TEXT, ColumnIndex INTEGER, SetId INTEGER);
            CREATE TABLE DataSetColumn (Id INTEGER PRIMARY KEY, ColumnIndex INTEGER, Name TEXT,
              OriginalLabel TEXT, IsNominal INTEGER, MissingCount INTEGER, Reserved INTEGER,
              IsResponse INTEGER);
            INSERT INTO OriginalData VALUES ('red', 4), ('blue', 7);
            INSERT INTO TrainingSet VALUES (2, 7);
            """
        )
        connection.close()

    def printed(self, libraries=""):
        """What the program prints when it looks for libraries in that folder first."""
        environment = {**os.environ, "LD_LIBRARY_PATH": str(libraries)}
        done = subprocess.run(
            [PROGRAM, self.run_file], env=environment, capture_output=True, text=True, check=True
        )
        return done.stdout

    def test_the_engine_is_found_beside_the_data_manager(self):
        self.assertEqual(self.printed(), "7,blue\n")

    def test_the_program_does_not_link_the_engine(self):
        needed = subprocess.run(
            ["readelf", "-d", PROGRAM, LIBRARIES / "libTSLM5DataManager.so"],
            capture_output=True,
            text=True,
            check=True,
        ).stdout
        self.assertIn("libTSLM5DataManager.so", needed)
        self.assertNotIn("libTSLMRep5", needed)
        self.assertNotIn("sqlite", needed)

    def test_without_an_engine_the_view_is_empty(self):
        (self.folder / "libTSLMRep5.so.0").write_text("this is no library")
        self.assertEqual(self.printed(self.folder), "")


if __name__ == "__main__":
    unittest.main()
