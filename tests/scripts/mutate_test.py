"""Proves that scripts/mutate finds the places of faults, writes faults that compile, and judges them."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))
from mutation import building, equivalent, trials  # noqa: E402
from mutation.operators import sites  # noqa: E402
from mutation.rewriting import choose, describe, mutant_at, rewrite  # noqa: E402
from mutation.tokens import Source  # noqa: E402

PROGRAM = """
#include <algorithm>
#include <cstdio>
#include <vector>
namespace {
constexpr int kLimit = 3;
struct Pair {
  int first = 1;
};
int Count(const std::vector<int>& values, bool all) {
  int count = 0;
  for (const int value : values) {
    if (value < kLimit || all) ++count;  // "value > 1" is no place
    if (value == 9 && !all) continue;
    count += std::min(value, 5);
  }
  return count - 1;
}
}  // namespace
int main() {
  std::printf("%d\\n", Count({1, 2, 9}, false));
}
"""


def places(body):
    """What can be made faulty in a function's body: the operator, the place and the fault."""
    source = Source("void F() {\n" + body + "\n}\n")
    return [(one.operator, source.between(one.first, one.last), one.fault) for one in sites(source)]


class PlacesTest(unittest.TestCase):
    def test_operators_have_their_operands(self):
        self.assertIn(
            ("comparison: < -> <=", "a + f(b, c) < d.e[0]", "a + f(b, c) <= d.e[0]"),
            places("x = y && a + f(b, c) < d.e[0] || z;"),
        )
        self.assertIn(("logic: && -> ||", "a == b && !c", "a == b || !c"), places("return a == b && !c || d;"))
        self.assertIn(("sign: - -> +", "a * b - c", "a * b + c"), places("f(a * b - c < d);"))

    def test_template_brackets_and_references_are_no_operators(self):
        self.assertEqual(places("std::vector<int>&& v = Make<T>(x);"), [])

    def test_statements_are_removed_but_declarations_stay(self):
        removed = [place for operator, place, _ in places(
            "int a = f();\nconst Guard guard(a);\nStore(a);\nif (b) a = c;\nT* p = q;\nfor (; i < n; ++i) g();"
        ) if operator.startswith("removed")]  # fmt: skip
        self.assertEqual(removed, ["Store(a);", "a = c;", "g();"])

    def test_conditions_are_negated_and_never_true(self):
        faults = [fault for operator, _, fault in places("if (f(a)) return;") if "condition" in operator]
        self.assertEqual(faults, ["!(f(a))", "false"])
        self.assertEqual([one for one in places("if (T x = f(); x) g();") if "condition" in one[0]], [])

    def test_what_does_not_run_is_left_alone(self):
        for text in ("constexpr int k = 1;", "struct A { int a = 1; };", "enum class E { kA = 1 };",
                     "constexpr int F() { return 1; }", "const int kTable[] = {1, 2};"):  # fmt: skip
            self.assertEqual(list(sites(Source(text))), [], text)


class RewritingTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "a.cpp").write_text(PROGRAM, encoding="utf-8")

    def test_a_seed_draws_the_same_faults_again(self):
        self.assertEqual(choose(self.folder, ["a.cpp"], 5, 7), choose(self.folder, ["a.cpp"], 5, 7))
        self.assertNotEqual(choose(self.folder, ["a.cpp"], 5, 7), choose(self.folder, ["a.cpp"], 5, 8))

    def test_each_fault_is_chosen_when_the_program_runs(self):
        mutants = choose(self.folder, ["a.cpp"], 1000, 1)
        text = rewrite(PROGRAM, mutants, str(building.SWITCH), "a.cpp")
        self.assertEqual(text.count("\n"), PROGRAM.count("\n") + 2, "every line is where it was")
        program = self.compiled(text)
        printed = {"": self.printed(program)}
        for mutant in mutants:
            printed.setdefault(mutant.operator, self.printed(program, TSLM5_MUTANT=str(mutant.number)))
        self.assertEqual(printed[""], "4\n")
        self.assertEqual(printed["comparison: < -> <="], "4\n", "cannot matter here")
        self.assertEqual(printed["logic: && -> ||"], "1\n")
        self.assertEqual(printed["removed: continue"], "9\n")
        self.assertEqual(printed["sign: - -> +"], "6\n")

    def compiled(self, text):
        source, program = self.folder / "mutated.cpp", self.folder / "mutated"
        source.write_text(text, encoding="utf-8")
        command = [os.environ.get("CXX", "c++"), "-std=c++20", "-Wall", "-Werror"]
        subprocess.run([*command, "-o", program, source], check=True)
        return program

    def printed(self, program, **environment):
        result = subprocess.run([program], env={**os.environ, **environment}, capture_output=True, text=True)
        return result.stdout

    def test_the_places_that_a_program_reaches_are_noted(self):
        text = PROGRAM.replace("{1, 2, 9}", "{}")
        (self.folder / "a.cpp").write_text(text, encoding="utf-8")
        mutants = choose(self.folder, ["a.cpp"], 1000, 1)
        program = self.compiled(rewrite(text, mutants, str(building.SWITCH), "a.cpp"))
        unit = trials.Unit("unit", "host", [str(program)], str(self.folder), {})
        self.assertTrue(trials.measure(unit))
        reached = {one.operator for one in mutants if one.number in unit.reached}
        self.assertIn("sign: - -> +", reached)
        self.assertNotIn("logic: && -> ||", reached)

    def test_an_error_of_the_compiler_is_laid_at_the_shortest_place(self):
        source = Source(PROGRAM)
        mutants = [describe(n, "a.cpp", site, source) for n, site in enumerate(sites(source), start=1)]
        line = PROGRAM.splitlines().index("    count += std::min(value, 5);") + 1
        self.assertEqual(mutant_at(mutants, "a.cpp", line).before, "count += std::min(value, 5);")
        self.assertIsNone(mutant_at(mutants, "b.cpp", line))


class TrialsTest(unittest.TestCase):
    def unit(self, name, room, script, seconds):
        return trials.Unit(name, room, ["bash", "-c", script], "/", {}, seconds, frozenset({3}))

    def test_the_first_test_that_fails_catches_a_fault(self):
        units = [
            self.unit("slow", "engine", '[ "$TSLM5_MUTANT" != 3 ]', 0.2),
            self.unit("quick", "engine", "true", 0.1),
            self.unit("elsewhere", "host", "false", 0.01),
        ]
        self.assertEqual(trials.try_mutant(3, "engine", units), ("failed", "slow", 2))
        self.assertEqual(trials.try_mutant(3, "engine", units[1:2]), ("survived", "", 1))
        self.assertEqual(trials.try_mutant(4, "engine", units), ("survived", "", 0), "nothing reaches it")

    def test_a_fault_that_never_ends_is_caught(self):
        self.assertEqual(trials.execute(self.unit("hangs", "host", "sleep 60", 0), 0.2), "hung")


class EquivalentTest(unittest.TestCase):
    def test_every_entry_of_the_list_has_a_reason(self):
        for key, reason in equivalent.read_reasons().items():
            self.assertGreater(len(reason), 20, key)


if __name__ == "__main__":
    unittest.main()
