"""What a folder holds, as far as a user can tell: the run's whole logical content, and its files."""

import hashlib
import re
import shutil
import sqlite3
from pathlib import Path

RUN = "run.db"
# Times differ from one run of a command to the next, and so does the folder of a try.
TIME = re.compile(r"\d{4}-\d\d-\d\d[T ]\d\d:\d\d(:\d\d)?( UTC|Z)?")
# What SQLite keeps beside a database while it is changed.
COMPANIONS = ("-journal", "-wal", "-shm")

NO_RUN = {"schema": [], "version": [(0,)]}


class Damaged(Exception):
    """The run is no longer a sound database."""


def contents(run, folder=None):
    """All that the run database `run` holds, table by table: schema and records, in the order of
    their keys. Opened on a copy, so that nothing that is left beside the run is touched; a journal
    that is hot is rolled back there. `folder` stands for itself in what was noted."""
    copy = run.with_name("looked-at.db")
    for companion in ("", *COMPANIONS):
        if Path(f"{run}{companion}").exists():
            shutil.copyfile(f"{run}{companion}", f"{copy}{companion}")
    connection = sqlite3.connect(copy)
    try:
        sound = connection.execute("PRAGMA integrity_check").fetchall()
        if sound != [("ok",)]:
            raise Damaged(str(sound))
        schema = connection.execute(
            "SELECT type, name, sql FROM sqlite_master ORDER BY type, name"
        ).fetchall()
        state = {"schema": schema, "version": connection.execute("PRAGMA user_version").fetchall()}
        for kind, name, _ in schema:
            if kind == "table" and not name.startswith("sqlite_"):
                records = connection.execute(f'SELECT * FROM "{name}" ORDER BY rowid').fetchall()
                state[name] = [plain_record(record, folder) for record in records]
        return state
    except sqlite3.DatabaseError as error:
        raise Damaged(str(error)) from error
    finally:
        connection.close()
        for companion in ("", *COMPANIONS):
            Path(f"{copy}{companion}").unlink(missing_ok=True)


def plain_text(text, folder):
    if folder is not None:
        text = text.replace(str(folder), "<folder>")
    return TIME.sub("<time>", text)


def plain_record(record, folder):
    return tuple(plain_text(v, folder) if isinstance(v, str) else v for v in record)


def is_companion(name):
    return any(name == RUN + companion for companion in COMPANIONS)


def state_of(folder):
    """The state of a folder: a digest of each thing in it that a user would look at, by its name."""
    state = {}
    for path in sorted(folder.rglob("*")):
        name = str(path.relative_to(folder))
        if path.is_dir() or is_companion(name):
            continue
        if name.endswith(".db"):
            content = contents(path, folder)
            # A database without tables is what opening a run that is not there leaves: no run yet.
            if content != NO_RUN:
                state[name] = digest(repr(sorted(content.items())))
        else:
            text = path.read_bytes().decode("utf-8", "replace")
            state[name] = digest(plain_text(text, folder))
    return state


def digest(text):
    return hashlib.sha256(text.encode("utf-8", "surrogateescape")).hexdigest()[:16]


def difference(one, other, folder=None):
    """Where two runs differ, table by table: for people."""
    left, right = contents(one, folder), contents(other, folder)
    return sorted(name for name in {*left, *right} if left.get(name) != right.get(name))
