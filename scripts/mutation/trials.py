"""The tests that can tell a mutant from the sound program, and what they say."""

import json
import os
import resource
import shutil
import signal
import subprocess
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from pathlib import Path

CAPACITY = 1 << 16  # of switch.h
MEMORY_BYTES = 8 << 30
FILE_BYTES = 8 << 30
SECONDS_MORE = 10.0
TIMES_LONGER = 8.0
EXCLUDED = ("Frame.", "Package.", "Trust.", "Fuzz.", "Examples.", "Host.documents")


@dataclass
class Unit:
    """What is run in one piece: a suite of a test program, or a script with its tests."""

    name: str
    room: str
    command: list[str]
    folder: str
    environment: dict[str, str]
    seconds: float = 0.0
    reached: frozenset[int] = field(default_factory=frozenset)


def find_units(build_folder: Path) -> list[Unit]:
    """The tests that CTest knows, those of one suite of one program as one unit."""
    listed = subprocess.run(
        ["ctest", "--test-dir", str(build_folder), "--show-only=json-v1"],
        check=True, capture_output=True, text=True)  # fmt: skip
    units: dict[str, Unit] = {}
    for test in json.loads(listed.stdout)["tests"]:
        if test["name"].startswith(EXCLUDED) or "command" not in test:
            continue
        command = test["command"]
        properties = {one["name"]: one["value"] for one in test.get("properties", [])}
        folder = properties.get("WORKING_DIRECTORY", str(build_folder))
        environment = dict(one.split("=", 1) for one in properties.get("ENVIRONMENT", []))
        chosen = next((one for one in command if one.startswith("--gtest_filter=")), None)
        if chosen is None:
            room, name = "host", test["name"]
            command = [*command, "-f"] if command[-1].endswith(".py") else command
        else:
            suite = chosen.removeprefix("--gtest_filter=").rsplit(".", 1)[0]
            program = Path(command[0]).name
            room, name = program.removesuffix("_tests"), f"{program}: {suite}"
            command = [command[0], f"--gtest_filter={suite}.*", "--gtest_fail_fast"]
        units.setdefault(name, Unit(name, room, command, folder, environment))
    return list(units.values())


def execute(unit: Unit, seconds: float, **environment: str) -> str:
    """Runs a unit in a folder for temporary files of its own: "passed", "failed", "hung"."""
    folder = tempfile.mkdtemp(prefix="mutant-")
    os.chmod(folder, 0o755)  # some tests look at a file as another user
    variables = {**os.environ, **unit.environment, **environment, "TMPDIR": folder, "LC_ALL": "C.UTF-8"}
    process = subprocess.Popen(
        unit.command, cwd=unit.folder, env=variables, stdin=subprocess.DEVNULL, preexec_fn=limit,
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)  # fmt: skip
    try:
        return "passed" if process.wait(timeout=seconds) == 0 else "failed"
    except subprocess.TimeoutExpired:
        return "hung"
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)  # also what a test has left running
        except ProcessLookupError:
            pass
        process.wait()
        shutil.rmtree(folder, ignore_errors=True)


def limit() -> None:
    """A mutant that never ends shall not take the machine with it."""
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_BYTES, MEMORY_BYTES))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_BYTES, FILE_BYTES))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def measure(unit: Unit) -> bool:
    """Runs a unit without a mutant; notes how long it takes and what it reaches. False when it
    fails as it is."""
    with tempfile.NamedTemporaryFile(prefix="reached-") as reached:
        reached.truncate(CAPACITY)
        begun = time.monotonic()
        outcome = execute(unit, 600.0, TSLM5_REACHED=reached.name)
        unit.seconds = time.monotonic() - begun
        unit.reached = frozenset(n for n, byte in enumerate(Path(reached.name).read_bytes()) if byte)
    return outcome == "passed"


def measure_all(units: list[Unit], jobs: int) -> tuple[list[Unit], list[Unit]]:
    """The units that pass as they are, and those that do not."""
    with ThreadPoolExecutor(jobs) as pool:
        passed = list(pool.map(measure, units))
    return ([one for one, good in zip(units, passed) if good],
            [one for one, good in zip(units, passed) if not good])  # fmt: skip


def try_mutant(number: int, room: str, units: list[Unit]) -> tuple[str, str, int]:
    """What caught the mutant: the outcome, the unit's name, and how many units were run. The tests of
    its own room come first, the quick ones before the slow ones."""
    able = sorted((one for one in units if number in one.reached),
                  key=lambda one: (one.room != room, one.seconds))  # fmt: skip
    for count, unit in enumerate(able, start=1):
        seconds = SECONDS_MORE + TIMES_LONGER * unit.seconds
        outcome = execute(unit, seconds, TSLM5_MUTANT=str(number))
        if outcome != "passed":
            return outcome, unit.name, count
    return "survived", "", len(able)
