"""The commands for a user who writes decimals with a comma: a file in that form becomes the run that the
same file with points becomes elsewhere, and what is told of it differs only where it says so."""

import json
import unittest

from host_case import HostCase, contents

POINTS = "height;colour;share\n1.5;red;0.25\n-2.125;blue;1e2\nNA;red;3.5\n0.75;green;2.25\n"
COMMAS = POINTS.replace(".", ",")
SERIES = "1.5\n2.5\n4.25\n8.125\n16.5\n3.75\n"
GERMAN = {"LC_ALL": "de_DE.UTF-8"}


class CommaLocaleTest(HostCase):
    def load_both(self, points=POINTS, commas=COMMAS, *options):
        """Loads a text with points as everybody, and one with commas as the user."""
        self.points, self.commas = self.folder / "points.db", self.folder / "commas.db"
        plain, german = self.write("points.csv", points), self.write("commas.csv", commas)
        self.done("load", plain, "--run", self.points, *options)
        self.done("load", german, "--run", self.commas, *options, **GERMAN)

    def same(self, command, *words):
        """Lets a command answer of both runs, each to its user; the one answer but for the names."""
        plain = self.done(command, self.points, *words)
        german = self.done(command, self.commas, *words, **GERMAN)
        plain, german = (text.replace("points.", "commas.") for text in (plain, german))
        self.assertEqual(german, plain)
        return german

    def assert_same_run(self):
        (schema, tables), (other_schema, others) = contents(self.points), contents(self.commas)
        self.assertEqual(schema, other_schema)
        for name in set(tables) - {"RunHistory", "OriginalData"}:
            other = [row for row in others[name] if "TestingDecimalComma" not in row]
            self.assertEqual(other, tables[name], name)

    def test_check_accepts_the_users_numbers_and_tells_the_place_of_others(self):
        file = self.write("commas.csv", "a;b\n1,5;2\n2,5;-3e2\n")
        self.assertTrue(json.loads(self.done("check", file, "--fixed", "--json", **GERMAN))["valid"])
        result = self.program("check", file, "--fixed")
        self.assertEqual(result.returncode, 1)

    def test_load_makes_the_same_run(self):
        self.load_both(POINTS, COMMAS, "--normalize", "zscore")
        self.assert_same_run()

    def test_show_and_stats_write_points(self):
        self.load_both()
        self.assertIn("-2.125", self.same("show"))
        self.same("show", "--format", "csv")
        self.same("stats", "--json")
        self.assertIn("-2.125", self.same("stats"))

    def test_categories_are_set_alike(self):
        self.load_both()
        self.same("categories", "colour", "--assign", "red=2.5")
        self.assert_same_run()
        self.assertIn("2.5", self.same("show", "--rows", "1"))

    def test_missing_values_are_replaced_alike(self):
        self.load_both()
        self.same("missing", "height", "--replace", "NA=mean", "--apply")
        self.same("missing", "height", "--replace", "NA=-4.5", "--apply")
        self.assert_same_run()

    def test_a_series_is_embedded_and_drawn_alike(self):
        self.load_both(SERIES, SERIES.replace(".", ","), "--problem", "timeseries", "--no-labels",
                       "--separator", "none")
        self.same("plot", "y", "--width", "40")
        self.same("embed", "--dimension", "2", "--delay", "1")
        self.assert_same_run()

    def test_original_shows_the_users_decimals(self):
        self.load_both()
        rows = [
            json.loads(self.done("original", run, "--json", **GERMAN))["rows"]
            for run in (self.points, self.commas)
        ]
        self.assertEqual(rows[0], rows[1])
        self.assertIn("1,5", rows[0][0])

    def test_history_reset_and_undo_work_alike(self):
        points = "a;b\n1.5;1\n2.25;2\n3.5;3\n4.75;4\n"
        options = ("--testing-share", "0.5", "--normalize", "minmax")
        self.load_both(points, points.replace(".", ","), *options)
        told = self.done("history", self.commas, **GERMAN)
        self.assertIn("--decimal=comma", told)
        self.assertNotIn("LC_ALL", told)
        self.same("reset")
        self.assert_same_run()
        self.same("undo")
        self.assert_same_run()

    def test_a_report_holds_the_same_numbers(self):
        self.load_both(POINTS, COMMAS, "--normalize", "minmax")
        pages = []
        for run, changes in ((self.points, {}), (self.commas, GERMAN)):
            self.done("report", run, "-o", self.folder / "page.html", "--force", **changes)
            pages.append((self.folder / "page.html").read_text(encoding="utf-8"))
        self.assertIn("0.75", pages[0])
        self.assertNotIn("0,75", pages[1].split("<h2")[-1])


if __name__ == "__main__":
    unittest.main()
