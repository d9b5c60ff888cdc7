"""The command stats, and the statistics that a load computes."""

import json
import math
import os
import pty
import subprocess
import unittest

from host_case import PROGRAM, HostCase, change, plain_environment, query

DATA = "a,b,c\n1,10,0\n2,20,1\n6,NA,1\n"


class StatsTest(HostCase):
    def load_with_statistics(self, content, *options, name="data.csv"):
        file = self.write(name, content)
        self.done("load", file, "--run", self.run_path, "--no-check", *options)

    def stats(self, *options):
        return json.loads(self.done("stats", self.run_path, "--json", *options))

    def test_figures_of_columns(self):
        self.load_with_statistics(DATA)
        answer = self.stats()
        self.assertEqual(list(answer), ["set", "columns"])
        self.assertEqual(answer["set"], "training")
        first = answer["columns"][0]
        self.assertEqual(
            first,
            {
                "index": 0,
                "label": "a",
                "centroid": 3.0,
                "medoid": 2.0,
                "minimum": 1.0,
                "maximum": 6.0,
                "standardDeviation": first["standardDeviation"],
            },
        )
        self.assertTrue(math.isclose(first["standardDeviation"], math.sqrt(7), rel_tol=1e-12))
        self.assertEqual(answer["columns"][1]["centroid"], 15.0)

    def test_figures_by_class(self):
        self.load_with_statistics(DATA)
        classes = self.stats("--by-class")["classes"]
        self.assertEqual([(c["class"], c["recordCount"]) for c in classes], [(0.0, 1), (1.0, 2)])
        self.assertEqual(
            classes[1]["columns"][0],
            {"index": 0, "label": "a", "centroid": 4.0, "medoid": 4.0, "minimum": 2.0,
             "maximum": 6.0},
        )

    def test_a_figure_that_there_is_none_of(self):
        self.load_with_statistics("a,b,c\n1,NA,1\nNA,NA,2\n")
        columns = self.stats()["columns"]
        self.assertIsNone(columns[0]["standardDeviation"])
        self.assertIsNone(columns[1]["centroid"])

    def test_a_column_that_holds_text_is_warned_of(self):
        self.load_with_statistics("height,weight\n0,1\n3,2\n7,3\n", "--no-stats")
        change(self.run_path, "UPDATE TrainingSet SET d0 = 'abc' WHERE row = 1")
        result = self.program("stats", self.run_path, "--json")
        self.assertEqual(
            result.stderr,
            "tslm5: warning: height holds text in 1 cell of the training set: the mean counts a "
            "text as 0 and the maximum is 0; medoid and deviation are of the numbers alone\n",
        )
        height = json.loads(result.stdout)["columns"][0]
        self.assertTrue(math.isclose(height["centroid"], 10 / 3))
        self.assertEqual((height["medoid"], height["minimum"], height["maximum"]), (5, 3, 0))
        self.assertTrue(math.isclose(height["standardDeviation"], math.sqrt(8)))
        change(self.run_path, "UPDATE TrainingSet SET d1 = 'x'")
        report = self.program("report", self.run_path, "-o", "page.html")
        self.assertEqual(report.returncode, 0)
        self.assertIn("weight holds text in 3 cells of the training set", report.stderr)
        self.assertEqual(len(report.stderr.splitlines()), 2)
        change(self.run_path, "UPDATE TrainingSet SET d0 = 1, d1 = 2")
        self.assertEqual(self.program("stats", self.run_path).stderr, "")

    def test_more_than_two_classes_have_no_figures(self):
        self.load_with_statistics("a,b\n1,1\n2,2\n3,3\n")
        self.assertEqual(self.stats("--by-class")["classes"], [])
        self.assertIn(
            "no figures by class: the response has more than two values\n",
            self.done("stats", self.run_path, "--by-class"),
        )

    def test_the_table(self):
        self.load_with_statistics(DATA)
        self.assertEqual(
            self.done("stats", self.run_path, "--by-class"),
            "column      mean  median  minimum  maximum  deviation\n"
            "a              3       2        1        6    2.64575\n"
            "b             15      15       10       20    7.07107\n"
            "c       0.666667       1        0        1    0.57735\n"
            "\n"
            "class 0: 1 record\n"
            "column  mean  median  minimum  maximum\n"
            "a          1       1        1        1\n"
            "b         10      10       10       10\n"
            "c          0       0        0        0\n"
            "\n"
            "class 1: 2 records\n"
            "column  mean  median  minimum  maximum\n"
            "a          4       4        2        6\n"
            "b         20      20       20       20\n"
            "c          1       1        1        1\n",
        )

    def test_histograms_at_a_terminal_only(self):
        self.load_with_statistics("a,b\n" + "".join(f"{v},1\n" for v in [0, 0, 0, 0, 16]))
        self.assertNotIn("█", self.done("stats", self.run_path))
        primary, secondary = pty.openpty()
        process = subprocess.Popen(
            [PROGRAM, "stats", self.run_path], env=plain_environment(), stdout=secondary,
            stderr=subprocess.DEVNULL,
        )
        os.close(secondary)
        shown = b""
        try:
            while more := os.read(primary, 1000):
                shown += more
        except OSError:
            pass  # the other end is closed
        os.close(primary)
        self.assertEqual(process.wait(timeout=60), 0)
        lines = shown.decode().splitlines()
        self.assertTrue(lines[1].endswith("  █" + " " * 14 + "▂"), lines[1])
        self.assertTrue(lines[2].endswith("  █" + " " * 15), lines[2])

    def test_a_load_without_statistics_has_them_when_they_are_asked_for(self):
        self.load_with_statistics(DATA, "--no-stats")
        count = "SELECT COUNT(*) FROM DataSetStatistics"
        self.assertEqual(query(self.run_path, count), [(0,)])
        self.assertEqual(self.stats()["columns"][0]["centroid"], 3.0)
        self.assertEqual(query(self.run_path, count), [(3,)])

    def test_loading_anew_renews_the_figures(self):
        self.load_with_statistics(DATA)
        self.load_with_statistics("a,b,c\n5,5,5\n7,7,7\n")
        self.assertEqual(self.stats()["columns"][0]["centroid"], 6.0)

    def test_each_set_has_its_own(self):
        self.load_with_statistics(DATA)
        self.load_with_statistics("a,b,c\n100,1,1\n", "--set", "testing")
        self.assertEqual(self.stats()["columns"][0]["maximum"], 6.0)
        self.assertEqual(self.stats("--set", "testing")["columns"][0]["maximum"], 100.0)

    def test_a_testing_set_alone_has_none(self):
        self.load_with_statistics(DATA, "--set", "testing")
        self.failed(
            3,
            f"{self.run_path} has no training set, which the statistics of every set need",
            *("stats", self.run_path, "--set", "testing"),
        )

    def test_what_is_not_there(self):
        self.load_with_statistics(DATA)
        self.failed(
            3,
            f"{self.run_path} has no testing set (tslm5 info tells what it has)",
            *("stats", self.run_path, "--set", "testing"),
        )
        self.assertEqual(self.program("stats", self.folder / "none.db").returncode, 3)
        self.assertEqual(self.program("stats").returncode, 2)


if __name__ == "__main__":
    unittest.main()
