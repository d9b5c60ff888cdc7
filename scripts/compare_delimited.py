#!/usr/bin/env python3
"""Compares the reader of delimited text with Python's csv module, and with pandas where it is there.

    scripts/compare_delimited.py DUMP-RECORDS [COUNT] [SEED]

DUMP-RECORDS is the program of that name of a build (bin/dump_records). COUNT random files (10,000
when it is not given) are written to a folder of their own: half of them wild, with quotes anywhere,
blanks, empty lines, every line end and records of other widths, read with the separator set; half of
them tables as people have them, of which the reader finds separator, decimal sign and header itself.
Every cell must be the same text. Prints what differs and the counts; exit code 0 none, 1 some.
"""

import csv
import io
import json
import random
import subprocess
import sys
import tempfile
from pathlib import Path

try:
    import pandas
except ImportError:
    pandas = None

BLANKS = " \t"
MOST_SHOWN = 10


def wild_text(rng, separator):
    """A text of pieces in any order; lines end as they come."""
    pieces = ["a", "1.5", "-2", "é", "x y", separator, separator, separator, '"', '""', " ",
              f'"q{separator}r"', '"s\nt"', '"u""v"', '""', f'{separator}"w"{separator}', "'"]
    ends = rng.choice([["\n"], ["\r\n"], ["\r"], ["\n", "\r\n", "\r", "\n\n"]])
    columns = rng.randint(1, 6)
    lines = []
    for _ in range(rng.randint(1, 60)):
        if rng.random() < 0.6:
            fields = []
            for _ in range(columns):
                field = "".join(rng.choice(["a", "7", "é", " ", "", "b c"]) for _ in range(3))
                kind = rng.random()
                if kind < 0.2:
                    field = '"' + field + rng.choice(["", '""', separator, "\n", "\r\n"]) + '"'
                elif kind < 0.3:
                    field += '"'
                elif kind < 0.35:
                    field = ' "' + field + '" '
                fields.append(field)
            lines.append(separator.join(fields))
        else:
            lines.append("".join(rng.choice(pieces) for _ in range(rng.randint(0, 9))))
        lines.append(rng.choice(ends))
    if rng.random() < 0.3:
        lines.pop()
    return "".join(lines)


def table_text(rng):
    """A table as a program writes it: its text, its separator, its labels and its rows."""
    decimal_comma = rng.random() < 0.3
    separator = rng.choice(";\t|" if decimal_comma else ",;\t|")
    columns = rng.randint(2, 8)
    kinds = ["number"] + [rng.choice(["number", "whole", "text", "gaps"]) for _ in range(columns - 1)]
    rng.shuffle(kinds)
    rows = []
    for _ in range(rng.randint(5, 60)):
        row = []
        for kind in kinds:
            if kind == "text":
                row.append(rng.choice(["red", "New York", 'say "hi"', f"a{separator}b", "two\nlines", "ü"]))
            elif kind == "gaps" and rng.random() < 0.3:
                row.append(rng.choice(["", "NA", "?"]))
            elif kind == "whole":
                row.append(str(rng.randint(-500, 500)))
            else:
                number = repr(round(rng.uniform(-1e4, 1e4), rng.randint(1, 6)))
                row.append(number.replace(".", ",") if decimal_comma else number)
        rows.append(row)
    labels = [f"col{i}" if rng.random() < 0.8 else f"label {i}" for i in range(columns)]
    has_header = rng.random() < 0.7
    out = io.StringIO(newline="")
    writer = csv.writer(out, delimiter=separator, lineterminator=rng.choice(["\n", "\r\n"]),
                        quoting=rng.choice([csv.QUOTE_MINIMAL, csv.QUOTE_ALL]))
    writer.writerows(([labels] if has_header else []) + rows)
    return out.getvalue(), separator, labels if has_header else [], rows


def csv_rows(text, separator):
    """The rows of Python's reader without the blanks around cells, and how many of them may be blank
    lines or lone pairs of quotes, of which it makes the same; those are left out."""
    reader = csv.reader(io.StringIO(text, newline=""), delimiter=separator, skipinitialspace=True)
    rows = [[cell.strip(BLANKS) for cell in row] for row in reader]
    return [row for row in rows if row not in ([], [""])], rows.count([""])


def stripped(records):
    return [[cell.strip(BLANKS) for cell in record] for record in records]


class Comparison:
    def __init__(self):
        self.differences = 0
        self.unclosed = 0
        self.cells = 0

    def expect(self, path, what, found, expected):
        if found == expected:
            return
        self.differences += 1
        if self.differences <= MOST_SHOWN:
            print(f"{path}: {what}: {found!r}, expected was {expected!r}")

    def compare_wild(self, path, text, separator, answer):
        if any(finding["code"] == "unclosed quote" for finding in answer["findings"]):
            self.unclosed += 1  # Python takes all the rest of the file for the field
            return
        rows, doubtful = csv_rows(text, separator)
        columns = answer["dialect"]["columns"]
        even = [row for row in rows if len(row) == columns]
        self.cells += sum(map(len, even))
        records = [row for row in stripped(answer["records"]) if row != [""]]
        self.expect(path, "records", records, even)
        uneven = sum(finding["code"] == "uneven record" for finding in answer["findings"])
        expected = len(rows) - len(even)
        self.expect(path, "uneven records", expected <= uneven <= expected + doubtful, True)

    def compare_table(self, path, separator, labels, rows, answer):
        names = {",": "comma", ";": "semicolon", "\t": "tab", "|": "bar"}
        self.cells += sum(map(len, rows))
        self.expect(path, "separator", answer["dialect"]["separator"], names[separator])
        self.expect(path, "labels", answer["labels"], labels)
        self.expect(path, "records", answer["records"], rows)
        if pandas is not None:
            frame = pandas.read_csv(path, sep=separator, header=0 if labels else None, dtype=str,
                                    keep_default_na=False)
            self.expect(path, "pandas", answer["records"], frame.values.tolist())


def main(arguments):
    if not arguments:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    count = int(arguments[1]) if len(arguments) > 1 else 10_000
    rng = random.Random(int(arguments[2]) if len(arguments) > 2 else 1)
    comparison = Comparison()
    with tempfile.TemporaryDirectory() as folder:

        def read(paths, options):
            answers = subprocess.run([arguments[0], json.dumps(options)], text=True, check=True,
                                     input="".join(f"{path}\n" for path in paths), capture_output=True)
            return [json.loads(line) for line in answers.stdout.split("\n") if line]

        def write(name, text):
            path = Path(folder) / name
            path.write_bytes(text.encode("utf-8"))
            return path

        for separator in ",;\t|":
            texts = [wild_text(rng, separator) for _ in range(count // 8)]
            paths = [write(f"wild-{ord(separator)}-{i}", text) for i, text in enumerate(texts)]
            answers = read(paths, {"separator": separator, "has_header": False, "preamble_lines": 0})
            for path, text, answer in zip(paths, texts, answers, strict=True):
                comparison.compare_wild(path, text, separator, answer)
        tables = [table_text(rng) for _ in range(count - 4 * (count // 8))]
        paths = [write(f"table-{i}", table[0]) for i, table in enumerate(tables)]
        for path, table, answer in zip(paths, tables, read(paths, {}), strict=True):
            comparison.compare_table(path, *table[1:], answer)
    print(f"{count} files, {comparison.cells} cells, {comparison.differences} differences, "
          f"{comparison.unclosed} files with an unclosed quote; "
          f"compared with csv{' and pandas ' + pandas.__version__ if pandas else ''}")
    return 1 if comparison.differences else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
