"""Ctrl-C while a file is loaded, and the progress bar, at a terminal of the test's own."""

import os
import pty
import re
import signal
import subprocess
import time
import unittest

from host_case import PROGRAM, HostCase, dump, plain_environment

ROWS = 500_000
PATIENCE = 60  # seconds


class InterruptTest(HostCase):
    def setUp(self):
        super().setUp()
        self.load("a,b\n1,2\n3,4\n")
        self.before = dump(self.run_path)
        self.big = self.write("big.csv", "a,b\n" + "1.25,2.5\n" * ROWS)

    def start(self, run, stderr, **changes):
        return subprocess.Popen(
            [PROGRAM, "load", str(self.big), "--run", str(run)],
            stdout=subprocess.PIPE,
            stderr=stderr,
            env=plain_environment(**changes),
        )

    def at_terminal(self, run, interrupt_at=None, **changes):
        """Loads with standard error at a terminal, pressing Ctrl-C when it shows `interrupt_at`.
        The exit code, the output, and all that the terminal got."""
        terminal, stderr = pty.openpty()
        process = self.start(run, stderr, **changes)
        os.close(stderr)
        shown = b""
        while True:
            try:
                piece = os.read(terminal, 4096)
            except OSError:  # the program has closed it
                break
            if not piece:
                break
            shown += piece
            if interrupt_at is not None and interrupt_at in shown:
                process.send_signal(signal.SIGINT)
                interrupt_at = None
        os.close(terminal)
        output = process.stdout.read()
        process.stdout.close()
        return process.wait(PATIENCE), output, shown

    def test_while_the_set_is_filled(self):
        code, output, shown = self.at_terminal(self.run_path, b"Loading [")
        self.assertEqual((code, output), (130, b""))
        self.assertTrue(shown.endswith(b"\x1b[1;31mtslm5:\x1b[0m cancelled\r\n"), shown[-200:])
        self.assertNotIn(b"Keeping", shown)
        percents = [int(text) for text in re.findall(rb"(\d+) %", shown)]
        self.assertLess(percents[-1], 90, "the load itself stops, not only what follows it")
        self.assertEqual(dump(self.run_path), self.before)

    def test_while_the_originals_are_kept(self):
        code, output, shown = self.at_terminal(self.run_path, b"Keeping the originals [")
        self.assertEqual((code, output), (130, b""))
        self.assertTrue(shown.endswith(b" cancelled\r\n"), shown[-200:])
        self.assertEqual(dump(self.run_path), self.before)

    def test_while_the_statistics_are_computed(self):
        code, output, shown = self.at_terminal(self.run_path, b"Statistics [")
        self.assertEqual((code, output), (130, b""))
        self.assertTrue(shown.endswith(b" cancelled\r\n"), shown[-200:])
        self.assertEqual(dump(self.run_path), self.before)

    def test_a_new_run_is_not_left_behind(self):
        run = self.folder / "new.db"
        process = self.start(run, subprocess.PIPE)
        end = time.monotonic() + PATIENCE
        while not list(self.folder.glob("new.db*-journal")) and process.poll() is None and time.monotonic() < end:
            time.sleep(0.001)
        process.send_signal(signal.SIGINT)
        output, error = process.communicate(timeout=PATIENCE)
        self.assertEqual((process.returncode, output, error), (130, b"", b"tslm5: cancelled\n"))
        self.assertEqual([p.name for p in self.folder.glob("new.db*")], [])

    def test_the_run_can_be_used_afterwards(self):
        self.at_terminal(self.run_path, b"Loading [")
        self.load("a,b\n5,6\n")
        self.assertEqual(self.show()["rows"], [[5, 6]])

    def test_the_bar_comes_and_goes(self):
        code, output, shown = self.at_terminal(self.run_path)
        self.assertEqual(code, 0)
        self.assertIn(b"records    500000 stored\n", output)
        self.assertNotIn(b"\r", output)
        self.assertIn(b"\rLoading [\x1b[32m", shown)
        self.assertIn(b"\rKeeping the originals [\x1b[32m", shown)
        lines = shown.split(b"\r")
        self.assertEqual(lines[-1], b"")
        self.assertEqual(lines[-2].strip(b" "), b"")  # the bar is wiped out
        self.assertNotIn(b"\n", shown)

    def test_no_color_is_honoured(self):
        code, _, shown = self.at_terminal(self.run_path, NO_COLOR="1")
        self.assertEqual(code, 0)
        self.assertIn(b"\rLoading [...", shown)
        self.assertNotIn(b"\x1b", shown)
        _, _, shown = self.at_terminal(self.run_path, b"Loading [", NO_COLOR="1")
        self.assertTrue(shown.endswith(b"\rtslm5: cancelled\r\n"), shown[-200:])

    def test_a_dumb_terminal_gets_no_bar(self):
        code, _, shown = self.at_terminal(self.run_path, TERM="dumb")
        self.assertEqual((code, shown), (0, b""))


if __name__ == "__main__":
    unittest.main()
