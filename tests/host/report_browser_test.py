"""The page of `tslm5 report` in a browser: its layout, its colours, its print, and its silence."""

import re
import sys
import unittest
import zlib

from browser import CHROMIUM, Browser
from host_case import HostCase

LONG = "a_label_without_any_place_to_break_it_" * 4

# What sticks out of the page to the right, but for what has a scroll bar of its own.
OVERFLOW = """
[...document.body.querySelectorAll('*')].filter(e => {
  if (e.closest('.scroll, .hidden, .axis') || e.closest('svg') !== null) return false;
  return e.getBoundingClientRect().right > document.documentElement.clientWidth + 1;
}).map(e => e.outerHTML.slice(0, 80))
"""

SIZES = "[...document.querySelectorAll('svg')].map(e => [e.clientWidth, e.clientHeight])"

# The contrast between text and what it stands on, the least of the page.
CONTRAST = """
(() => {
  const channels = colour => colour.match(/[\\d.]+/g).map(Number);
  const light = ([r, g, b]) => {
    const [x, y, z] = [r, g, b].map(c => {
      c /= 255;
      return c <= .03928 ? c / 12.92 : ((c + .055) / 1.055) ** 2.4;
    });
    return .2126 * x + .7152 * y + .0722 * z;
  };
  const behind = e => {
    for (; e; e = e.parentElement) {
      const colour = channels(getComputedStyle(e).backgroundColor);
      if (colour.length === 3 || colour[3] > 0) return colour;
    }
    return [255, 255, 255];
  };
  let least = [99, ''];
  for (const e of document.body.querySelectorAll('*')) {
    const own = [...e.childNodes].some(n => n.nodeType === 3 && n.data.trim());
    if (!own || e.closest('svg, .hidden')) continue;
    const [a, b] = [light(channels(getComputedStyle(e).color)), light(behind(e))];
    const ratio = (Math.max(a, b) + .05) / (Math.min(a, b) + .05);
    if (ratio < least[0]) least = [ratio, e.outerHTML.slice(0, 80)];
  }
  return least;
})()
"""


def brightness(colour):
    return sum(int(channel) for channel in re.findall(r"\d+", colour)[:3]) / 3


class ReportInABrowser(HostCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()

    def setUp(self):
        super().setUp()
        lines = [
            f"{i % 13}.5;{'NA' if i % 9 == 0 else i};word{i % 40};{i * 1e9};{i % 3}"
            for i in range(120)
        ]
        file = self.write("data.csv", f"size;{LONG};kind;far;class\n" + "\n".join(lines) + "\n")
        words = ("--run", self.run_path, "--no-check", "--problem", "classification")
        result = self.program("load", file, *words, "--testing-share", "0.25")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.page = self.folder / "page.html"
        self.done("report", self.run_path, "-o", self.page)
        self.browser.requests.clear()

    def series_page(self):
        file = self.write("series.csv", "level\n" + "".join(f"{i % 97}\n" for i in range(3000)))
        run, page = self.folder / "series.db", self.folder / "series.html"
        self.assertEqual(self.program("load", file, "--run", run, "--no-check").returncode, 0)
        self.done("report", run, "-o", page)
        return page

    def test_nothing_sticks_out(self):
        for page in (self.page, self.series_page()):
            for width in (1280, 768, 400, 320):
                with self.subTest(page=page.name, width=width):
                    self.browser.open(page, width=width)
                    self.assertEqual(self.browser.evaluate(OVERFLOW), [])
                    wide = self.browser.evaluate("document.documentElement.scrollWidth")
                    self.assertLessEqual(wide, width)

    def test_charts_have_a_size(self):
        for page, count in ((self.page, 10), (self.series_page(), 2)):
            for width in (1280, 400):
                self.browser.open(page, width=width)
                sizes = self.browser.evaluate(SIZES)
                self.assertEqual(len(sizes), count)
                for wide, high in sizes:
                    self.assertGreater(wide, 240)
                    self.assertGreater(high, 90)

    def test_bars_stand_inside_their_chart(self):
        self.browser.open(self.page)
        outside = self.browser.evaluate(
            "[...document.querySelectorAll('rect')].filter(e => { const a ="
            " e.getBoundingClientRect(), b = e.closest('svg').getBoundingClientRect(); return"
            " a.height < 1 || a.width < 1 || a.left < b.left - 1 || a.right > b.right + 1 || a.top"
            " < b.top - 1 || a.bottom > b.bottom + 1; }).length"
        )
        self.assertEqual(outside, 0)

    def test_light_and_dark(self):
        background = "getComputedStyle(document.body).backgroundColor"
        ink = "getComputedStyle(document.querySelector('h1')).color"
        self.browser.open(self.page, scheme="light")
        self.assertGreater(brightness(self.browser.evaluate(background)), 230)
        self.assertLess(brightness(self.browser.evaluate(ink)), 60)
        self.browser.open(self.page, scheme="dark")
        self.assertLess(brightness(self.browser.evaluate(background)), 40)
        self.assertGreater(brightness(self.browser.evaluate(ink)), 200)

    def test_every_text_can_be_read(self):
        for scheme in ("light", "dark"):
            self.browser.open(self.page, scheme=scheme)
            ratio, element = self.browser.evaluate(CONTRAST)
            self.assertGreaterEqual(ratio, 4.5, f"{scheme}: {element}")

    def test_classes_have_colours_of_their_own(self):
        self.browser.open(self.page)
        colours = self.browser.evaluate(
            "[...document.querySelectorAll('.legend .key')].map(e =>"
            " getComputedStyle(e).backgroundColor)"
        )
        self.assertEqual((len(colours), len(set(colours))), (3, 3))

    def test_on_paper(self):
        self.browser.open(self.page, scheme="dark")
        pdf = self.browser.pdf()
        self.assertTrue(pdf.startswith(b"%PDF-"))
        pages = len(re.findall(rb"/Type\s*/Page\b", pdf))
        self.assertIn(pages, range(2, 7))
        streams = re.findall(rb"stream\r?\n(.*?)endstream", pdf, re.S)
        drawn = b""
        for stream in streams:
            try:
                drawn += zlib.decompress(stream)
            except zlib.error:
                pass
        colours = {
            tuple(round(255 * float(channel)) for channel in colour.split())
            for colour in re.findall(rb"([.\d]+ [.\d]+ [.\d]+) rg", drawn)
        }
        self.assertTrue((0x3A, 0x71, 0xB0) in colours, "a bar's colour in the light scheme")
        self.assertFalse((0x12, 0x15, 0x1A) in colours, "the page's colour in the dark scheme")

    def test_it_asks_for_nothing(self):
        self.browser.open(self.page)
        self.browser.evaluate("window.scrollTo(0, document.body.scrollHeight)")
        self.assertEqual(self.browser.requests, [self.page.resolve().as_uri()])

    def test_no_script_of_the_data_runs(self):
        label, word = "<img src=x onerror=document.title=1>", "<script>document.title=2</script>"
        file = self.write("bad.csv", f"{label};b\n{word};1\nx;2\n")
        run, page = self.folder / "bad.db", self.folder / "bad.html"
        self.program("load", file, "--run", run, "--no-check")
        self.done("report", run, "-o", page)
        self.browser.open(page)
        self.assertEqual(self.browser.evaluate("document.title"), "bad.db \u2013 run report")
        elements = "document.scripts.length + document.images.length"
        self.assertEqual(self.browser.evaluate(elements), 0)
        self.assertEqual(self.browser.requests, [page.resolve().as_uri()])


if __name__ == "__main__":
    if CHROMIUM is None:
        print("skipped: there is no chromium (Debian package chromium)")
        sys.exit(0)
    unittest.main()
