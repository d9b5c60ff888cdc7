#!/usr/bin/python3
"""Loads data files that people have published, and compares every cell with pandas.

    compare_real_files.py PROGRAM FOLDER [FILE...]

PROGRAM is tslm5. The files come from Debian's packages of statsmodels, scikit-learn and matplotlib and
from the npm package vega-datasets; they are fetched into FOLDER, which keeps them for the next time.
With FILEs, those are loaded instead. Needs Debian's python3-pandas and, to fetch, apt-get and npm.

A file is right when `tslm5 load FILE --run new.db`, without an option, takes it and the run holds the
labels, and the original text of every cell, that pandas reads as text. One whose last column has gaps
is loaded with the first column that has none as the response, because a gap there is refused. Prints a
line for each file that is not right, and the counts.
"""

import gzip
import json
import sqlite3
import subprocess
import sys
import tempfile
from pathlib import Path

import pandas

PACKAGES = ["python3-statsmodels", "python3-sklearn", "python-matplotlib-data"]
ENDINGS = (".csv", ".tsv", ".csv.gz")


def fetch(folder):
    folder.mkdir(parents=True, exist_ok=True)
    here = {"cwd": folder, "check": True, "stdout": subprocess.DEVNULL}
    if not list(folder.glob("*.deb")):
        subprocess.run(["apt-get", "download", *PACKAGES], **here)
        for package in folder.glob("*.deb"):
            subprocess.run(["dpkg", "-x", package.name, "debian"], **here)
    if not list(folder.glob("*.tgz")):
        subprocess.run(["npm", "pack", "vega-datasets"], **here)
        archive = next(folder.glob("*.tgz"))
        subprocess.run(["tar", "-xzf", archive.name], **here)
    return sorted(
        path for path in folder.rglob("*")
        if path.name.endswith(ENDINGS) and "tests" not in path.relative_to(folder).parts
    )


def by_pandas(path, header):
    """Labels and rows as pandas reads them, every cell a text."""
    with (gzip.open if path.name.endswith(".gz") else open)(path, "rb") as file:
        first = file.readline().decode("latin-1")
    separator = max(",;\t|", key=first.count) if any(c in first for c in ",;\t|") else r"\s+"
    frame = pandas.read_csv(path, sep=separator, engine="python", dtype=str, keep_default_na=False,
                            skipinitialspace=True, encoding_errors="replace",
                            header="infer" if header else None)
    if not isinstance(frame.index, pandas.RangeIndex):  # row names without a label
        frame = frame.reset_index()
    rows = [tuple(str(cell).strip() for cell in row) for row in frame.itertuples(index=False)]
    return list(frame.columns), rows


def gaps(rows, column):
    return any(row[column] in ("", "NA", "?", "NULL", "null", ".") for row in rows)


def outcome(program, path, run):
    """How the load of a file went, in a word and in words."""
    labels, rows = by_pandas(path, True)
    words = [program, "load", path, "--run", run, "--json"]
    full = [column for column in range(len(labels)) if not gaps(rows, column)]
    order = list(range(len(labels)))
    if full and full[-1] != order[-1]:
        words += ["--response", labels[full[-1]]]
        order.append(order.pop(full[-1]))
    result = subprocess.run(words, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        return "refused", result.stderr.strip()
    told = json.loads(result.stdout)
    if not told["hasLabels"]:  # pandas takes the first line for labels whatever it is
        labels, rows = by_pandas(path, False)
        told["labels"] = labels
    wanted = [labels[column] for column in order]
    if told["labels"] != wanted and any(label not in ("", "Unnamed: 0") and label != got
                                        for label, got in zip(wanted, told["labels"])):
        return "labels", f"{told['labels'][:6]}, but pandas has {wanted[:6]}"
    if told["rows"] != len(rows):
        return "records", f"{told['rows']}, but pandas has {len(rows)}"
    connection = sqlite3.connect(run)
    names = ", ".join(f"d{i}" for i in range(len(labels)))
    stored = connection.execute(f"SELECT {names} FROM OriginalData ORDER BY row").fetchall()
    connection.close()
    for record, (held, row) in enumerate(zip(stored, rows)):
        for column, place in enumerate(order):
            if held[column] != row[place]:
                return "cells", (f"record {record + 1}, column {place + 1}: {held[column]!r}, but "
                                 f"pandas has {row[place]!r}")
    return "right", ""


def main(program, folder, files):
    counts = {}
    for path in [Path(file) for file in files] or fetch(Path(folder)):
        with tempfile.TemporaryDirectory() as place:
            word, words = outcome(program, path, Path(place) / "run.db")
        counts[word] = counts.get(word, 0) + 1
        if word != "right":
            print(f"{path.name}: {word}: {words[:300]}")
    print(", ".join(f"{count} {word}" for word, count in sorted(counts.items())))
    return 0 if set(counts) == {"right"} else 1


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3:]))
