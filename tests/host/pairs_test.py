"""Two changing commands on one run at the same time: the run ends as after one order of the two or
the other, or as after one of them while the other was refused in words.

    pairs_test.py                  some pairs of each kind of run
    pairs_test.py --count 20       every pair, so many times
"""

import itertools
import random
import shutil
import sqlite3
import subprocess
import sys
import time
import unittest

from host_case import PROGRAM, HostCase, contents, plain_environment

PICKED = 10  # pairs of each kind of run
PATIENCE = 120  # seconds
LOCKED = "tslm5: the run is locked by another program; try again when it is done: "


class PairsTest(HostCase):
    rounds = 0  # of every pair; 0: a pick, once

    def start(self, words, run):
        return subprocess.Popen(
            [PROGRAM, *[str(run) if word == "RUN" else str(word) for word in words]],
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
            env=plain_environment(),
        )

    @staticmethod
    def finish(process):
        _, error = process.communicate(timeout=PATIENCE)
        return process.returncode, error

    def in_order(self, before, *commands):
        """What a run is after the commands, one after the other, and how they ended."""
        run = self.folder / "order.db"
        shutil.copyfile(before, run)
        codes = [self.finish(self.start(words, run))[0] for words in commands]
        return codes, contents(run)

    def allowed(self, before, pair):
        """The ends that two commands at the same time may have: exit codes, and the run."""
        first, second = pair
        codes, run = self.in_order(before, first, second)
        ends = [(tuple(codes), run)]
        codes, run = self.in_order(before, second, first)
        ends.append(((codes[1], codes[0]), run))
        return ends

    def alone(self, before, pair, place):
        """The end of one command of two when the other was refused."""
        codes, run = self.in_order(before, pair[place])
        return codes[0], run

    def race(self, before, pair, ends):
        run = self.folder / "race.db"
        shutil.copyfile(before, run)
        processes = [self.start(words, run) for words in pair]
        results = [self.finish(process) for process in processes]
        codes = tuple(code for code, _ in results)
        state = contents(run)
        self.assertFalse((self.folder / "race.db-journal").exists())
        if (codes, state) in ends:
            return "an order"
        for place in (0, 1):
            code, error = results[1 - place]
            if code == 3 and error.startswith(LOCKED):
                self.assertEqual((codes[place], state), self.alone(before, pair, place), pair)
                return "one refused"
        self.fail(f"{pair}: {results}: the run is as after neither order")

    def try_pairs(self, before, commands):
        pairs = list(itertools.combinations_with_replacement(commands, 2))
        if not self.rounds:
            pairs = random.Random(17).sample(pairs, min(PICKED, len(pairs)))
        counts = {"an order": 0, "one refused": 0}
        for pair in pairs:
            ends = self.allowed(before, pair)
            for _ in range(max(1, self.rounds)):
                counts[self.race(before, pair, ends)] += 1
        print(f"{len(pairs)} pairs: {counts}", file=sys.stderr)

    def test_a_run_of_words_and_gaps(self):
        text = "colour,size,answer\n" + "red,1,1\nblue,NA,2\ngreen,3,2\nred,5,3\nblue,2,4\n" * 6
        later = "colour,size,answer\nred,7,1\nblack,NA,2\n"
        numbers = "colour,size,answer\n" + "1,2,3\n4,5,6\n7,8,10\n" * 5
        self.load(text, "--testing-share", 0.3, "--no-stats")
        file = self.folder / "data.csv"
        other = self.write("later.csv", later)
        plain = self.write("numbers.csv", numbers)
        commands = [
            ("load", file, "--run", "RUN", "--normalize", "zscore"),
            ("load", other, "--run", "RUN", "--set", "testing"),
            ("load", plain, "--run", "RUN"),
            ("load", plain, "--run", "RUN", "--set", "testing"),
            ("categories", "RUN", "colour", "--assign", "red=9"),
            ("categories", "RUN", "colour", "--merge", "red,blue=5"),
            ("missing", "RUN", "size", "--replace", "NA=mean", "--apply"),
            ("missing", "RUN", "size", "--replace", "NA=7"),
            ("stats", "RUN"),
            ("reset", "RUN"),
            ("undo", "RUN"),
            ("keep", "RUN"),
        ]
        self.try_pairs(self.run_path, commands)

    def test_a_run_of_a_series(self):
        series = "value\n" + "".join(f"{(t * 7) % 11}.5\n" for t in range(60))
        later = "value\n" + "".join(f"{(t * 5) % 7}.5\n" for t in range(40))
        self.load(series, "--problem", "timeseries", "--no-stats")
        file = self.folder / "data.csv"
        other = self.write("later.csv", later)
        self.load(later, "--set", "testing", "--no-stats", name="later.csv")
        commands = [
            ("load", file, "--run", "RUN", "--problem", "timeseries"),
            ("load", other, "--run", "RUN", "--set", "testing"),
            ("embed", "RUN", "--dimension", 3, "--delay", 2),
            ("embed", "RUN", "--dimension", 2, "--delay", 1, "--testing-samples", 3),
            ("reset", "RUN"),
            ("undo", "RUN"),
            ("keep", "RUN"),
            ("stats", "RUN"),
        ]
        self.try_pairs(self.run_path, commands)

    def test_a_testing_set_that_is_loaded_while_the_training_set_is_normalised(self):
        """The load has read what the run holds, and waits for the lock; then the run changes."""
        train = self.write("train.csv", "a,b\n" + "1,2\n2,4\n6,7\n" * 3)
        test = self.write("test.csv", "a,b\n3,5\n")
        self.done("load", train, "--run", self.run_path)
        normalised = self.folder / "normalised.db"
        self.done("load", train, "--run", normalised, "--normalize", "minmax")
        expected = self.folder / "expected.db"
        shutil.copyfile(normalised, expected)
        words = ("load", test, "--run", "RUN", "--set", "testing")
        self.assertEqual(self.finish(self.start(words, expected)), (0, ""))

        other = sqlite3.connect(self.run_path, isolation_level=None)
        self.addCleanup(other.close)
        other.execute("ATTACH ? AS changed", (str(normalised),))
        other.execute("BEGIN IMMEDIATE")
        process = self.start(words, self.run_path)
        time.sleep(1)  # whether or not that is long enough, the end must be the same
        tables = other.execute("SELECT name FROM sqlite_master WHERE type = 'table'").fetchall()
        for (name,) in tables:
            other.execute(f"DELETE FROM main.{name}")
            other.execute(f"INSERT INTO main.{name} SELECT * FROM changed.{name}")
        other.execute("COMMIT")
        self.assertEqual(self.finish(process), (0, ""))
        self.assertEqual(contents(self.run_path)[1], contents(expected)[1])


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--count":
        PairsTest.rounds = int(sys.argv[2])
        del sys.argv[1:]
    unittest.main()
