#!/usr/bin/env python3
"""Fails when an #include climbs, or SQL stands where it does not belong.

    scripts/check_floors.py [ROOT]

Reads every #include under include/, src/, host/, tests/, fuzz/, bench/ and examples/ of ROOT (by default
the project this script belongs to) and holds it to the rules of the house, which docs/architecture.md
explains; looks for statements of SQL in the texts of src/, host/ and examples/ as well. Prints one line
for each that breaks a rule; exit code 0 none, 1 some, 2 nothing read.
"""

import re
import sys
from pathlib import Path
from typing import Iterator, NamedTuple, Optional

# The rooms and their floors, from the ground up. Rooms on one floor do not know each other.
FLOORS = {
    "platform": 0,
    "contracts": 1,
    "support": 2,
    "delimited": 3,
    "engine": 4,
    "storage": 5,
    "run": 6,
    "statistics": 6,
    "datacheck": 7,
    "datasetlite": 8,
    "inmemory": 8,
    "original": 8,
    "preparation": 9,
    "component": 10,
}

# The rooms of the host, likewise. What stands in host/ itself is above them all.
HOST_FLOORS = {
    "program": 0,
    "charts": 1,
    "preparation": 1,
    "answers": 2,
    "report": 3,
    "commands": 4,
}

# What a room may not know although it lies below: (room, the other room) -> the reason.
NEVER = {
    ("engine", "contracts"): "the engine knows nothing of datasets",
    ("engine", "delimited"): "the engine knows nothing of delimited text",
    ("datacheck", "engine"): "the check does not know where the data will be kept",
    ("datacheck", "storage"): "the check does not know where the data will be kept",
}

# What loads a library and finds its registration has no standard header.
LOADING_FOLDER = "include/tslm5/component/"
LOADING_HEADERS = {"dlfcn.h", "unistd.h"}
SQLITE_HEADERS = {"sqlite3.h", "sqlite3ext.h"}
SQLITE_FOLDERS = ("src/engine/", "tests/engine/", "bench/")

# Where a text may hold SQL, among the folders whose texts are looked at.
SQL_FOLDERS = ("src/engine/", "src/storage/", "src/run/", "src/statistics/")
SQL_LOOKED_AT = ("src/", "host/", "examples/")
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
SQL = re.compile(
    r"\b(SELECT|INSERT INTO|REPLACE INTO|DELETE FROM|UPDATE \S+ SET|PRAGMA|SAVEPOINT|ATTACH|"
    r"(CREATE|DROP|ALTER) (TABLE|VIEW|INDEX|TRIGGER))\b"
)

FOLDERS = ("include", "src", "host", "tests", "fuzz", "bench", "examples")
SUFFIXES = {".h", ".hpp", ".hh", ".inc", ".ipp", ".c", ".cc", ".cpp", ".cxx"}
SEARCH_PATHS = ("include", "src", "tests", ".")

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:<([^>]+)>|"([^"]+)"|(\S+))')
# The standard library's headers, and the compiler's own for vector instructions.
STANDARD_HEADER = re.compile(r"[a-z0-9_]+|(stdint|stddef|stdbool|limits|float|[a-z]+intrin)\.h")


class Place(NamedTuple):
    """Where a file stands: `kind` is public, private, host, tests, fuzz, bench, examples or
    foreign; `room` is empty where the kind has none, or the file stands beside its rooms."""

    kind: str
    room: str = ""


class Finding(NamedTuple):
    path: str
    line_number: int
    found: str
    reason: str

    def __str__(self) -> str:
        return f"{self.path}:{self.line_number}: {self.found}: {self.reason}"


def place_of(path: str) -> Place:
    """The place of a path relative to the root, with "/" between its parts."""
    parts = path.split("/")
    if parts[:2] == ["include", "tslm5"]:
        return Place("public", parts[2])
    if parts[0] == "src":
        return Place("private", parts[1])
    if parts[0] == "tests":
        return Place("tests", parts[1] if len(parts) > 2 else "")
    if parts[0] == "host":
        return Place("host", parts[1] if len(parts) > 2 else "")
    if parts[0] in FOLDERS:
        return Place(parts[0])
    return Place("foreign")


def target_of(root: Path, path: str, name: str, quoted: bool) -> Place:
    """The place of what `path` includes by `name`; foreign when it is none of the project's files."""
    candidates = [root / folder / name for folder in SEARCH_PATHS]
    if quoted:
        candidates.insert(0, (root / path).parent / name)
    for candidate in candidates:
        if candidate.is_file():
            resolved = candidate.resolve()
            if not resolved.is_relative_to(root):
                return Place("foreign")
            return place_of(resolved.relative_to(root).as_posix())
    # A header that is made by the build, or not yet written: its name says where it belongs.
    first, _, rest = name.partition("/")
    if first == "tslm5" and "/" in rest:
        return Place("public", rest.split("/")[0])
    if rest and first in FLOORS:
        return Place("private", first)
    if rest and first in ("host", "tests", "fuzz", "bench", "examples"):
        return place_of(name)
    return Place("foreign")


def climb_between(floors: dict[str, int], room: str, other: str) -> Optional[str]:
    """Why `room` may not include a header of `other`, both of `floors`; None when it may."""
    if other == room:
        return None
    if floors[other] > floors[room]:
        return f"{other} is a floor above {room}"
    if floors[other] == floors[room]:
        return f"{other} and {room} do not know each other"
    return None


def climb(room: str, target: Place) -> Optional[str]:
    """Why a file of `room` may not include `target`, a room's header; None when it may."""
    if (room, target.room) in NEVER:
        return NEVER[room, target.room]
    if target.room == room:
        return None
    reason = climb_between(FLOORS, room, target.room)
    if reason:
        return reason
    if target == Place("private", "engine"):
        return "the engine is a library of its own: only its headers in include/tslm5/ may be seen"
    return None


def climb_in_host(room: str, target_room: str) -> Optional[str]:
    """Why a file of the host's `room` may not include one of another; None when it may."""
    for name in (room, target_room):
        if name and name not in HOST_FLOORS:
            return f"{name} is no room of the host (see HOST_FLOORS in scripts/check_floors.py)"
    if not room or room == target_room:
        return None
    if not target_room:
        return f"what stands in host/ itself is above {room}"
    return climb_between(HOST_FLOORS, room, target_room)


def reason_against(source: Place, target: Place) -> Optional[str]:
    """Why a file at `source` may not include one at `target`; None when it may."""
    for place in (source, target):
        if place.kind in ("public", "private") and place.room not in FLOORS:
            return f"{place.room} is no room of the house (see FLOORS in scripts/check_floors.py)"
    if target.kind == "foreign":
        return None
    if source.kind in ("public", "private"):
        if target.kind not in ("public", "private"):
            return f"a room may not look into {target.kind}/"
        if source.kind == "public" and target.kind == "private":
            return "a public header may include public headers alone"
        return climb(source.room, target)
    if source.kind == "host" and target.kind == "host":
        return climb_in_host(source.room, target.room)
    if source.kind in ("host", "examples"):
        if target.kind == "public" or target.kind == source.kind:
            return None
        return f"{source.kind}/ sees the public headers in include/tslm5/ alone"
    if target.kind in ("public", "private", "tests") or target.kind == source.kind:
        return None
    if target.kind == "host" and source in (Place("tests", "host"), Place("fuzz")):
        return None
    return f"{source.kind}/ may not look into {target.kind}/"


def check_include(root: Path, path: str, name: str, quoted: bool) -> Optional[str]:
    """Why the file at `path` may not include `name`; None when it may."""
    if Path(name).name in SQLITE_HEADERS:
        if path.startswith(SQLITE_FOLDERS):
            return None
        return "only src/engine/ knows SQLite"
    source = place_of(path)
    target = target_of(root, path, name, quoted)
    if path.startswith(LOADING_FOLDER) and name in LOADING_HEADERS:
        return None
    if source.kind == "public" and target.kind == "foreign" and not STANDARD_HEADER.fullmatch(name):
        return "a public header needs nothing but the standard library"
    return reason_against(source, target)


def source_files(root: Path) -> Iterator[Path]:
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in SUFFIXES and path.is_file():
                yield path


def sql_findings(path: str, lines: list[str]) -> Iterator[Finding]:
    """The statements of SQL in the texts of the file at `path`, where it may have none."""
    if not path.startswith(SQL_LOOKED_AT) or path.startswith(SQL_FOLDERS):
        return
    for line_number, line in enumerate(lines, start=1):
        for match in TEXT.finditer(re.split(r"(?<!:)//", line)[0]):
            if SQL.search(match.group(1)):
                yield Finding(path, line_number, match.group(0), "SQL belongs to src/storage/ and src/run/")


def check_file(root: Path, file: Path) -> tuple[int, list[Finding]]:
    """The number of includes in `file`, and what in it breaks a rule."""
    path = file.relative_to(root).as_posix()
    count = 0
    findings = []
    text = file.read_text(encoding="utf-8", errors="replace")
    lines = text.splitlines()
    findings.extend(sql_findings(path, lines))
    for line_number, line in enumerate(lines, start=1):
        match = INCLUDE.match(line)
        if not match:
            continue
        count += 1
        angled, quoted, other = match.groups()
        if other:
            findings.append(Finding(path, line_number, f"includes {other}", "an include names its file plainly"))
            continue
        reason = check_include(root, path, angled or quoted, bool(quoted))
        if reason:
            findings.append(Finding(path, line_number, f"includes {angled or quoted}", reason))
    return count, findings


def main(arguments: list[str]) -> int:
    root = Path(arguments[0] if arguments else Path(__file__).parent.parent).resolve()
    files = list(source_files(root))
    if not files:
        print(f"check_floors: no source file under {root}", file=sys.stderr)
        return 2
    checked = [check_file(root, file) for file in files]
    findings = [finding for _, found in checked for finding in found]
    for finding in findings:
        print(finding)
    includes = sum(count for count, _ in checked)
    print(f"{len(files)} files, {includes} includes, {len(findings)} against the floors")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
