"""Runs every command of the sessions that the documents show, and compares what it prints.

    sessions_test.py                    the test
    sessions_test.py --write DOCUMENT   puts what the commands print into the document

A line "..." in a document stands for any lines; "..." at the end of a line for the rest of it. Each
document's commands run in order in a folder of their own, with the examples in it.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = ["README.md", "docs/host.md"]
BLOCK = re.compile(r"(```console\n)(.*?)(```)", re.S)


def commands_in(block):
    """The commands of a block and the output shown for each, in order."""
    commands = []
    for line in block.splitlines():
        if line.startswith("$ "):
            commands.append((line[2:], []))
        else:
            commands[-1][1].append(line)
    return commands


def pattern(lines):
    """The regular expression of an output as a document shows it."""
    parts = []
    for line in lines:
        if line == "...":
            parts.append(r"(?:.*\n)+")
        elif line.endswith("..."):
            parts.append(re.escape(line[:-3]) + r".*\n")
        else:
            parts.append(re.escape(line) + r"\n")
    return r"\A" + "".join(parts) + r"\Z"


class Session:
    """A folder of its own in which commands run one after the other."""

    def __init__(self, folder):
        self.folder = folder
        (pathlib.Path(folder) / "examples").symlink_to(TOP / "examples")
        host = pathlib.Path(os.environ["TSLM5_HOST"])
        self.environment = dict(
            os.environ,
            LC_ALL="C.UTF-8",
            NO_COLOR="1",
            TSLM5_COMPONENTS=f"{folder}/registered",
            PATH=f"{host.parent}:{os.environ['PATH']}",
        )

    def run(self, command):
        done = subprocess.run(
            command,
            shell=True,
            cwd=self.folder,
            env=self.environment,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            timeout=120,
            check=False,
        )
        return done.stdout


class Sessions(unittest.TestCase):
    def test_commands_print_what_is_shown(self):
        for document in DOCUMENTS:
            blocks = BLOCK.findall((TOP / document).read_text())
            commands = [pair for block in blocks for pair in commands_in(block[1])]
            self.assertGreater(len(commands), 3, document)
            with tempfile.TemporaryDirectory() as folder:
                session = Session(folder)
                for command, shown in commands:
                    with self.subTest(f"{document}: {command}"):
                        self.assertRegex(session.run(command), pattern(shown))

    def test_named_files_are_there(self):
        for document in [TOP / "README.md", *TOP.glob("docs/*.md")]:
            for name in re.findall(r"\]\(([^)#:]+)\)", document.read_text()):
                self.assertTrue((document.parent / name).exists(), f"{document}: {name}")


def write(document):
    """Runs the document's commands and replaces what is shown for them where it differs."""
    path = TOP / document
    with tempfile.TemporaryDirectory() as folder:
        session = Session(folder)

        def fresh(match):
            lines = []
            for command, shown in commands_in(match[2]):
                printed = session.run(command)
                is_right = shown and re.search(pattern(shown), printed)
                lines += [f"$ {command}", *(shown if is_right else printed.splitlines())]
            return match[1] + "\n".join(lines) + "\n" + match[3]

        path.write_text(BLOCK.sub(fresh, path.read_text()))


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--write":
        write(sys.argv[2])
    else:
        unittest.main()
