"""Runs every command of the README's sessions and compares what it prints.

A line "..." in the README stands for any lines; "..." at the end of a line for the rest of it.
"""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]


def sessions():
    """The commands of the README and the output shown for each, in order."""
    commands = []
    for block in re.findall(r"```console\n(.*?)```", (TOP / "README.md").read_text(), re.S):
        for line in block.splitlines():
            if line.startswith("$ "):
                commands.append((line[2:], []))
            else:
                commands[-1][1].append(line)
    return commands


def pattern(lines):
    """The regular expression of an output as the README shows it."""
    parts = []
    for line in lines:
        if line == "...":
            parts.append(r"(?:.*\n)+")
        elif line.endswith("..."):
            parts.append(re.escape(line[:-3]) + r".*\n")
        else:
            parts.append(re.escape(line) + r"\n")
    return "".join(parts)


class Readme(unittest.TestCase):
    def test_sessions_print_what_they_show(self):
        environment = dict(os.environ, LC_ALL="C.UTF-8", NO_COLOR="1")
        host = pathlib.Path(os.environ["TSLM5_HOST"])
        environment["PATH"] = f"{host.parent}:{environment['PATH']}"
        commands = sessions()
        self.assertGreater(len(commands), 3)
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "examples").symlink_to(TOP / "examples")
            for command, shown in commands:
                with self.subTest(command):
                    done = subprocess.run(
                        command,
                        shell=True,
                        cwd=folder,
                        env=environment,
                        stdout=subprocess.PIPE,
                        stderr=subprocess.STDOUT,
                        text=True,
                        timeout=120,
                    )
                    self.assertRegex(done.stdout, r"\A" + pattern(shown) + r"\Z")

    def test_named_files_are_there(self):
        text = (TOP / "README.md").read_text()
        for name in re.findall(r"\]\(([^)#]+)\)", text):
            self.assertTrue((TOP / name).exists(), name)


if __name__ == "__main__":
    unittest.main()
