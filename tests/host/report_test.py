"""`tslm5 report`: what stands on the page, and how it is written."""

import json
import re
import resource
import subprocess
import unittest

from host_case import PROGRAM, HostCase, change, plain_environment
from report_page import Page

TRAINING = "size;kind;class\n1.5;red;no\n20;NA;yes\n?;blue;no\n4;red;no\n"
TESTING = "size;kind;class\n7.25;red;yes\n.5;blue;no\n"


class ReportCase(HostCase):
    def setUp(self):
        super().setUp()
        self.page_path = self.folder / "page.html"

    def load_with_statistics(self, content, *options, name="data.csv"):
        file = self.write(name, content)
        result = self.program("load", file, "--run", self.run_path, "--no-check", *options)
        self.assertEqual(result.returncode, 0, result.stderr)

    def report(self, *options):
        printed = self.done("report", self.run_path, "-o", self.page_path, *options)
        self.assertEqual(printed, f"{self.page_path} is the report of {self.run_path}\n")
        return Page(self.page_path)


class PageTest(ReportCase):
    def setUp(self):
        super().setUp()
        options = ("--problem", "classification", "--missing=?")
        self.load_with_statistics(TRAINING, *options)
        self.load_with_statistics(TESTING, "--set", "testing", name="more.csv")
        self.page = self.report()
        self.root = self.page.root

    def test_sets(self):
        for name, numbers, share in [("training", [4, 3], "16.7"), ("testing", [2, 3], "0")]:
            card = self.root.one("article", id=f"set-{name}")
            self.assertEqual(card.numbers(), numbers)
            self.assertEqual(card.all("dd")[2].text(), f"{share}\u202f%")
        self.assertIn(str(self.folder / "more.csv"), card.text())

    def test_columns(self):
        cards = self.root.all("article", class_="column")
        self.assertEqual([card.one("h3").text() for card in cards], ["size", "kind", "class"])
        badges = [[badge.text() for badge in card.all("span", class_="badge")] for card in cards]
        self.assertEqual(badges, [["numeric"], ["categorical"], ["categorical", "response"]])

    def test_figures_are_those_of_the_statistics(self):
        cards = self.root.all("article", class_="column")
        names = ("centroid", "medoid", "standardDeviation", "minimum", "maximum")
        for set_index, name in enumerate(("training", "testing")):
            printed = self.done("stats", self.run_path, "--json", "--set", name)
            for card, column in zip(cards, json.loads(printed)["columns"]):
                rows = card.one("table").all("tr")
                self.assertEqual(rows[0].all("th")[1 + set_index].text(), name)
                for row, figure in zip(rows[1:6], names):
                    self.assertEqual(row.all("td")[set_index].numbers(), [column[figure]])

    def test_missing_share_of_a_column(self):
        row = self.root.all("article", class_="column")[0].one("table").all("tr")[6]
        self.assertEqual([cell.text() for cell in row.all("td")], ["25.0\u202f% 1", "0"])

    def test_bars_are_by_class_and_hold_every_record(self):
        names = [item.text() for item in self.root.one("ul", class_="legend").all("li")]
        self.assertEqual(names, ["class, the response:", "no", "yes"])
        svg = self.root.one("article", id="g0-column-0").all("svg")[0]
        counts = {"c0": 0, "c1": 0}
        for bar in svg.all("rect"):
            counts[bar.attributes["class"]] += int(bar.attributes["data-count"])
        self.assertEqual(counts, {"c0": 2, "c1": 1})
        for svg in self.root.all("svg"):
            self.assertTrue(svg.children[0].text() and svg.children[1].text())
            ids = [svg.children[0].attributes["id"], svg.children[1].attributes["id"]]
            self.assertEqual(svg.attributes["aria-labelledby"].split(), ids)

    def test_categories(self):
        tables = self.root.all("article", class_="categories")
        self.assertEqual([table.one("h3").text() for table in tables], ["kind", "class"])
        self.assertEqual(
            [row[:3] for row in tables[0].one("table").rows()],
            [["Category", "Code", "Records"], ["red", "1", "2"], ["blue", "3", "1"]],
        )

    def test_tokens(self):
        change(
            self.run_path,
            "UPDATE MissingMappings SET Replacement = 2.5, ReplacementType = 1 WHERE ColumnIndex = 0",
        )
        self.assertEqual(
            self.report().root.one("table", id="tokens").rows(),
            [
                ["Column", "Token", "Cells", "Replacement", "Chosen as"],
                ["size", "?", "1", "2.5", "mean"],
                ["kind", "NA", "1", "\u2013", "not chosen"],
            ],
        )

    def test_history_has_the_commands(self):
        history = json.loads(self.done("history", self.run_path, "--json"))["steps"]
        steps = self.root.one("ol", class_="steps").all("li")
        self.assertEqual(
            [step.one("pre").text() for step in steps], [one["commandLine"] for one in history]
        )
        self.assertIn("problemclassification", steps[0].one("dl").text())

    def test_the_page_is_whole_and_asks_for_nothing(self):
        self.assertTrue(self.page.source.startswith("<!DOCTYPE html>\n<html lang=\"en\">"))
        self.assertNotRegex(self.page.source, r"https?:|url\(|@import|<script|<link|<img|<iframe")
        ids = set()

        def look(element):
            for key, value in element.attributes.items():
                self.assertFalse(key == "src" or key.startswith("on"), key)
                if key == "href":
                    self.assertRegex(value, "^#")
                if key == "id":
                    self.assertNotIn(value, ids)
                    ids.add(value)
            for child in element.children:
                if not isinstance(child, str):
                    look(child)

        look(self.root)
        for link in self.root.all("a"):
            self.assertIn(link.attributes["href"][1:], ids)
        for table in self.root.all("table"):
            for head in table.one("thead").all("th"):
                self.assertEqual(head.attributes["scope"], "col")


class OtherRunsTest(ReportCase):
    def test_texts_are_harmless(self):
        label = "<script>alert(1)</script>"
        self.load_with_statistics(f"{label};b\n<b>x;1\n\"&';2\n<b>x;2\n")
        page = self.report()
        self.assertNotIn("<script", page.source)
        self.assertNotIn("<b>", page.source)
        self.assertEqual(page.root.all("article", class_="column")[0].one("h3").text(), label)
        rows = page.root.one("article", class_="categories").one("table").rows()
        self.assertEqual([row[0] for row in rows[1:]], ["<b>x", "\"&'"])

    def test_a_series_is_a_line(self):
        self.load("passengers\n" + "".join(f"{i % 7}\n" for i in range(50)))
        root = self.report().root
        path = root.one("section", id="series").one("path", class_="series").attributes["d"]
        self.assertEqual(len(re.findall("[ML]", path)), 51)
        self.assertEqual(root.all("ul", class_="legend"), [])

    def test_the_response_of_a_time_series_is_a_line(self):
        series = "level\n" + "".join(f"{i % 7}\n" for i in range(50))
        self.load(series, "--problem", "timeseries")
        self.done("embed", self.run_path, "--dimension", "2", "--delay", "1")
        section = self.report().root.one("section", id="series")
        self.assertIn("t_0, training set", section.text())
        title = section.one("svg").children[0].text()
        self.assertEqual(title, "t_0, training set: line over the records")
        self.load("a,b\n1,2\n3,4\n", "--set", "training")
        self.assertEqual(self.report().root.all("section", id="series"), [])

    def test_without_statistics_the_figures_are_those_of_the_records(self):
        self.load("a,b\n1,5\n2,6\n6,7\nNA,8\n")
        root = self.report().root
        rows = root.all("article", class_="column")[0].one("table").rows()
        self.assertEqual(
            rows[1:],
            [["Mean", "3"], ["Median", "\u2013"], ["Deviation", "2.64575"], ["Minimum", "1"],
             ["Maximum", "6"], ["Missing", "25.0\u202f% 1"]],
        )
        self.assertIn("there is no median", root.one("section", id="columns").text())

    def test_a_column_without_values(self):
        self.load("a,b\nNA,5\nNA,6\n")
        card = self.report().root.all("article", class_="column")[0]
        self.assertIn("no values", card.text())
        self.assertEqual(card.all("svg"), [])

    def test_time_series_sets_are_told_apart(self):
        self.load("a,b\n1,5\n2,6\n")
        change(self.run_path, "CREATE TABLE TimeSeriesTrainingSet (d0 FLOAT, row INTEGER PRIMARY KEY)")
        change(self.run_path, "INSERT INTO TimeSeriesTrainingSet VALUES (7.5, 1), (8.5, 2)")
        root = self.report().root
        self.assertEqual(
            [title.text() for title in root.all("h3", class_="group")],
            ["Training set", "Time series training set"],
        )
        self.assertEqual(len(root.one("section", id="series").all("svg")), 1)

    def test_the_highest_bar_is_told(self):
        self.load("a,b\n1,5\n1,6\n1,7\n2,8\n")
        captions = self.report().root.all("figcaption")
        self.assertEqual([one.all("span")[1].text() for one in captions],
                         ["highest bar 3", "highest bar 1"])

    def test_time_series_sets_are_one_group_behind_another(self):
        self.load("a,b\n1,5\n2,6\n")
        for table in ("TimeSeriesTrainingSet", "TimeSeriesTestingSet"):
            change(self.run_path, f"CREATE TABLE {table} (d0 FLOAT, row INTEGER PRIMARY KEY)")
            change(self.run_path, f"INSERT INTO {table} VALUES (7.5, 1), (8.5, 2)")
        groups = [title.text() for title in self.report().root.all("h3", class_="group")]
        self.assertEqual(len(groups), 2, groups)

    def test_a_run_without_sets(self):
        self.load("a,b\n1,5\n")
        change(self.run_path, "DROP TABLE TrainingSet")
        self.assertIn("no sets yet", self.report().root.one("section", id="sets").text())


class FileTest(ReportCase):
    def setUp(self):
        super().setUp()
        self.load("a,b\n1,5\n2,6\n")

    def refused(self, code, message, *options):
        self.failed(code, message, "report", self.run_path, *options)

    def test_a_report_is_replaced_and_nothing_is_left_beside_it(self):
        self.report()
        self.page_path.write_text(self.page_path.read_text() + "<!-- old -->")
        self.report()
        self.assertNotIn("<!-- old -->", self.page_path.read_text())
        names = sorted(path.name for path in self.folder.iterdir())
        self.assertEqual(names, ["data.csv", "page.html", "run.db"])

    def test_a_failed_write_leaves_the_former_page(self):
        self.report()
        former = self.page_path.read_bytes()
        result = subprocess.run(
            [PROGRAM, "report", self.run_path, "-o", self.page_path],
            env=plain_environment(),
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096)),
            capture_output=True, text=True, timeout=60, check=False,
        )
        self.assertEqual(result.returncode, 3)
        self.assertEqual(
            result.stderr, f"tslm5: {self.page_path} cannot be written: File too large\n"
        )
        self.assertEqual(self.page_path.read_bytes(), former)
        names = sorted(path.name for path in self.folder.iterdir())
        self.assertEqual(names, ["data.csv", "page.html", "run.db"])

    def test_another_file_is_replaced_by_force_alone(self):
        self.page_path.write_text("my own page")
        self.refused(
            2,
            f"{self.page_path} is there already and is no report; --force replaces it",
            *("-o", self.page_path),
        )
        self.assertEqual(self.page_path.read_text(), "my own page")
        self.report("--force")

    def test_the_run_is_never_replaced(self):
        before = self.run_path.read_bytes()
        link = self.folder / "link.html"
        link.symlink_to(self.run_path)
        for path in (self.run_path, link):
            self.refused(2, f"{path} is the run itself", "-o", path, "--force")
        self.assertEqual(self.run_path.read_bytes(), before)

    def test_a_link_stays_a_link(self):
        target = self.folder / "target.html"
        self.page_path.symlink_to(target)
        self.report()
        self.assertTrue(self.page_path.is_symlink() and target.is_file())

    def test_where_no_page_can_be(self):
        missing = self.folder / "none" / "page.html"
        self.refused(3, f"{missing} cannot be written: No such file or directory", "-o", missing)
        self.refused(3, f"{self.folder} is no file", "-o", self.folder)
        self.refused(2, "--output is required (see tslm5 report --help)")


if __name__ == "__main__":
    unittest.main()
