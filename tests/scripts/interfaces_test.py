"""Holds docs/interfaces.md to the public headers: interfaces, slots in order, arguments, results.

The document gives each interface a heading "### `IName`" and a table whose lines begin with the
number, the call and the result of one operation, as `rows_of` makes them from the header.
"""

import pathlib
import re
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT = TOP / "docs" / "interfaces.md"
HEADERS = TOP / "include" / "tslm5"

# Where a class says which interfaces it answers for.
FACETS = {
    "DataSetLite": "src/datasetlite/data_set_lite.cpp",
    "InMemorySet": "src/inmemory/in_memory_set.cpp",
    "OriginalDataSet": "src/original/original_data_set.cpp",
    "RunCatalog": "src/run/run_catalog_object.cpp",
    "RunPreparation": "src/preparation/run_preparation_object.cpp",
}

RESULTS = {
    "void": "–",
    "bool": "boolean",
    "std::int32_t": "integer",
    "std::uint32_t": "integer",
    "std::int64_t": "integer",
    "double": "number",
    "std::string": "text",
    "std::string_view": "text view",
    "Variant": "variant",
    "const DelimitedDialect&": "dialect",
    "const DelimitedHeader&": "header",
    "const DelimitedCounts&": "counts",
    "const std::vector<DelimitedFinding>&": "findings",
    "DataCheckResult": "check result",
}


def without_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", "", text, flags=re.S)


def call_of(name, arguments):
    """The call as the document writes it; what the operation writes to is marked "out"."""
    shown = []
    for argument in re.split(r",(?![^<]*>)", " ".join(arguments.split())):
        if not argument.strip():
            continue
        words = argument.strip()
        is_out = "const " not in words and ("&" in words or "**" in words or "double*" in words)
        is_out = is_out or "std::span<std::string_view>" in words
        shown.append(("out " if is_out else "") + re.findall(r"\w+", words)[-1])
    return f"{name}({', '.join(shown)})"


def result_of(kind):
    kind = " ".join(kind.split())
    reference = re.fullmatch(r"Ref<(\w+)>", kind)
    return f"`{reference[1]}`" if reference else RESULTS[kind]


def interfaces():
    """Each interface of the headers: its header and the (call, result) of its operations."""
    found = {}
    for header in sorted(HEADERS.rglob("*.h")):
        text = without_comments(header.read_text())
        for name, body in re.findall(r"\nclass (I[A-Z]\w*)[^;{]*\{(.*?)\n\};", text, re.S):
            operations = re.findall(r"virtual ([^;()]+?)\s(\w+)\(([^;]*?)\)[^;()]*= 0;", body, re.S)
            calls = [(call_of(word, given), result_of(kind)) for kind, word, given in operations]
            assert len(calls) == body.count("= 0;"), name
            found[name] = (header.relative_to(HEADERS).as_posix(), calls)
    return found


def rows_of(operations):
    return [f"| {i + 1} | `{call}` | {result} |" for i, (call, result) in enumerate(operations)]


class Interfaces(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.text = DOCUMENT.read_text()
        parts = re.split(r"^### `(I\w+)`", self.text, flags=re.M)
        self.names = parts[1::2]
        self.sections = dict(zip(self.names, parts[2::2]))

    def test_every_interface_has_its_section(self):
        self.assertGreater(len(interfaces()), 30)
        self.assertCountEqual(self.names, interfaces())

    def test_slots_arguments_and_results_are_those_of_the_headers(self):
        for name, (header, operations) in interfaces().items():
            with self.subTest(name):
                section = self.sections.get(name, "")
                self.assertIn(f"`{header}`", section.splitlines()[0] if section else "")
                lines = re.findall(r"^(\| \d+ \| `[^`]*` \| [^|]* \|)(.*)\|$", section, re.M)
                self.assertEqual([line for line, _ in lines], rows_of(operations))
                self.assertTrue(all(len(words.split()) > 1 for _, words in lines))

    def test_classes_have_the_interfaces_that_they_answer_for(self):
        for name, source in FACETS.items():
            with self.subTest(name):
                answered = re.findall(r"pId == (I\w+)::kId", (TOP / source).read_text())
                answered = [one for one in answered if one in interfaces()]
                self.assertGreater(len(answered), 2)
                line = re.search(rf"^\| `{name}` \|[^|]*\|([^|]*)\|$", self.text, re.M)
                self.assertIsNotNone(line)
                self.assertCountEqual(re.findall(r"`(I\w+)`", line[1]), answered)


if __name__ == "__main__":
    unittest.main()
