"""A column drawn in the terminal, and as a picture."""

import fcntl
import os
import pty
import re
import struct
import subprocess
import termios
import unittest
import xml.etree.ElementTree as ElementTree

from host_case import PROGRAM, HostCase, change, plain_environment

SVG = "{http://www.w3.org/2000/svg}"


def dots(character):
    """The dots of a braille character as (x, y), counted from its upper left corner."""
    places = [(0, 0), (0, 1), (0, 2), (1, 0), (1, 1), (1, 2), (0, 3), (1, 3)]
    bits = 0 if character == " " else ord(character) - 0x2800
    return [place for bit, place in enumerate(places) if bits >> bit & 1]


class PlotTest(HostCase):
    def plot(self, *words):
        return self.done("plot", self.run_path, *words)

    def points(self, *words):
        """The dots of a plot as (x, y) from the lower left corner, and its width in dots."""
        lines = self.plot(*words).splitlines()[1:-2]
        start = max(line.find(mark) for line in lines for mark in "┤│") + 1
        found = set()
        for number, line in enumerate(lines):
            for column, character in enumerate(line[start:]):
                for x, y in dots(character):
                    found.add((2 * column + x, 4 * (len(lines) - number) - 1 - y))
        return found

    def series(self, values, *options):
        self.load("value\n" + "".join(f"{value}\n" for value in values), *options)

    def test_a_rising_line(self):
        self.series(range(1, 41))
        # The axis, with its "20.5", leaves 24 characters of 30.
        points = self.points("value", "--width", 30, "--height", 9)
        self.assertEqual(len({x for x, _ in points}), 48)
        self.assertEqual({y for _, y in points}, set(range(28)))
        self.assertIn((0, 0), points)
        self.assertIn((47, 27), points)
        for x, y in points:
            self.assertLessEqual(abs(y - x * 27 / 47), 1, (x, y))

    def test_the_whole_of_it(self):
        self.series([1, 3])
        self.assertEqual(
            self.plot("value", "--width", 30, "--height", 5),
            "value: 2 rows, training set\n"
            "3 ┤                  ⢀⣀⡠⠤⠤⠒⠒⠊⠉\n"
            "2 ┤        ⢀⣀⣀⠤⠤⠔⠒⠒⠉⠉⠁\n"
            "1 ┤⣀⡠⠤⠤⠒⠒⠊⠉⠁\n"
            "  └───────────────────────────\n"
            "   1                         2\n",
        )

    def test_a_gap_stays_open(self):
        self.series([5] * 9 + [6] + [5] * 11)
        change(self.run_path, "UPDATE TrainingSet SET d0 = NULL WHERE row BETWEEN 6 AND 16")
        points = self.points("value", "--width", 30, "--height", 5)
        columns = sorted({x for x, _ in points})
        # Rows 1 to 5 and 17 to 21 of 21, over 54 dots.
        self.assertEqual((columns[0], columns[-1]), (0, 53))
        self.assertFalse([x for x in columns if 11 < x < 42], columns)
        self.assertIn(42, columns)

    def test_equal_values_stand_in_the_middle(self):
        self.series([7, 7, 7])
        shown = self.plot("value", "--width", 30, "--height", 5).splitlines()
        self.assertEqual((shown[1], shown[3]), ("  │", "  │"))
        self.assertTrue(shown[2].startswith("7 ┤"), shown)
        self.assertGreater(len(shown[2]), 20)

    def test_the_width_is_that_of_the_terminal(self):
        self.series(range(50))
        self.assertEqual({len(line) for line in self.plot("value").splitlines()[-2:]}, {80})
        terminal, output = pty.openpty()
        fcntl.ioctl(output, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 57, 0, 0))
        words = [PROGRAM, "plot", str(self.run_path), "value"]
        subprocess.run(words, stdout=output, env=plain_environment(), check=True, timeout=60)
        os.close(output)
        shown = b""
        try:
            while piece := os.read(terminal, 4096):
                shown += piece
        except OSError:  # all of it was read
            pass
        os.close(terminal)
        self.assertEqual(len(shown.decode().splitlines()[-1]), 57)

    def test_a_picture(self):
        self.series([1, 2, 3, 4, 5])
        change(self.run_path, "UPDATE TrainingSet SET d0 = NULL WHERE row = 3")
        file = self.folder / "picture.svg"
        told = self.plot("value", "--svg", file)
        self.assertEqual(told, f"value: 5 rows, training set, is drawn in {file}\n")
        text = file.read_text()
        root = ElementTree.fromstring(text)
        [path] = root.iter(SVG + "path")
        lines = [re.findall(r"[\d.]+ [\d.]+", part) for part in path.get("d").split("M")[1:]]
        self.assertEqual([len(line) for line in lines], [3, 3])  # each starts with a dot
        self.assertEqual(lines[0][1:], ["90.00 360.00", "262.50 282.50"])
        self.assertEqual(lines[1][1:], ["607.50 127.50", "780.00 50.00"])
        texts = [one.text for one in root.iter(SVG + "text")]
        self.assertEqual(texts[0], "value: 5 rows, training set")
        self.assertEqual(texts[1:], ["1", "2", "3", "4", "5", "1", "2", "3", "4", "5"])
        places = [(one.get("x"), one.get("y")) for one in root.iter(SVG + "text")][6:]
        self.assertEqual(places[0], ("90.00", "382"), "the records' numbers are below the picture")
        self.assertEqual({y for _, y in places}, {"382"})
        self.assertIn("@media (prefers-color-scheme: dark)", text)
        self.assertNotIn("href", text)
        self.assertEqual([p.name for p in self.folder.glob("picture.svg?*")], [])

    def test_a_picture_takes_the_place_of_a_picture_alone(self):
        self.series([1, 2])
        file = self.folder / "picture.svg"
        self.plot("value", "--svg", file)
        self.plot("value", "--svg", file)
        file.write_text("something else")
        message = f"{file} is there already and is no plot; --force replaces it"
        self.failed(2, message, "plot", self.run_path, "value", "--svg", file)
        self.assertEqual(file.read_text(), "something else")
        self.plot("value", "--svg", file, "--force")
        self.assertIn("<svg", file.read_text())
        before = self.run_path.read_bytes()
        link = self.folder / "link.svg"
        link.symlink_to(self.run_path)
        for place in (self.run_path, link):
            message = f"{place} is the run itself"
            self.failed(2, message, "plot", self.run_path, "value", "--svg", place, "--force")
        self.assertEqual(self.run_path.read_bytes(), before)

    def test_a_picture_of_many_values_keeps_the_extremes(self):
        values = [0] * 20_000
        values[7_777] = 9
        self.series(values)
        file = self.folder / "picture.svg"
        self.plot("value", "--svg", file)
        self.assertIn(" 50.00", file.read_text())
        self.assertLess(file.stat().st_size, 60_000)

    def test_a_label_is_no_markup(self):
        self.load("a<b>&c,d\n1,2\n2,3\n")
        file = self.folder / "picture.svg"
        self.plot("d0", "--svg", file)
        root = ElementTree.fromstring(file.read_text())
        self.assertEqual(root.find(SVG + "title").text, "a<b>&c: 2 rows, training set")

    def test_refusals(self):
        self.series([1, 2])
        message = 'plot: there is no column "other"; the labels are value'
        self.failed(2, message, "plot", self.run_path, "other")
        message = '--width: "29" is out of range; expected a whole number from 30 to 1000'
        self.failed(2, message, "plot", self.run_path, "value", "--width", 29)
        message = f"{self.run_path} has no testing set (tslm5 info tells what it has)"
        self.failed(3, message, "plot", self.run_path, "value", "--set", "testing")
        file = self.folder / "nowhere" / "picture.svg"
        message = f"{file} cannot be written: No such file or directory"
        self.failed(3, message, "plot", self.run_path, "value", "--svg", file)
        change(self.run_path, "UPDATE TrainingSet SET d0 = NULL")
        message = "the column value holds no number"
        self.failed(1, message, "plot", self.run_path, "value")


if __name__ == "__main__":
    unittest.main()
