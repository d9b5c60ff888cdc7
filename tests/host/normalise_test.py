"""`tslm5 load --normalize`: the scale of the inputs, by the figures of the training set alone."""

import json
import math
import statistics
import unittest

from host_case import HostCase, query

WIND = [3.0, 4.5, 10.0, -1.25]
DATA = "colour,wind,same,answer\nred,3,7,1\nblue,4.5,7,2\nred,10,7,3\nred,NA,7,5\ngreen,-1.25,7,4\n"
SAME = "the column same is not normalised: its training values are all the same"


class NormaliseTest(HostCase):
    def normalised(self, scale, content=DATA, *options):
        file = self.write("data.csv", content)
        result = self.program(
            "load", file, "--run", self.run_path, "--json", "--no-stats", "--normalize", scale,
            *options,
        )
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)

    def wind(self, table="TrainingSet"):
        return [value for (value,) in query(self.run_path, f"SELECT d1 FROM {table} ORDER BY row")]

    def figures(self, table):
        return query(
            self.run_path,
            f"SELECT Average, StandardDeviation, Minimum, Maximum FROM {table} ORDER BY "
            "ColumnIndex",
        )

    def parameters(self):
        return [
            query(self.run_path, f"SELECT {kind} FROM RunParameters WHERE element = '{element}'")
            for element, kind in (("NormalizationType", "intvalue"),
                                  ("NormalizationNewMinValue", "floatvalue"),
                                  ("NormalizationNewMaxValue", "floatvalue"))
        ]

    def near(self, found, wanted):
        self.assertEqual(len(found), len(wanted))
        for one, other in zip(found, wanted):
            if other is None:
                self.assertIsNone(one)
            else:
                self.assertTrue(math.isclose(one, other, rel_tol=1e-13, abs_tol=1e-13), found)

    def test_none(self):
        self.assertEqual(self.normalised("none")["preparation"]["normalize"], "none")
        self.assertEqual(self.wind(), [3, 4.5, 10, None, -1.25])
        self.assertEqual(self.parameters()[0], [(0,)])
        for table in ("DataSetStatisticsForMissing", "DataSetStatisticsForCode"):
            figures = self.figures(table)
            self.near(figures[1], (statistics.mean(WIND), statistics.stdev(WIND), -1.25, 10))
            self.near(figures[2], (7, 0, 7, 7))
            self.near(figures[0], (1.6, statistics.stdev([1, 2, 1, 1, 3]), 1, 3))
            self.near(figures[3], (3, statistics.stdev([1, 2, 3, 4, 5]), 1, 5))

    def test_zscore(self):
        loaded = self.normalised("zscore")
        mean, deviation = statistics.mean(WIND), statistics.stdev(WIND)
        wanted = [(x - mean) / deviation for x in WIND]
        self.near(self.wind(), [*wanted[:3], None, wanted[3]])
        self.assertEqual(self.parameters()[0], [(1,)])
        self.near(self.figures("DataSetStatisticsForMissing")[1], (mean, deviation, -1.25, 10))
        self.near(self.figures("DataSetStatisticsForCode")[1], (mean, deviation, -1.25, 10))
        self.assertEqual(loaded["warnings"], [SAME])
        self.assertEqual(
            [column["normalised"] for column in loaded["preparation"]["columns"]],
            [False, True, False, False],
        )

    def test_minmax(self):
        self.normalised("minmax")
        wanted = [(x + 1.25) / 11.25 for x in WIND]
        self.near(self.wind(), [*wanted[:3], None, wanted[3]])
        self.assertEqual(self.parameters()[0], [(2,)])

    def test_range(self):
        self.normalised("range:-1:3.5")
        wanted = [(x + 1.25) / 11.25 * 4.5 - 1 for x in WIND]
        self.near(self.wind(), [*wanted[:3], None, wanted[3]])
        self.assertEqual(self.parameters(), [[(3,)], [(-1,)], [(3.5,)]])

    def test_other_columns_stay_and_their_figures_change_nothing(self):
        identity = {"zscore": (0, 1), "minmax": (0, 1), "range:2:6": (2, 6)}
        for scale, pair in identity.items():
            with self.subTest(scale=scale):
                self.normalised(scale)
                self.assertEqual(
                    query(self.run_path, "SELECT d0, d2, d3 FROM TrainingSet"),
                    [(1, 7, 1), (2, 7, 2), (1, 7, 3), (1, 7, 5), (3, 7, 4)],
                )
                figures = self.figures("DataSetStatisticsForMissing")
                for column in (0, 2, 3):
                    wanted = figures[column][:2] if scale == "zscore" else figures[column][2:]
                    self.assertEqual(wanted, pair)

    def test_the_testing_set_follows_the_figures_of_the_training_set(self):
        self.write("testing.csv", "colour,wind,same,answer\nred,100,8,1\nblue,NA,7,2\n")
        loaded = self.normalised("minmax", DATA, "--testing", self.folder / "testing.csv")
        self.assertEqual(loaded["preparation"]["testingRows"], 2)
        self.near(self.wind("TestingSet"), [101.25 / 11.25, None])
        self.assertEqual(
            query(self.run_path, "SELECT d0, d2, d3 FROM TestingSet"), [(1, 8, 1), (2, 7, 2)]
        )

    def test_a_later_testing_set_follows_them_too(self):
        self.normalised("zscore")
        mean, deviation = statistics.mean(WIND), statistics.stdev(WIND)
        self.load("colour,wind,same,answer\nblue,100,8,1\n", "--set", "testing")
        self.near(self.wind("TestingSet"), [(100 - mean) / deviation])
        self.assertEqual(query(self.run_path, "SELECT d0, d2 FROM TestingSet"), [(2, 8)])
        self.near(self.figures("DataSetStatisticsForMissing")[1], (mean, deviation, -1.25, 10))

    def test_values_too_large_for_a_scale_stay(self):
        loaded = self.normalised("minmax", "a,b\n-1.5e308,1\n1.5e308,2\n")
        self.assertEqual(
            loaded["warnings"], ["the column a is not normalised: its values are too large"]
        )
        self.assertEqual(query(self.run_path, "SELECT d0 FROM TrainingSet"),
                         [(-1.5e308,), (1.5e308,)])

    def test_a_column_without_numbers_stays(self):
        loaded = self.normalised("zscore", "a,b\nNA,1\n?,2\n")
        self.assertEqual(
            loaded["warnings"],
            ["the column a is not normalised: it has no number in the training set"],
        )
        self.assertEqual(query(self.run_path, "SELECT d0 FROM TrainingSet"), [(None,), (None,)])

    def test_scales_that_are_none(self):
        file = self.write("data.csv", DATA)
        for word in ("z", "range", "range:1", "range:2:1", "range:1:1", "range:a:2", "range:1:2:3"):
            self.failed(
                2,
                f'--normalize: invalid scale "{word}"; expected none, zscore, minmax or range:A:B '
                "with A less than B",
                *("load", file, "--run", self.run_path, "--normalize", word),
            )


if __name__ == "__main__":
    unittest.main()
