"""Kills the program in the middle of `embed` and `reset`: the run is the old or the new one.

    crash_test.py                  the test
    crash_test.py --count 2000     a longer campaign, so many kills of each command
"""

import random
import shutil
import signal
import subprocess
import sys
import time
import unittest

from host_case import PROGRAM, HostCase, contents, plain_environment

KILLS = 50  # of each command
MOST_ROUNDS = 8  # so many times KILLS, when too few land in the middle
ROWS = 14_000
PATIENCE = 60  # seconds
READERS = [("info",), ("show",), ("history",), ("original",)]
UNDONE = r"^tslm5: warning: \S+ held a change that was interrupted at \S+; it is undone, [^\n]+\n$"


class CrashTest(HostCase):
    kills = KILLS

    def setUp(self):
        super().setUp()
        self.random = random.Random(20)
        series = "value\n" + "".join(f"{t}.25\n" for t in range(ROWS))
        self.load(series, "--problem", "timeseries")

    def start(self, *words):
        environment = plain_environment()
        return subprocess.Popen(
            [PROGRAM, *map(str, words)],
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            env=environment,
        )

    def finish(self, process, run):
        """Lets the command end: how long it took, and how long of that the file was written."""
        start = time.monotonic()
        self.wait_for_writing(process, run)
        writing = time.monotonic()
        self.assertEqual(process.wait(PATIENCE), 0)
        return time.monotonic() - start, time.monotonic() - writing

    @staticmethod
    def wait_for_writing(process, run):
        """Until the run's own file, not its journal alone, is written."""
        untouched = run.stat().st_mtime_ns
        while run.stat().st_mtime_ns == untouched and process.poll() is None:
            time.sleep(0.0005)

    def kill(self, process, run, place, whole, writing):
        """Kills the command: every other time at any moment, else while it writes the file."""
        if place % 2 == 0:
            moment = 1.2 * whole * (place % self.kills + self.random.random()) / self.kills
        else:
            self.wait_for_writing(process, run)
            moment = 1.2 * writing * self.random.random()
        try:
            process.wait(moment)
        except subprocess.TimeoutExpired:
            process.send_signal(signal.SIGKILL)
            process.wait(PATIENCE)
        self.assertIn(process.returncode, (0, -signal.SIGKILL))

    def look(self, run, is_half):
        """The program itself opens the run first: it must read it, and say what it has undone."""
        result = self.program(*self.random.choice(READERS), run)
        self.assertEqual(result.returncode, 0, result.stderr)
        if is_half or result.stderr:
            self.assertRegex(result.stderr, UNDONE)

    def kill_often(self, command, *options, least_half_written=0):
        """Kills the command again and again; every time the run must be the old or the new one.
        Goes on until enough kills have landed in the middle, of which `least_half_written` left the
        file written in part: when they land depends on the machine."""
        before = self.run_path
        run = self.folder / "killed.db"
        journal = self.folder / "killed.db-journal"
        old = contents(before)
        shutil.copyfile(before, run)
        whole, writing = self.finish(self.start(command, run, *options), run)
        new = contents(run)
        self.assertNotEqual(old, new)

        found = {"old": 0, "new": 0}
        in_the_middle = half_written = 0
        untouched = before.read_bytes()
        for place in range(MOST_ROUNDS * self.kills):
            has_enough = (
                in_the_middle >= self.kills // 5
                and found["old"] >= self.kills // 10
                and half_written >= least_half_written
            )
            if place >= self.kills and has_enough:
                break
            shutil.copyfile(before, run)
            process = self.start(command, run, *options)
            self.kill(process, run, place, whole, writing)
            is_half = journal.exists() and run.read_bytes() != untouched
            in_the_middle += journal.exists() and journal.stat().st_size > 0
            half_written += is_half
            self.look(run, is_half)
            state = contents(run)
            journal.unlink(missing_ok=True)
            self.assertTrue(state in (old, new), f"{command}, kill {place}: a mixture")
            found["old" if state == old else "new"] += 1
            if process.returncode == 0:
                self.assertTrue(state == new, "the command had said that it was done")
        told = f"{command}: {found}, {in_the_middle} in the middle, {half_written} half written"
        print(f"{told}; {whole:.2f} s, {writing:.2f} s of them writing", file=sys.stderr)
        self.assertGreaterEqual(in_the_middle, self.kills // 5, told)
        self.assertGreaterEqual(found["old"], self.kills // 10, told)
        self.assertGreaterEqual(half_written, least_half_written, told)

    def test_embed(self):
        words = ("--dimension", 12, "--delay", 3, "--testing-samples", 5)
        self.kill_often("embed", *words, least_half_written=1)

    def test_reset(self):
        later = "value\n" + "".join(f"{t}.75\n" for t in range(2 * ROWS))
        self.load(later, "--set", "testing", name="later.csv")
        self.kill_often("reset")


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--count":
        CrashTest.kills = int(sys.argv[2])
        del sys.argv[1:]
    unittest.main()
