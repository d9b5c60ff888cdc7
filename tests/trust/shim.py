"""Runs the program, or one operation of the interface, with or without the shim before it."""

import os
import subprocess
from pathlib import Path
from typing import NamedTuple

PROGRAM = os.environ["TSLM5_HOST"]
API = os.environ["TSLM5_TRUST_API"]
SHIM = os.environ["TSLM5_TRUST_SHIM"]
PATIENCE = 120  # seconds
FOREIGN = ("NO_COLOR", "LANG", "LANGUAGE", "TERM", "LD_PRELOAD", "XDG_DATA_HOME", "MALLOC_PERTURB_")


class Outcome(NamedTuple):
    code: int  # negative: the signal that ended it; None: it did not end
    output: str
    error: str
    was_hit: bool = False  # whether the planned fault struck


def environment(folder, **changes):
    own = {
        key: value
        for key, value in os.environ.items()
        if key not in FOREIGN and not key.startswith(("LC_", "TRUST_"))
    }
    own.update(LC_ALL="C", TERM="xterm", HOME=str(folder), TSLM5_COMPONENTS=f"{folder}/components")
    own.update(changes)
    return own


def arguments(driver, folder, *more):
    """The command line of a driver whose folder is `folder`."""
    if not driver.is_operation:
        return [PROGRAM, *driver.words]
    name, file = driver.words
    run = "" if name.startswith(("memory-", "nominal-")) else f"{folder}/run.db"
    return [API, name, run, f"{folder}/{file}" if file else "", *more]


def words_before(words, folder):
    """The command line of what comes before a driver: a command, or "API" and an operation."""
    if words[0] == "API":
        return [API, words[1], f"{folder}/run.db", ""]
    return [PROGRAM, *words]


def run(command, folder, output=subprocess.PIPE, **changes):
    """Runs a command to its end."""
    try:
        result = subprocess.run(
            command,
            cwd=folder,
            env=environment(folder, **changes),
            stdin=subprocess.DEVNULL,
            stdout=output,
            stderr=subprocess.PIPE,
            timeout=PATIENCE,
            check=False,
        )
    except subprocess.TimeoutExpired:
        return Outcome(None, "", "it did not end")
    return Outcome(
        result.returncode,
        (result.stdout or b"").decode("utf-8", "replace"),
        result.stderr.decode("utf-8", "replace"),
    )


def run_shimmed(command, folder, notes, is_operation=False, **changes):
    """Runs a command with the shim before it; `notes` is a folder for what the shim writes."""
    hit = Path(notes) / "hit"
    hit.unlink(missing_ok=True)
    changes.update(LD_PRELOAD=SHIM, TRUST_HIT=str(hit))
    if is_operation:
        changes["TRUST_START"] = "call"
    return run(command, folder, **changes)._replace(was_hit=hit.exists())


def count(command, folder, notes, is_operation=False):
    """How often a command calls what can fail, by kind, and how it ends without a fault."""
    counts = Path(notes) / "counts"
    counts.unlink(missing_ok=True)
    outcome = run_shimmed(command, folder, notes, is_operation, TRUST_COUNTS=str(counts))
    pairs = (line.split() for line in counts.read_text().splitlines())
    return {kind: int(number) for kind, number in pairs}, outcome
