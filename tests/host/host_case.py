"""What the tests of the program share: a folder of their own, and ways to run it."""

import json
import os
import re
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ["TSLM5_HOST"]
TIME = re.compile(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ")


def plain_environment(**changes):
    """The environment with a locale of its own and nothing that colours or dims the output."""
    environment = {
        key: value
        for key, value in os.environ.items()
        if key not in ("NO_COLOR", "LC_ALL", "LC_NUMERIC", "LANG", "TERM")
    }
    environment.update({"LC_ALL": "C", "TERM": "xterm", **changes})
    return environment


def dump(run):
    """Everything a run holds, as SQL."""
    connection = sqlite3.connect(run)
    try:
        return list(connection.iterdump())
    finally:
        connection.close()


def contents(run):
    """All that a run holds but times: the schema, and the records of every table."""
    connection = sqlite3.connect(run)
    try:
        assert connection.execute("PRAGMA integrity_check").fetchall() == [("ok",)]
        schema = connection.execute("SELECT name, sql FROM sqlite_master ORDER BY name").fetchall()
        tables = {
            name: connection.execute(f"SELECT * FROM {name} ORDER BY rowid").fetchall()
            for name, sql in schema
            if sql.startswith("CREATE TABLE")
        }
        tables["RunHistory"] = [
            tuple(TIME.sub("", str(value)) for value in record)
            for record in tables.get("RunHistory", [])
        ]
        return schema, tables
    finally:
        connection.close()


def query(run, sql):
    connection = sqlite3.connect(run)
    try:
        return connection.execute(sql).fetchall()
    finally:
        connection.close()


def change(run, statement):
    connection = sqlite3.connect(run)
    try:
        with connection:
            connection.execute(statement)
    finally:
        connection.close()


class HostCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.run_path = self.folder / "run.db"

    def write(self, name, content):
        """Writes text (its line ends as given) or bytes to a file and returns its path."""
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def program(self, *words, **changes):
        """Runs the program to its end; the outputs are text."""
        return subprocess.run(
            [PROGRAM, *map(str, words)],
            capture_output=True,
            text=True,
            cwd=self.folder,
            env=plain_environment(**changes),
            timeout=120,
            check=False,
        )

    def done(self, *words, **changes):
        """Runs the program, which must be done and have nothing to complain; its output."""
        result = self.program(*words, **changes)
        self.assertEqual((result.returncode, result.stderr), (0, ""), result.stdout)
        return result.stdout

    def failed(self, code, message, *words, **changes):
        """Runs the program, which must end with `code`, print nothing and complain of `message`."""
        result = self.program(*words, **changes)
        self.assertEqual(result.stderr, f"tslm5: {message}\n")
        self.assertEqual((result.returncode, result.stdout), (code, ""))

    def load(self, content, *options, name="data.csv", **changes):
        """Loads a text into the run; the JSON object of the load.

        The load alone: the data check and the statistics have tests of their own.
        """
        file = self.write(name, content)
        words = ("load", file, "--run", self.run_path, "--json", "--no-check", "--no-stats")
        return json.loads(self.done(*words, *options, **changes))

    def show(self, *options):
        """The JSON object of a show."""
        return json.loads(self.done("show", self.run_path, "--json", *options))
