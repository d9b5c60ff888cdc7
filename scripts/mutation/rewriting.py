"""Sources that hold many mutants at once, each chosen when the program runs."""

import random
from pathlib import Path
from typing import NamedTuple, Optional

from mutation.operators import Site, code, sites
from mutation.tokens import Source


class Mutant(NamedTuple):
    """One fault. `number` is from 1 and chooses it; `line` is from 1, its last line too."""

    number: int
    path: str
    line: int
    last_line: int
    operator: str
    before: str
    after: str
    site: Site

    def __str__(self) -> str:
        return f"{self.number}: {self.path}:{self.line}: {self.operator}\n    {self.before}"


def room_of(path: str) -> str:
    parts = path.split("/")
    return parts[1] if parts[0] == "src" else "host"


def choose(root: Path, paths: list[str], count: int, seed: int) -> list[Mutant]:
    """`count` mutants of the files, drawn by `seed`: every kind of fault as often as the others, as
    long as it has places left."""
    kinds: dict[str, list[tuple[str, Site]]] = {}
    sources = {path: Source((root / path).read_text(encoding="utf-8")) for path in sorted(paths)}
    for path, source in sources.items():
        for site in sites(source):
            kinds.setdefault(kind_of(site.operator), []).append((path, site))
    draw = random.Random(seed)
    for _, found in sorted(kinds.items()):
        draw.shuffle(found)
    chosen: list[tuple[str, Site]] = []
    while len(chosen) < count and any(kinds.values()):
        for _, found in sorted(kinds.items()):
            if found and len(chosen) < count:
                chosen.append(found.pop())
    chosen.sort(key=lambda one: (one[0], one[1].first, one[1].operator))
    return [describe(number, path, site, sources[path])
            for number, (path, site) in enumerate(chosen, start=1)]  # fmt: skip


def kind_of(operator: str) -> str:
    """"comparison: < -> <=" is one of the comparisons; what is removed or negated is its own kind."""
    name, _, rest = operator.partition(": ")
    return name if " -> " in rest else operator if name == "condition" else name + (
        "" if rest == "statement" else " jump"
    )


def describe(number: int, path: str, site: Site, source: Source) -> Mutant:
    first, last = source.tokens[site.first], source.tokens[site.last]
    line = source.text.count("\n", 0, first.start) + 1
    last_line = source.text.count("\n", 0, last.end) + 1
    before = code(source, site.first, site.last)
    if len(before) < 40 and line == last_line:  # a word alone says little
        before = source.text.splitlines()[line - 1].strip()
    return Mutant(number, path, line, last_line, site.operator, before, site.fault, site)


def rewrite(text: str, mutants: list[Mutant], switch: str, shown_path: str) -> str:
    """`text` with a choice at each mutant's place, every line where it was. `switch` is the header
    that declares the choice."""
    source = Source(text)
    ordered = sorted(mutants, key=lambda one: (one.site.last - one.site.first, one.number))
    edits: list[tuple[int, int, str, str]] = []  # start, end, text before it, text behind it
    for mutant in ordered:
        start, end = source.tokens[mutant.site.first].start, source.tokens[mutant.site.last].end
        if not any(crosses((start, end), edit[:2]) for edit in edits):
            edits.append((start, end, *choice(mutant)))
    insertions: dict[int, tuple[str, str]] = {}  # place -> (what ends there, what begins there)
    for start, end, opening, closing in edits:  # the inner ones first
        ends, begins = insertions.get(start, ("", ""))
        insertions[start] = (ends, opening + begins)
        ends, begins = insertions.get(end, ("", ""))
        insertions[end] = (ends + closing, begins)
    parts, done = [], 0
    for place in sorted(insertions):
        parts += [text[done:place], *insertions[place]]
        done = place
    # The 3 makes it a system header for the compiler: it warns of nothing in it.
    return f'#include "{switch}"\n# 1 "{shown_path}" 3\n' + "".join(parts) + text[done:]


def crosses(one: tuple[int, int], other: tuple[int, int]) -> bool:
    """Whether two ranges overlap and neither holds the other."""
    first, last = sorted((one, other), key=lambda place: (place[0], -place[1]))
    return last[0] < first[1] < last[1]


def choice(mutant: Mutant) -> tuple[str, str]:
    """What is written before and behind the sound text."""
    on = f"mutation::IsOn({mutant.number})"
    if mutant.site.form == "statement":
        return f"{{ if (!{on}) {{ ", " } }"
    if mutant.operator == "condition: never":
        return f"(!{on} && (", "))"
    if mutant.operator == "condition: negated":
        return f"({on} != static_cast<bool>(", "))"
    return f"({on} ? ({mutant.site.fault}) : (", "))"


def mutant_at(mutants: list[Mutant], path: str, line: int) -> Optional[Mutant]:
    """The mutant whose place holds the line; the shortest place of several."""
    holding = [one for one in mutants if one.path == path and one.line <= line <= one.last_line]
    return min(holding, key=lambda one: one.site.last - one.site.first, default=None)
