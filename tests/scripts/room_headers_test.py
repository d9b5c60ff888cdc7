"""The include folders of each room lead to the rooms below it and no others.

scripts/check_floors.py reads the includes that are written; this holds the compiler to the same
floors, so that one that climbs does not compile. TSLM5_BUILD names the build folder.
"""

import json
import os
import shlex
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
import check_floors  # noqa: E402


def headers():
    """One header of each room and kind: its place and the name that an include gives it."""
    for room in check_floors.FLOORS:
        for kind, folder, prefix in (
            ("public", ROOT / "include/tslm5" / room, f"tslm5/{room}/"),
            ("private", ROOT / "src" / room, f"{room}/"),
        ):
            found = sorted(folder.glob("*.h"))
            if found:
                yield check_floors.Place(kind, room), prefix + found[0].name


def commands():
    """The compile command of one source of each room."""
    table = json.loads(Path(os.environ["TSLM5_BUILD"], "compile_commands.json").read_text())
    for room in check_floors.FLOORS:
        folder = str(ROOT / "src" / room) + "/"
        entry = next((entry for entry in table if entry["file"].startswith(folder)
                      and f"tslm5_{room}.dir" in entry["command"]), None)
        if entry:
            yield room, entry


def visible(entry):
    """The headers that the file of `entry` could include."""
    probe = "".join(
        f'#if __has_include("{name}")\nVISIBLE {place.kind} {place.room}\n#endif\n'
        for place, name in headers())
    words = shlex.split(entry["command"])
    compiler = next(word for word in words if Path(word).name.startswith(("c++", "g++", "clang++")))
    folders = [word for word in words if word.startswith("-I")]
    output = subprocess.run(
        [compiler, "-E", "-P", "-x", "c++", *folders, "-"], input=probe, text=True,
        capture_output=True, cwd=entry["directory"], check=True).stdout
    lines = [line.split() for line in output.splitlines() if line.startswith("VISIBLE")]
    return [check_floors.Place(kind, room) for _, kind, room in lines]


class RoomHeaders(unittest.TestCase):
    def test_every_room_is_looked_at(self):
        self.assertEqual([room for room, _ in commands()], list(check_floors.FLOORS))

    def test_a_room_sees_its_own_headers(self):
        for room, entry in commands():
            self.assertIn(check_floors.Place("private", room), visible(entry), room)

    def test_a_room_sees_nothing_above_it(self):
        for room, entry in commands():
            for place in visible(entry):
                with self.subTest(room=room, sees=place):
                    self.assertIsNone(check_floors.climb(room, place))


if __name__ == "__main__":
    unittest.main()
