"""A time series in a run: embedding, reset, undo, keep."""

import json
import unittest
from pathlib import Path

from host_case import HostCase, dump, query

PASSENGERS = Path(__file__).resolve().parents[2] / "examples" / "data" / "passengers.csv"


def numbers(first, last):
    return "value\n" + "".join(f"{value}\n" for value in range(first, last + 1))


class EmbedTest(HostCase):
    def series(self, first=0, last=29, **more):
        """Loads the series x[t] = first + t."""
        return self.load(numbers(first, last), "--problem", "timeseries", **more)

    def embed(self, dimension, delay, samples=0):
        words = ("--dimension", dimension, "--delay", delay, "--testing-samples", samples)
        return json.loads(self.done("embed", self.run_path, "--json", *words))

    def refused(self, message, *words):
        before = dump(self.run_path)
        self.failed(1, message, *words)
        self.assertEqual(dump(self.run_path), before)

    def columns(self):
        return query(
            self.run_path,
            "SELECT ColumnIndex, Name, OriginalLabel, IsResponse FROM DataSetColumn ORDER BY Id",
        )

    def test_every_lag_and_target_can_be_read_off(self):
        self.series()
        told = self.embed(3, 4)
        rows = self.show()["rows"]
        self.assertEqual(rows, [[t - 12, t - 8, t - 4, t] for t in range(12, 30)])
        lags = [(column["label"], column["lag"]) for column in told["columns"]]
        self.assertEqual(lags, [("t_12", 12), ("t_8", 8), ("t_4", 4), ("t_0", 0)])
        self.assertEqual((told["values"], told["rows"], told["lostAtStart"]), (30, 18, 12))
        self.assertEqual((told["testingSamples"], told["unused"]), (0, 0))

    def test_no_training_record_looks_at_a_testing_value(self):
        for dimension, delay, samples in [(2, 1, 2), (3, 4, 2), (1, 7, 3), (4, 1, 10)]:
            with self.subTest(f"E={dimension} D={delay} T={samples}"):
                self.series()
                told = self.embed(dimension, delay, samples)
                testing = [row[0] for row in self.show("--set", "time-series-testing")["rows"]]
                expected = [29 - delay * i for i in reversed(range(samples))]
                self.assertEqual(testing, expected)
                rows = self.show()["rows"]
                self.assertEqual(max(max(row) for row in rows), testing[0] - 1)
                self.assertEqual(min(row[-1] for row in rows), dimension * delay)
                self.assertEqual(told["unused"], (samples - 1) * (delay - 1))
                used = told["lostAtStart"] + told["rows"] + told["unused"] + samples
                self.assertEqual(used, 30)

    def test_the_words_of_the_report(self):
        self.series(1, 20)
        words = ("embed", self.run_path, "--dimension", 2, "--delay", 3, "--testing-samples", 2)
        self.assertEqual(
            self.done(*words),
            f"{self.run_path} is embedded: 10 records of 3 columns\n"
            "  t_6  the value 6 before\n"
            "  t_3  the value 3 before\n"
            "  t_0  the value itself (the response)\n"
            "lost       6 values at the start, which are inputs only\n"
            "testing    2 samples, 3 values apart, in the set time-series-testing\n"
            "unused     2 values between the samples\n",
        )

    def test_from_the_monthly_file_to_the_table(self):
        self.load(PASSENGERS.read_text(), "--problem", "timeseries")
        self.embed(12, 1, 12)
        series = [int(line) for line in PASSENGERS.read_text().split()[1:]]
        rows = self.show()["rows"]
        self.assertEqual(rows, [series[t - 12 : t + 1] for t in range(12, 132)])
        shown = self.show("--set", "time-series-testing")
        self.assertEqual(shown["rows"], [[value] for value in series[132:]])
        self.assertEqual(shown["labels"], ["passengers"])

    def test_labels_and_column_records(self):
        self.series()
        self.embed(1, 5)
        self.assertEqual(self.columns(), [(0, "d0", "t_5", 0), (1, "d1", "t_0", 1)])
        labels = "SELECT SetId, [column], label FROM DataSetLabels ORDER BY SetId, [column]"
        expected = [(1, 0, "t_5"), (1, 1, "t"), (2, 0, "value")]
        self.assertEqual(query(self.run_path, labels), expected)
        original = "SELECT Label, ColumnIndex FROM OriginalDataLabels WHERE SetId = 1"
        self.assertEqual(query(self.run_path, original), [("t_5", 0), ("t_0", 1)])

    def test_statistics_are_those_of_the_embedded_records(self):
        self.series()
        self.embed(1, 5, 2)
        sql = "SELECT DataSetId, ColumnIndex, Minimum, Maximum FROM DataSetStatistics"
        self.assertEqual(
            query(self.run_path, sql + " ORDER BY DataSetId, ColumnIndex"),
            [(1, 0, 0, 18), (1, 1, 5, 23), (5, 0, 24, 29)],
        )
        sql = "SELECT ColumnIndex, Minimum, Maximum FROM DataSetStatisticsForMissing"
        self.assertEqual(query(self.run_path, sql), [(0, 0, 18), (1, 5, 23)])

    def test_the_run_is_for_a_time_series_afterwards(self):
        self.load(numbers(0, 9))
        self.embed(1, 1)
        sql = "SELECT intvalue FROM RunParameters WHERE element = 'ProblemCategory'"
        self.assertEqual(query(self.run_path, sql), [(2,)])

    def test_every_cell_leads_to_its_text(self):
        self.load("value\n" + "".join(f"{t}.50\n" for t in range(8)), "--problem", "timeseries")
        self.embed(2, 2)
        row = self.show("--original")["rows"][1]
        self.assertEqual(row, [1.5, "1.50", 3.5, "3.50", 5.5, "5.50"])
        self.assertEqual(len(query(self.run_path, "SELECT row FROM OriginalData")), 4)

    def test_the_texts_of_a_testing_set_stay(self):
        self.series(0, 9)
        self.load("value\n7.0\n8.0\n", "--set", "testing", name="later.csv")
        self.embed(2, 1)
        self.assertEqual(self.show("--set", "testing", "--original")["rows"], [[7, "7.0"], [8, "8.0"]])
        self.assertEqual(self.show("--set", "testing")["labels"], ["value"])

    def test_a_wide_embedding(self):
        self.series(0, 2010)
        self.embed(1998, 1)
        row = self.show("--original", "--rows", "13")["rows"][0]
        self.assertEqual(row[0::2], list(range(12, 2011)))
        self.assertEqual(row[1::2], [str(t) for t in range(12, 2011)])

    def test_a_second_embedding_is_refused(self):
        self.series()
        self.embed(2, 3, 1)
        self.refused(
            "the training set is embedded already, with dimension 2 and delay 3; load the series "
            "again to embed it otherwise",
            "embed", self.run_path, "--dimension", 1, "--delay", 1,
        )  # fmt: skip

    def test_a_new_series_takes_the_place_of_the_old_one(self):
        self.series()
        self.embed(2, 3, 4)
        self.load("other\n5\n6\n7\n", "--problem", "timeseries")
        self.failed(
            3,
            f"{self.run_path} has no time-series-testing set (tslm5 info tells what it has)",
            "show", self.run_path, "--set", "time-series-testing",
        )  # fmt: skip
        self.embed(1, 1, 1)
        shown = self.show("--set", "time-series-testing")
        self.assertEqual((shown["labels"], shown["rows"]), (["other"], [[7]]))

    def test_other_data_are_refused(self):
        embed = ("embed", self.run_path, "--dimension", 2, "--delay", 2)
        cases = [
            ("a,b\n1,2\n3,4\n", (), "the training set has 2 columns; a series of one column can be "
             "embedded"),
            ("a\nx\ny\nx\n", ("--problem", "timeseries", "--labels"), "the series holds words, which were coded; "
             "only numbers can be embedded"),
            ("a\n1\n0\n1\n", ("--problem", "classification"), "the run is for another problem; "
             "load the series for a time series"),
            (numbers(1, 30), ("--testing-share", "0.3"), "the training set is no series: the testing "
             "records were drawn from among its values"),
        ]  # fmt: skip
        for content, options, message in cases:
            with self.subTest(message):
                self.run_path.unlink(missing_ok=True)
                self.load(content, *options)
                self.refused(message, *embed)

    def test_a_short_series_is_told_how_long_it_must_be(self):
        self.series(1, 6)
        self.refused(
            "the series is too short: it has 6 values, but dimension 3 with delay 2 needs at least 7",
            "embed", self.run_path, "--dimension", 3, "--delay", 2,
        )  # fmt: skip
        words = ("embed", self.run_path, "--dimension", 1, "--delay", 2, "--testing-samples", 3)
        self.refused(
            "the series is too short: it has 6 values, but dimension 1 with delay 2 and 3 testing "
            "samples needs at least 8",
            *words,
        )
        self.series(1, 8)
        self.done(*words)
        self.assertEqual(self.show()["rows"], [[1, 3]])

    def test_numbers_out_of_range_are_wrong_usage(self):
        self.series()
        for option, word, low, high in [
            ("--dimension", "0", 1, 1998),
            ("--dimension", "1999", 1, 1998),
            ("--delay", "-1", 1, 2147483647),
            ("--testing-samples", "2.5", 0, 2147483647),
        ]:
            with self.subTest(option + word):
                words = {"--dimension": "2", "--delay": "2", "--testing-samples": "0", option: word}
                given = [f"{name}={value}" for name, value in words.items()]
                message = f'{option}: "{word}" is out of range; expected a whole number from {low} to {high}'
                self.failed(2, message, "embed", self.run_path, *given)

    def test_a_series_is_loaded_from_one_column(self):
        load = ("load", self.write("two.csv", "a,b\n1,2\n3,4\n"), "--run", self.run_path)
        message = "a time series is one column, but the file has 2: a, b"
        self.failed(1, message, *load, "--problem", "timeseries")
        self.failed(
            2,
            "--testing-share draws from anywhere in a series; load all of it, and tslm5 embed "
            "--testing-samples keeps values at its end for testing",
            *load, "--problem", "timeseries", "--testing-share", "0.5",
        )  # fmt: skip
        self.assertFalse(self.run_path.exists())

    def test_the_statistics_of_the_testing_samples_are_told(self):
        self.series()
        self.embed(2, 1, 2)
        words = ("stats", self.run_path, "--set", "time-series-testing", "--json")
        [column] = json.loads(self.done(*words))["columns"]
        self.assertEqual((column["label"], column["minimum"], column["maximum"]), ("value", 28, 29))

    def test_a_run_without_a_series(self):
        self.load(numbers(1, 3), "--set", "testing")
        self.failed(
            3,
            f"{self.run_path} has no training set (tslm5 load FILE --run RUN.db --problem "
            "timeseries loads a series)",
            "embed", self.run_path, "--dimension", 2, "--delay", 2,
        )  # fmt: skip

    def test_the_history_repeats_it(self):
        self.series()
        self.embed(2, 3, 4)
        step = json.loads(self.done("history", self.run_path, "--json"))["steps"][-1]
        self.assertEqual(
            step["commandLine"],
            f"tslm5 embed {self.run_path} --dimension 2 --delay 3 --testing-samples 4",
        )


if __name__ == "__main__":
    unittest.main()
