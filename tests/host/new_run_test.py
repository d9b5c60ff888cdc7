"""A run that a load makes: two loads at once, one that is killed, a run that goes meanwhile.

    new_run_test.py                the test
    new_run_test.py --count 500    a longer campaign, so many races
"""

import os
import signal
import subprocess
import sys
import time
import unittest

from host_case import PROGRAM, HostCase, plain_environment, query

RACES = 12
PATIENCE = 60  # seconds
ROWS = 3_000


class NewRunTest(HostCase):
    races = RACES

    def start(self, file, run, *options):
        return subprocess.Popen(
            [PROGRAM, "load", str(file), "--run", str(run), "--no-check", "--no-stats", *options],
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
            env=plain_environment(),
        )

    def finish(self, process):
        output, error = process.communicate(timeout=PATIENCE)
        return process.returncode, output, error

    def column(self, name, value, rows=ROWS):
        return self.write(name, "a,b\n" + f"{value},{value}\n" * rows)

    def names(self, run):
        return sorted(path.name for path in self.folder.glob(run.name + "*"))

    def appeared(self, run):
        return (
            f"tslm5: {run} was made by another program while this load was running; that run stays "
            "as it is, and nothing of this load is in it; load again to load into it\n"
        )

    def test_two_loads_into_one_new_run(self):
        files = [self.column("one.csv", 1), self.column("two.csv", 2)]
        words = self.write("bad.csv", "a,b\n1,2\n" * 20 + "1\n")
        refused = 0
        for race in range(self.races):
            run = self.folder / f"race{race}.db"
            pair = [files[0], words if race % 4 == 3 else files[1]]
            processes = [self.start(file, run, *["--json"] * (race % 2)) for file in pair]
            codes = [0, 0]
            for place, process in enumerate(processes):
                codes[place], output, error = self.finish(process)
                if codes[place] == 3:
                    self.assertEqual((output, error), ("", self.appeared(run)))
                    refused += 1
            where = f"race {race}: {codes}"
            self.assertIn(0, codes, where)
            values = query(run, "SELECT DISTINCT d0 FROM TrainingSet")
            stored = {(float(place + 1),) for place in (0, 1) if codes[place] == 0}
            self.assertEqual(len(values), 1, where)
            self.assertIn(values[0], stored, where)
            self.assertEqual(
                query(run, "SELECT COUNT(*) FROM RunHistory"), [(codes.count(0),)], where
            )
            self.assertEqual(self.names(run), [run.name], where)
        print(f"{self.races} races, {refused} loads refused", file=sys.stderr)

    def test_a_run_that_appears_meanwhile_stays(self):
        run = self.folder / "new.db"
        big = self.column("big.csv", 3, 200_000)
        process = self.start(big, run)
        self.wait_for_beside_file(process, run)
        run.write_bytes(b"somebody else's")
        self.assertEqual(self.finish(process), (3, "", self.appeared(run)))
        self.assertEqual(run.read_bytes(), b"somebody else's")
        self.assertEqual(self.names(run), ["new.db"])

    def wait_for_beside_file(self, process, run):
        end = time.monotonic() + PATIENCE
        while process.poll() is None and time.monotonic() < end:
            if any(name.endswith("-journal") for name in self.names(run)):
                return
            time.sleep(0.001)
        self.fail("the load made no file beside the run")

    def test_a_killed_load_leaves_nothing_in_the_way(self):
        run = self.folder / "new.db"
        process = self.start(self.column("big.csv", 3, 200_000), run)
        self.wait_for_beside_file(process, run)
        process.send_signal(signal.SIGKILL)
        self.assertEqual(self.finish(process)[0], -signal.SIGKILL)
        self.assertFalse(run.exists())
        self.assertNotEqual(self.names(run), [])
        self.assertEqual(self.program("info", run).returncode, 3)
        self.done("load", self.column("small.csv", 4, 3), "--run", run)
        self.assertEqual(self.names(run), ["new.db"])
        self.assertEqual(query(run, "SELECT d0 FROM TrainingSet"), [(4,)] * 3)

    def test_a_refused_load_leaves_nothing(self):
        run = self.folder / "new.db"
        result = self.program("load", self.write("uneven.csv", "a,b\n1,2\n3\n"), "--run", run)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(self.names(run), [])

    def test_a_journal_of_another_run_is_not_taken(self):
        run = self.folder / "new.db"
        file = self.column("some.csv", 5, 3)
        for ending in ("-journal", "-wal"):
            journal = self.write(f"new.db{ending}", b"left behind")
            message = (
                f"The run {run} cannot be made, because {journal} is left of another run of that "
                "name: put that run back beside it, or remove it"
            )
            self.failed(3, message, "load", file, "--run", run)
            self.assertEqual(journal.read_bytes(), b"left behind")
            journal.unlink()
        self.assertEqual(self.names(run), [])

    def test_a_name_without_room_for_its_journal(self):
        run = self.folder / ("r" * 250)
        message = f"The run {run} cannot be made: File name too long"
        self.failed(3, message, "load", self.column("some.csv", 5, 3), "--run", run)
        self.assertEqual(self.names(self.folder / "rrr"), [])

    def test_a_name_that_leads_elsewhere(self):
        (self.folder / "sub").mkdir()
        run = self.folder / "link.db"
        run.symlink_to("sub/end.db")
        self.done("load", self.column("some.csv", 6, 3), "--run", run)
        self.assertTrue(run.is_symlink())
        self.assertEqual(os.listdir(self.folder / "sub"), ["end.db"])

    def test_a_run_that_goes_while_it_is_changed(self):
        self.load("a,b\n1,2\n3,4\n")
        for replaced in (False, True):
            run = self.folder / f"going{replaced}.db"
            run.write_bytes(self.run_path.read_bytes())
            process = self.start(self.column("big.csv", 3, 200_000), run)
            self.wait_for_beside_file(process, run)  # here: its journal
            run.unlink()
            if replaced:
                run.write_bytes(b"somebody else's")
            told = (
                f"tslm5: {run} was removed or replaced while this command was changing it: what was "
                "stored went with the former file; do it again\n"
            )
            self.assertEqual(self.finish(process), (3, "", told))
            if replaced:
                self.assertEqual(run.read_bytes(), b"somebody else's")


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--count":
        NewRunTest.races = int(sys.argv[2])
        del sys.argv[1:]
    unittest.main()
