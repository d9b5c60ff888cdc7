"""Trouble around the program: locked and read-only runs, full disks, broken pipes."""

import os
import resource
import shutil
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

from host_case import PROGRAM, HostCase, dump, plain_environment, query

NOBODY = "65534"


class TroubleTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load("a,b\n1,2\n3,4\n")
        self.before = dump(self.run_path)
        self.file = self.write("next.csv", "a,b\n5,6\n")

    def test_a_locked_run(self):
        other = sqlite3.connect(self.run_path)
        self.addCleanup(other.close)
        other.execute("BEGIN EXCLUSIVE")
        result = self.program("load", self.file, "--run", self.run_path)
        other.rollback()
        self.assertEqual((result.returncode, result.stdout), (3, ""))
        self.assertRegex(result.stderr, r"^tslm5: the run is locked by another program; .*\n$")
        self.assertEqual(dump(self.run_path), self.before)

    def test_a_run_that_is_being_read(self):
        other = sqlite3.connect(self.run_path)
        self.addCleanup(other.close)
        other.execute("BEGIN")
        other.execute("SELECT * FROM TrainingSet").fetchone()
        result = self.program("load", self.file, "--run", self.run_path)
        other.rollback()
        self.assertEqual(result.returncode, 3, result.stderr)
        self.assertRegex(result.stderr, r"^tslm5: the run is locked by another program; .*\n$")
        self.assertEqual(dump(self.run_path), self.before)

    def as_nobody(self, *words):
        """Runs the program as a user who owns nothing here."""
        if os.geteuid() != 0 or shutil.which("setpriv") is None:
            self.skipTest("needs root and setpriv, to run as another user")
        prefix = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        if subprocess.run([*prefix, "test", "-x", PROGRAM], check=False).returncode != 0:
            self.skipTest("another user may not run the program where it was built")
        self.folder.chmod(0o755)
        return subprocess.run(
            [*prefix, PROGRAM, *map(str, words)],
            capture_output=True,
            text=True,
            env=plain_environment(),
            check=False,
        )

    def test_a_read_only_run(self):
        result = self.as_nobody("load", self.file, "--run", self.run_path)
        self.assertEqual((result.returncode, result.stdout), (3, ""))
        self.assertRegex(
            result.stderr, rf"^tslm5: The run {self.run_path} cannot be written[^\n]*\n$"
        )
        self.assertEqual(dump(self.run_path), self.before)
        shown = self.as_nobody("show", self.run_path, "--format", "csv")
        self.assertEqual((shown.returncode, shown.stdout), (0, "a,b\n1,2\n3,4\n"))

    def test_a_folder_that_takes_no_run(self):
        result = self.as_nobody("load", self.file, "--run", self.folder / "new.db")
        self.assertEqual((result.returncode, result.stdout), (3, ""))
        self.assertRegex(result.stderr, r"^tslm5: The run .*new.db cannot be made[^\n]*\n$")

    def test_an_unreadable_file(self):
        self.file.chmod(0o600)
        result = self.as_nobody("load", self.file, "--run", self.run_path)
        self.assertEqual((result.returncode, result.stdout), (3, ""))
        self.assertEqual(
            result.stderr, f"tslm5: {self.file}: the file cannot be opened: Permission denied\n"
        )

    def big_file(self):
        return self.write("big.csv", "a,b\n" + "1.25,2.5\n" * 200_000)

    def test_a_full_disk(self):
        place = tempfile.mkdtemp()
        self.addCleanup(os.rmdir, place)
        mount = ["mount", "-t", "tmpfs", "-o", "size=2m", "tmpfs", place]
        if os.geteuid() != 0 or subprocess.run(mount, capture_output=True, check=False).returncode:
            self.skipTest("needs to mount a small file system")
        self.addCleanup(subprocess.run, ["umount", place], check=True)
        run = Path(place) / "run.db"
        shutil.copy(self.run_path, run)
        big = self.big_file()
        for path in (run, Path(place) / "new.db"):
            result = self.program("load", big, "--run", path)
            self.assertEqual((result.returncode, result.stdout), (3, ""))
            self.assertRegex(result.stderr, r"^tslm5: no space is left for the run: [^\n]*\n$")
        self.assertEqual(dump(run), self.before)
        self.assertEqual(os.listdir(place), ["run.db"])

    def test_a_disk_that_is_full_when_gaps_are_filled(self):
        gaps = "a,b\n" + "".join(f"{'NA' if t % 2 else t},{t}\n" for t in range(40_000))
        self.load(gaps, name="gaps.csv")
        self.done("missing", self.run_path, "a", "--replace", "NA=7", "--no-stats")
        before = dump(self.run_path)
        size = self.run_path.stat().st_size
        message = (
            r"^tslm5: (no space is left for the run|the change was cut off, and nothing of it is "
            r"stored): [^\n]*disk is full[^\n]*\n$"
        )
        refused = 0
        for room in (size + 50_000, size + 300_000, size + 1_000_000):
            place = tempfile.mkdtemp()
            self.addCleanup(os.rmdir, place)
            mount = ["mount", "-t", "tmpfs", "-o", f"size={room}", "tmpfs", place]
            if os.geteuid() != 0 or subprocess.run(mount, capture_output=True, check=False).returncode:
                self.skipTest("needs to mount a small file system")
            self.addCleanup(subprocess.run, ["umount", place], check=True)
            run = Path(place) / "run.db"
            shutil.copy(self.run_path, run)
            result = self.program("missing", run, "a", "--apply")
            if result.returncode == 0:  # there was room enough
                continue
            refused += 1
            self.assertEqual((result.returncode, result.stdout), (3, ""), result.stderr)
            self.assertRegex(result.stderr, message)
            self.assertEqual(dump(run), before)
        self.assertGreater(refused, 0)

    def test_a_limit_on_the_size_of_files(self):
        big = self.big_file()
        result = subprocess.run(
            [PROGRAM, "load", str(big), "--run", str(self.run_path)],
            capture_output=True,
            text=True,
            env=plain_environment(),
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 20, 1 << 20)),
            check=False,
        )
        self.assertEqual((result.returncode, result.stdout), (3, ""), result.stderr)
        self.assertRegex(result.stderr, r"^tslm5: [^\n]*\n$")
        self.assertEqual(dump(self.run_path), self.before)

    def with_memory(self, limit, *words):
        return subprocess.run(
            [PROGRAM, *map(str, words)],
            capture_output=True,
            text=True,
            env=plain_environment(),
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit)),
            check=False,
        )

    def test_short_memory_is_no_answer_about_the_data(self):
        big = self.write("big.csv", "a,b\n" + "1.25,2.5\n" * 1_500_000)
        codes = []
        for limit in range(32 << 20, 512 << 20, 2 << 20):
            if self.with_memory(limit, "--version").returncode != 0:
                continue
            result = self.with_memory(limit, "check", big)
            codes.append(result.returncode)
            self.assertIn(result.returncode, (0, 3), (limit, result))
            if result.returncode == 0:
                break
            self.assertRegex(result.stderr, r"^tslm5: [^\n]*memory[^\n]*\n$")
        if not codes:
            self.skipTest("the program's own address space is past every limit")
        self.assertEqual(codes[-1], 0)
        self.assertGreater(codes.count(3), 3)

    @staticmethod
    def into_a_full_device(words):
        with open("/dev/full", "w", encoding="ascii") as full:
            return subprocess.run(
                [PROGRAM, *map(str, words)],
                stdout=full,
                stderr=subprocess.PIPE,
                text=True,
                env=plain_environment(),
                check=False,
            )

    def test_an_output_that_takes_nothing(self):
        for words in (["--help"], ["show", self.run_path], ["info", self.run_path]):
            result = self.into_a_full_device(words)
            self.assertEqual(result.returncode, 3)
            self.assertEqual(
                result.stderr,
                "tslm5: the result cannot be written to standard output: No space left on device\n",
            )

    def test_an_output_that_takes_nothing_after_a_change(self):
        page = self.folder / "page.html"
        for words, done in [
            (["load", self.file, "--run", self.run_path], "the load is stored"),
            (["load", self.file, "--run", self.folder / "new.db", "--json"], "the load is stored"),
            (["load", self.write("words.csv", "a,b\nx,1\ny,2\n"), "--run", self.run_path],
             "the load is stored"),
            (["categories", self.run_path, "a", "--assign", "x=5"], "the run is changed"),
            (["report", self.run_path, "-o", page], "the report is written"),
        ]:
            result = self.into_a_full_device(words)
            self.assertEqual(result.returncode, 3)
            self.assertEqual(
                result.stderr,
                "tslm5: the result cannot be written to standard output: No space left on device; "
                f"{done} all the same\n",
            )
        self.assertEqual(query(self.folder / "new.db", "SELECT COUNT(*) FROM TrainingSet"), [(1,)])
        self.assertTrue(page.exists())

    def test_a_reader_that_has_had_enough(self):
        self.load("a,b\n" + "1,2\n" * 100_000)
        for form in ("table", "csv", "json"):
            with subprocess.Popen(
                [PROGRAM, "show", self.run_path, "--rows", "1:", "--format", form],
                stdout=subprocess.PIPE,
                stderr=subprocess.PIPE,
                env=plain_environment(),
            ) as process:
                process.stdout.read(1)
                process.stdout.close()
                self.assertEqual(process.stderr.read(), b"")
            self.assertEqual(process.returncode, -13)  # as by SIGPIPE


if __name__ == "__main__":
    unittest.main()
