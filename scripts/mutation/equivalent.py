"""The faults that are known not to matter."""

from pathlib import Path

LIST = Path(__file__).resolve().with_name("equivalent.txt")


def read_reasons(path: Path = LIST) -> dict[tuple[str, str, str], str]:
    """The reason for each, by source path, operator and the text at its place. In the file they are
    four lines each, with an empty line between; lines that begin with "# " are remarks."""
    lines = [line for line in path.read_text(encoding="utf-8").splitlines() if not line.startswith("# ")]
    entries = [entry.split("\n") for entry in "\n".join(lines).strip().split("\n\n")]
    reasons = {}
    for entry in entries:
        if entry == [""]:
            continue
        if len(entry) != 4:
            raise ValueError(f"{path.name}: four lines an entry: {entry}")
        reasons[entry[0], entry[1], entry[2]] = entry[3]
    return reasons
