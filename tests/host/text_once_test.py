"""A text file that is replaced or changed while it is read: all of a load is one file, or none."""

import os
import subprocess
import threading
import unittest

from host_case import PROGRAM, HostCase, plain_environment, query

ROWS = 60_000
ROUNDS = 3
PATIENCE = 120  # seconds


class TextOnceTest(HostCase):
    def run_beside(self, work, *words):
        """Runs the program while `work` is done again and again."""
        process = subprocess.Popen(
            [PROGRAM, *map(str, words)],
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
            env=plain_environment(),
        )
        ended = threading.Event()

        def repeat():
            while not ended.is_set():
                work()

        worker = threading.Thread(target=repeat)
        worker.start()
        output, error = process.communicate(timeout=PATIENCE)
        ended.set()
        worker.join(PATIENCE)
        return process.returncode, output, error

    def test_a_file_that_is_replaced(self):
        texts = ["a,b\n" + f"{value},{value}.5\n" * ROWS for value in (1, 2)]
        file = self.write("data.csv", texts[0])
        turn = [0]

        def replace():
            turn[0] = 1 - turn[0]
            os.replace(self.write("next.csv", texts[turn[0]]), file)

        for round_ in range(ROUNDS):
            run = self.folder / f"run{round_}.db"
            code, _, error = self.run_beside(replace, "load", file, "--run", run, "--no-stats")
            self.assertEqual((code, error), (0, ""))
            cells = "FROM TrainingSet t JOIN OriginalData o ON o.row = t.row"
            [(rows,)] = query(run, f"SELECT COUNT(*) {cells}")
            self.assertEqual(rows, ROWS)
            mixed = "WHERE t.d0 <> CAST(o.d0 AS REAL) OR t.d1 <> CAST(o.d1 AS REAL)"
            self.assertEqual(query(run, f"SELECT COUNT(*) {cells} {mixed}"), [(0,)])
            self.assertEqual(len(query(run, f"SELECT DISTINCT t.d0, t.d1, o.d0, o.d1 {cells}")), 1)

    def test_a_file_that_is_changed_while_it_is_read(self):
        file = self.write("data.csv", "a,b\n" + "1,2\n" * 16_000_000)
        result = self.run_beside(lambda: os.utime(file), "check", file)
        told = (
            f"tslm5: {file}: the file was changed while it was read; do it again when it is "
            "complete\n"
        )
        self.assertEqual(result, (3, "", told))


if __name__ == "__main__":
    unittest.main()
