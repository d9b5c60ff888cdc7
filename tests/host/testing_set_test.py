"""The testing set of a prepared run: from a second file, drawn from the first, or loaded later."""

import json
import unittest

from host_case import HostCase, change, query

TRAINING = "colour,wind,answer\nred,1,no\nblue,NA,yes\nred,3,no\n"
RECORDS = [(f"w{i % 3}", i, i % 2) for i in range(1, 41)]
MANY = "word,number,answer\n" + "".join(f"{w},{n},{a}\n" for w, n, a in RECORDS)


class TestingSetTest(HostCase):
    def load_warned(self, content, *options, name="data.csv"):
        """A load that has something to warn of; its JSON object, whose warnings it complains of."""
        file = self.write(name, content)
        words = ("load", file, "--run", self.run_path, "--json", "--no-stats")
        result = self.program(*words, *options)
        self.assertEqual(result.returncode, 0, result.stderr)
        loaded = json.loads(result.stdout)
        self.assertEqual(
            result.stderr, "".join(f"tslm5: warning: {text}\n" for text in loaded["warnings"])
        )
        return loaded

    def texts(self, table):
        """The keys, numbers and texts of a set, joined."""
        return query(
            self.run_path,
            f"SELECT t.row, t.d0, od.d0, t.d1, od.d1 FROM {table} t JOIN OriginalData od ON "
            "od.row = t.row ORDER BY t.row",
        )

    def test_a_second_file(self):
        testing = self.write("testing.csv", "colour,wind,answer\nblue,7,yes\nred,?,yes\n")
        loaded = self.load(TRAINING, "--testing", testing)
        self.assertEqual((loaded["rows"], loaded["preparation"]["testingRows"]), (3, 2))
        self.assertEqual(
            self.texts("TestingSet"), [(4, 2, "blue", 7, "7"), (5, 1, "red", None, "?")]
        )
        self.assertEqual(
            query(self.run_path, "SELECT * FROM MissingMappings"),
            [(1, 1, 1, "NA", None, 0), (2, 1, 1, "?", None, 0)],
        )
        self.assertEqual(
            query(self.run_path, "SELECT SUM(MissingCount) FROM DataSetColumn"), [(1,)]
        )
        self.assertEqual(
            query(self.run_path, "SELECT CategoryCount FROM DataSetColumnCategories"),
            [(2,), (1,), (2,), (1,)],
        )
        info = json.loads(self.done("info", self.run_path, "--json"))
        self.assertEqual([set_["file"] for set_ in info["sets"]],
                         [str(self.folder / "data.csv"), str(testing)])

    def test_the_response_moves_in_both_files(self):
        testing = self.write("testing.csv", "answer;colour\nyes;red\n")
        self.load("answer,colour\nno,red\nyes,blue\n", "--response", "answer", "--testing", testing,
                  "--labels")
        self.assertEqual(self.show("--set", "testing", "--original")["rows"],
                         [[1, "red", 1, "yes"]])

    def test_a_share_is_drawn_by_the_seed(self):
        def drawn(*options):
            loaded = self.load(MANY, "--testing-share", "0.3", *options)
            training, testing = self.texts("TrainingSet"), self.texts("TestingSet")
            self.assertEqual((len(training), len(testing)), (28, 12))
            self.assertEqual((loaded["rows"], loaded["preparation"]["testingRows"]), (28, 12))
            records = sorted(training + testing)
            self.assertEqual([key for key, *_ in records], list(range(1, 41)))
            for (key, _, word, number, text), record in zip(records, RECORDS):
                self.assertEqual((word, number, text), (record[0], record[1], str(record[1])), key)
            return [key for key, *_ in testing]

        one = drawn("--seed", "1")
        self.assertEqual(drawn("--seed", "1"), one)
        self.assertEqual(drawn(), one)
        self.assertEqual(one, [3, 5, 6, 8, 14, 19, 22, 23, 24, 25, 26, 30])
        self.assertNotEqual(drawn("--seed", "2"), one)
        self.assertEqual(
            query(self.run_path, "SELECT element, intvalue, floatvalue FROM RunParameters WHERE "
                  "element IN ('Seed', 'TestingShare')"),
            [("TestingShare", None, 0.3), ("Seed", 2, None)],
        )

    def test_the_history_notes_the_share(self):
        self.load(MANY, "--testing-share", "0.25", "--seed", "3")
        (step,) = json.loads(self.done("history", self.run_path, "--json"))["steps"]
        self.assertEqual(step["parameters"]["testingShare"], 0.25)
        self.assertEqual(step["parameters"]["seed"], 3)

    def test_the_history_draws_the_same_again(self):
        self.load(MANY, "--testing-share", "0.5")
        step = json.loads(self.done("history", self.run_path, "--json"))["steps"][0]
        self.assertEqual(step["set"], "training and testing")
        self.assertIn("--testing-share 0.5 --seed 1", step["commandLine"])
        self.assertEqual((step["parameters"]["seed"], step["parameters"]["testingRows"]), (1, 20))

    def test_a_category_that_training_never_saw(self):
        self.load(TRAINING)
        loaded = self.load_warned(
            "colour,wind,answer\ngreen,1,no\nred,2,no\nAmber,3,maybe\ngreen,4,yes\n",
            *("--set", "testing"),
        )
        self.assertEqual(
            loaded["preparation"]["unseenCategories"],
            [{"label": "colour", "value": "green", "code": 3.0, "count": 2},
             {"label": "colour", "value": "Amber", "code": 4.0, "count": 1},
             {"label": "answer", "value": "maybe", "code": 2.0, "count": 1}],
        )
        self.assertEqual(
            loaded["warnings"],
            ['the testing set holds 3 categories that no training record has; the first: "green" in '
             "the column colour, coded 3"],
        )
        self.assertEqual(
            query(self.run_path, "SELECT * FROM DataSetColumnCategories WHERE CategoryCount = 0"),
            [("d0", "green", 3, 0), ("d0", "Amber", 4, 0), ("d2", "maybe", 2, 0)],
        )
        self.assertEqual([row[0] for row in self.show("--set", "testing")["rows"]], [3, 1, 4, 3])
        file = self.folder / "data.csv"
        text = self.program("load", file, "--run", self.run_path, "--set", "testing").stdout
        self.assertIn(
            'unseen     colour: "green" in 2 testing records, in no training record, coded 3\n', text
        )

    def test_many_unseen_categories_are_counted(self):
        testing = self.write("testing.csv", "a,b\n" + "".join(f"new{i},1\n" for i in range(30)))
        file = self.write("training.csv", "a,b\nold,1\nolder,2\n")
        result = self.program("load", file, "--run", self.run_path, "--testing", testing)
        lines = [line for line in result.stdout.splitlines() if "in no training record" in line]
        (more,) = [line for line in result.stdout.splitlines() if line.strip().startswith("and ")]
        self.assertEqual(more.strip(), f"and {30 - len(lines)} more")

    def test_other_labels_of_a_later_testing_set_are_told(self):
        self.load(TRAINING)
        loaded = self.load_warned("colour,gust,answer\nred,1,no\n", "--set", "testing")
        self.assertEqual(len(loaded["warnings"]), 1)
        self.assertIn("gust", loaded["warnings"][0])

    def test_a_load_that_brings_a_testing_set_may_have_other_columns(self):
        self.load("a,b,c\n1,2,3\n4,5,6\n7,8,9\n", "--testing-share", "0.4")
        self.load("a,b\n1,2\n4,5\n7,8\n", "--testing-share", "0.4")
        self.assertEqual(self.show("--set", "testing")["labels"], ["a", "b"])
        testing = self.write("testing.csv", "a,b,c,d\nx,1,2,3\n")
        self.load("a,b,c,d\nx,1,2,3\ny,4,5,6\n", "--testing", testing)
        self.assertEqual(self.show("--set", "testing")["labels"], ["a", "b", "c", "d"])

    def test_another_testing_set_forgets_the_categories_of_the_former(self):
        self.load(TRAINING)
        self.load_warned("colour,wind,answer\ngreen,1,no\n", "--set", "testing")
        self.load_warned("colour,wind,answer\nAmber,1,no\n", "--set", "testing")
        self.assertEqual(
            query(self.run_path, "SELECT * FROM DataSetColumnCategories WHERE CategoryCount = 0"),
            [("d0", "Amber", 3, 0)],
        )

    def test_an_unseen_class_is_one_of_the_others_beside_a_positive_class(self):
        self.load(TRAINING, "--positive-class", "no")
        self.load_warned("colour,wind,answer\nred,1,maybe\nred,2,no\n", "--set", "testing")
        self.assertEqual([row[2] for row in self.show("--set", "testing")["rows"]], [0, 1])
        self.assertEqual(
            query(self.run_path, "SELECT intvalue FROM RunParameters WHERE element = 'Merging'"),
            [(1,)],
        )

    def test_a_later_set_is_coded_by_what_the_run_holds(self):
        self.load(TRAINING, "--missing", "none")
        change(self.run_path, "UPDATE DataSetColumnCategories SET NumericValue = 7.5 WHERE "
               "NominalValue = 'blue'")
        change(self.run_path, "UPDATE MissingMappings SET Replacement = 9, ReplacementType = 2")
        self.load("colour,wind,answer\nblue,none,yes\nred,NA,no\n", "--set", "testing", "--labels")
        self.assertEqual(
            self.texts("TestingSet"), [(4, 7.5, "blue", None, "none"), (5, 1, "red", None, "NA")]
        )
        self.assertEqual(
            query(self.run_path, "SELECT * FROM MissingMappings"),
            [(1, 1, 2, "NA", 9, 2), (2, 1, 1, "none", None, 0)],
        )
        self.load("colour,wind,answer\nblue,5,yes\n", "--set", "testing")
        self.assertEqual(
            query(self.run_path, "SELECT MissingCount, OriginalValue FROM MissingMappings"),
            [(1, "NA")],
        )

    def test_numbers_alone_are_coded_too_in_a_prepared_run(self):
        self.load_warned("a,b\nx,1\n5,2\n")
        self.load("a,b\n5,3\n", "--set", "testing")
        self.assertEqual(self.show("--set", "testing")["rows"], [[2, 3]])

    def test_the_response_is_where_the_run_has_it(self):
        self.load("answer,wind\n1,5\n2,6\n", "--response", "answer")
        self.load("answer,wind\n3,7\n", "--set", "testing")
        self.assertEqual(self.show("--set", "testing")["rows"], [[7, 3]])

    def test_missing_cells_in_a_run_of_numbers(self):
        self.load("a,b\n1,5\n3,6\n")
        self.load("a,b\nNA,7\n", "--set", "testing")
        self.assertEqual(self.show("--set", "testing")["rows"], [[None, 7]])
        self.assertEqual(query(self.run_path, "SELECT ColumnIndex, OriginalValue FROM "
                               "MissingMappings"), [(0, "NA")])
        self.assertEqual(
            query(self.run_path, "SELECT Average, Minimum, Maximum FROM "
                  "DataSetStatisticsForMissing"),
            [(2, 1, 3), (5.5, 5, 6)],
        )

    def test_a_new_training_set_prepares_the_testing_set_anew(self):
        self.load(TRAINING)
        self.load("colour,wind,answer\nblue,7,yes\nred,NA,no\n", "--set", "testing")
        warning = "the testing set of the run was prepared anew, by the new training set"
        loaded = self.load_warned(
            "colour,wind,answer\nblue,1,yes\ngreen,9,no\nred,5,yes\nred,5,no\n",
            *("--normalize", "minmax"),
        )
        self.assertEqual(loaded["warnings"], [warning])
        self.assertEqual(
            self.texts("TestingSet"), [(5, 1, "blue", 0.75, "7"), (6, 3, "red", None, "NA")]
        )
        self.assertEqual([row[2] for row in self.show("--set", "testing")["rows"]], [0, 1])

    def test_a_share_and_then_other_sets(self):
        self.load(MANY, "--testing-share", "0.3")
        self.load_warned("word,number,answer\nw1,1,0\nw2,2,1\nw0,4,1\n")
        testing = self.texts("TestingSet")
        self.assertEqual(len(testing), 12)
        self.assertEqual(testing[0][0], 4)
        for _, code, word, number, text in testing:
            self.assertEqual((code, number), ({"w1": 1, "w2": 2, "w0": 3}[word], float(text)))
        self.load(MANY, "--testing-share", "0.3")
        self.load("word,number,answer\nw1,77,0\n", "--set", "testing")
        ((key, _, word, number, text),) = self.texts("TestingSet")
        self.assertEqual((word, number, text), ("w1", 77, "77"))
        self.assertEqual(key, 1 + max(row[0] for row in self.texts("TrainingSet")))
        self.assertEqual(query(self.run_path, "SELECT COUNT(*) FROM OriginalData"), [(29,)])


if __name__ == "__main__":
    unittest.main()
