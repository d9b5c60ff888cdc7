"""`tslm5 history`: what was done to a run, and the commands that do it again."""

import json
import subprocess
import unittest
from pathlib import Path

from host_case import PROGRAM, HostCase, change, dump, plain_environment, query


class HistoryTest(HostCase):
    def steps(self):
        printed = self.done("history", self.run_path, "--json")
        answer = json.loads(printed)
        self.assertEqual(answer["run"], str(self.run_path))
        return answer["steps"]

    def repeat(self, line, run):
        """Lets a shell run a command line of the history, into another run."""
        line = line.replace(str(self.run_path), str(run))
        line = line.replace("tslm5 ", PROGRAM + " ", 1)
        result = subprocess.run(
            ["bash", "-c", line], capture_output=True, text=True, check=False, cwd="/",
            env=plain_environment(),  # fmt: skip
        )
        self.assertEqual((result.returncode, result.stderr), (0, ""), line)

    def content(self, run):
        return [line for line in dump(run) if "RunHistory" not in line]

    def test_tells_a_load_in_words(self):
        self.load("a,b\n1,2\n3,4\n", name="odd name.csv")
        time = query(self.run_path, "SELECT Time FROM RunHistory")[0][0]
        text = self.done("history", self.run_path)
        lines = text.splitlines()
        self.assertEqual(lines[0], f"{self.run_path}: 1 step")
        self.assertEqual(lines[2], f"1  {time}  load  training set")
        self.assertEqual(lines[3], f"   file: {self.folder}/odd name.csv")
        self.assertIn("   separator: comma", lines)
        self.assertIn("   rows: 2", lines)
        self.assertTrue(lines[-1].startswith(f"   tslm5 load '{self.folder}/odd name.csv' --run "))

    def test_the_lines_do_it_again(self):
        self.load("1;2\n3;4\n", "--no-labels", name="odd $name's.csv")
        self.load("5;6\n", "--set", "testing", "--no-labels", "--separator", "semicolon",
                  name="testing.csv")
        steps = self.steps()
        self.assertEqual([step["set"] for step in steps], ["training", "testing"])
        again = self.folder / "again.db"
        for step in steps:
            self.repeat(step["commandLine"], again)
        self.assertEqual(self.content(again), self.content(self.run_path))

    def test_a_preparation_is_done_again_by_its_line(self):
        rows = "".join(f"w {i % 3},{i},{'it' if i % 2 else 'n o'},n.a.\nw {i % 2},-9,it,{i}\nw 0,{i},it,$x\n"
                       for i in range(20))
        self.load(
            "the word,b,is it,d\n" + rows,
            *("--response", "is it", "--problem", "binary", "--testing-share", "0.25"),
            *("--seed", "11", "--normalize", "range:-2:3", "--positive-class", "n o"),
            *("--missing", "n.a.,$x", "--missing=-9"), name="it's.csv",
        )
        again = self.folder / "again.db"
        (step,) = self.steps()
        self.repeat(step["commandLine"], again)
        self.assertEqual(self.content(again), self.content(self.run_path))
        self.assertEqual(step["parameters"]["missing"], ["n.a.", "$x", "-9"])
        self.assertEqual(step["parameters"]["positiveClass"], "n o")

    def test_a_second_file_is_loaded_again_by_the_line(self):
        testing = self.write("test ing.csv", "a;b\ny;4\n")
        self.load("a,b\nx,1\ny,2\n", "--testing", testing)
        again = self.folder / "again.db"
        (step,) = self.steps()
        self.assertEqual(step["parameters"]["testing"], str(testing))
        self.repeat(step["commandLine"], again)
        self.assertEqual(self.content(again), self.content(self.run_path))

    def test_a_load_that_noted_no_words_is_told_by_its_parameters(self):
        self.load("1,2\n3,4\n", "--no-labels")
        change(
            self.run_path,
            "UPDATE RunHistory SET Parameters = "
            """'{"separator":"comma","labels":false,"layout":"rows","rows":2,"columns":2}'""",
        )
        step = self.steps()[0]
        self.assertEqual(
            step["commandLine"],
            f"tslm5 load {self.folder}/data.csv --run {self.run_path} --set training "
            "--separator comma --no-labels --layout rows",
        )
        self.assertEqual(step["parameters"]["rows"], 2)

    def test_a_load_by_the_fixed_rules_names_its_locale(self):
        file = self.write("comma.csv", "v;w\n1,5;2\n2,5;3\n")
        self.done("load", file, "--run", self.run_path, "--fixed", LC_ALL="de_DE.UTF-8")
        (step,) = self.steps()
        self.assertEqual(step["parameters"]["locale"], "de_DE.UTF-8")
        self.assertTrue(step["commandLine"].startswith("LC_ALL=de_DE.UTF-8 tslm5 load "), step)
        self.assertIn(" --fixed", step["commandLine"])

    def test_a_load_names_the_dialect_that_it_found(self):
        file = self.write("comma.csv", "by hand\nu;v;w\n1,5;2;3\n2,5;3;5\n3;1;1\n")
        self.done("load", file, "--run", self.run_path, "--skip-lines", "auto")
        (step,) = self.steps()
        self.assertNotIn("locale", step["parameters"])
        self.assertEqual(step["parameters"]["decimal"], "comma")
        self.assertIn(" --decimal=comma", step["commandLine"])

    def test_a_step_of_another_program_is_told_without_a_line(self):
        self.load("a,b\n1,2\n")
        change(
            self.run_path,
            "INSERT INTO RunHistory VALUES (NULL, 'then', 'mend\x1b', 0, '', 'no object')",
        )
        step = self.steps()[1]
        self.assertEqual(
            step,
            {"time": "then", "command": "mend\x1b", "set": None, "file": None, "parameters": {},
             "commandLine": None},
        )
        text = self.done("history", self.run_path)
        self.assertTrue(text.endswith("\n2  then  mend\\u{001B}\n"), text[-80:])

    def test_a_run_without_history(self):
        self.load("a,b\n1,2\n")
        change(self.run_path, "DROP TABLE RunHistory")
        self.assertEqual(self.steps(), [])
        self.assertEqual(self.done("history", self.run_path), f"{self.run_path}: 0 steps\n")

    def test_no_run(self):
        absent = self.folder / "absent.db"
        self.assertEqual(self.program("history", absent).returncode, 3)
        self.assertFalse(Path(absent).exists())


if __name__ == "__main__":
    unittest.main()
