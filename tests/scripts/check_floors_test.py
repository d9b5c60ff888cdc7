"""Proves that scripts/check_floors.py finds an include that climbs, and lets the others pass."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
import check_floors  # noqa: E402


class CheckFloorsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()

    def write(self, path, *lines):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("".join(line + "\n" for line in lines), encoding="utf-8")

    def run_check(self):
        """The exit code and what was printed."""
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed), contextlib.redirect_stderr(printed):
            code = check_floors.main([str(self.root)])
        return code, printed.getvalue()

    def test_allowed_includes_pass(self):
        cases = [
            ("src/storage/a.cpp", '"storage/table.h"'),
            ("src/storage/a.cpp", '"support/text.h"'),
            ("src/storage/a.cpp", '"tslm5/engine/connection.h"'),
            ("src/storage/a.cpp", "<fmt/format.h>"),
            ("src/engine/a.cpp", "<sqlite3.h>"),
            ("src/engine/a.cpp", '"tslm5/platform/ref.h"'),
            ("src/component/a.cpp", '"datasetlite/set.h"'),
            ("include/tslm5/engine/a.h", "<string_view>"),
            ("include/tslm5/component/a.h", "<stdint.h>"),
            ("include/tslm5/platform/a.h", "<emmintrin.h>"),
            ("include/tslm5/component/a.h", '"tslm5/contracts/data_set.h"'),
            ("host/a.cpp", '"tslm5/component/create_object.h"'),
            ("host/a.cpp", "<CLI/CLI.hpp>"),
            ("host/main.cpp", '"host/commands/load.h"'),
            ("host/commands/a.cpp", '"host/program/output.h"'),
            ("host/answers/a.cpp", '"host/answers/text.h"'),
            ("examples/a.cpp", '"tslm5/engine/open_run.h"'),
            ("tests/storage/a.cpp", '"engine/statement.h"'),
            ("tests/storage/a.cpp", '"fakes/recording_engine.h"'),
            ("tests/host/a.cpp", '"host/load.h"'),
            ("tests/engine/a.cpp", "<sqlite3.h>"),
            ("bench/a.cpp", "<sqlite3.h>"),
            ("bench/a.cpp", '"datasetlite/set.h"'),
        ]
        for path, name in cases:
            with self.subTest(path=path, name=name):
                self.write(path, f"#include {name}")
                self.assertEqual(self.run_check(), (0, "1 files, 1 includes, 0 against the floors\n"))
                (self.root / path).unlink()

    def test_forbidden_includes_fail(self):
        cases = [
            ("src/support/a.cpp", '"storage/table.h"', "storage is a floor above support"),
            ("src/platform/a.h", '"tslm5/contracts/x.h"', "contracts is a floor above platform"),
            ("src/support/a.h", "<tslm5/engine/x.h>", "engine is a floor above support"),
            ("src/engine/a.h", '"tslm5/contracts/x.h"', "the engine knows nothing of datasets"),
            ("src/engine/a.cpp", '"delimited/x.h"', "the engine knows nothing of delimited text"),
            ("src/delimited/a.cpp", '"storage/x.h"', "storage is a floor above delimited"),
            ("src/storage/a.cpp", '"engine/statement.h"', "the engine is a library of its own"),
            ("src/storage/a.cpp", "<sqlite3.h>", "only src/engine/ knows SQLite"),
            ("host/a.cpp", "<sqlite3.h>", "only src/engine/ knows SQLite"),
            ("tests/storage/a.cpp", "<sqlite3.h>", "only src/engine/ knows SQLite"),
            ("src/inmemory/a.cpp", '"datasetlite/set.h"', "do not know each other"),
            ("src/original/a.cpp", '"inmemory/set.h"', "do not know each other"),
            ("src/datacheck/a.cpp", '"storage/table.h"', "where the data will be kept"),
            ("src/statistics/a.cpp", '"datasetlite/set.h"', "a floor above statistics"),
            ("src/component/a.cpp", '"host/load.h"', "may not look into host/"),
            ("src/storage/a.cpp", '"tests/fakes/engine.h"', "may not look into tests/"),
            ("src/cellar/a.cpp", '"tslm5/platform/x.h"', "cellar is no room of the house"),
            ("include/tslm5/engine/a.h", '"engine/x.h"', "public headers alone"),
            ("include/tslm5/contracts/a.h", '"tslm5/engine/x.h"', "a floor above contracts"),
            ("include/tslm5/platform/a.h", "<fmt/format.h>", "nothing but the standard library"),
            ("include/tslm5/platform/a.h", "<dlfcn.h>", "nothing but the standard library"),
            ("host/a.cpp", '"support/text.h"', "the public headers in include/tslm5/ alone"),
            ("host/program/a.cpp", '"host/commands/x.h"', "commands is a floor above program"),
            ("host/charts/a.cpp", '"host/preparation/x.h"', "do not know each other"),
            ("host/charts/a.cpp", '"host/x.h"', "what stands in host/ itself is above charts"),
            ("host/cellar/a.cpp", '"host/program/x.h"', "cellar is no room of the host"),
            ("examples/a.cpp", '"platform/x.h"', "the public headers in include/tslm5/ alone"),
            ("tests/storage/a.cpp", '"host/load.h"', "may not look into host/"),
            ("bench/a.cpp", '"host/load.h"', "may not look into host/"),
            ("src/support/a.cpp", "HEADER_NAME", "names its file plainly"),
        ]
        for path, name, reason in cases:
            with self.subTest(path=path, name=name):
                self.write(path, "", f"  # include {name}  // why not")
                code, printed = self.run_check()
                self.assertEqual(code, 1)
                self.assertIn(f"{path}:2: includes {name.strip(chr(34) + '<>')}: ", printed)
                self.assertIn(reason, printed)
                (self.root / path).unlink()

    def test_a_path_through_the_parent_folder_climbs_too(self):
        self.write("src/datasetlite/set.h")
        self.write("src/storage/a.cpp", '#include "../datasetlite/set.h"')
        code, printed = self.run_check()
        self.assertEqual(code, 1)
        self.assertIn("datasetlite is a floor above storage", printed)

    def test_a_bare_name_means_the_file_beside(self):
        self.write("src/storage/table.h")
        self.write("src/storage/a.cpp", '#include "table.h"')
        self.assertEqual(self.run_check()[0], 0)

    def test_sql_outside_of_its_rooms_fails(self):
        statements = [
            "SELECT d0 FROM TrainingSet",
            "DELETE FROM RunHistory",
            "INSERT INTO RunHistory VALUES (1)",
            "UPDATE TrainingSet SET d0 = 1",
            "CREATE TABLE Other (a)",
            "DROP TABLE Other",
            "PRAGMA user_version",
        ]
        for path in ("host/commands/a.cpp", "src/datasetlite/a.cpp", "examples/a.cpp"):
            for statement in statements:
                with self.subTest(path=path, statement=statement):
                    self.write(path, f'Execute("{statement}");')
                    code, printed = self.run_check()
                    self.assertEqual(code, 1)
                    self.assertIn(f'{path}:1: "{statement}": SQL belongs to', printed)
                    (self.root / path).unlink()

    def test_sql_in_its_rooms_and_words_that_are_none_pass(self):
        cases = [
            ("src/storage/a.cpp", 'Execute("SELECT 1");'),
            ("src/run/a.cpp", 'Execute("DROP TABLE Other");'),
            ("src/engine/a.cpp", 'Execute("PRAGMA user_version");'),
            ("tests/storage/a.cpp", 'Execute("SELECT 1");'),
            ("host/commands/a.cpp", '// Execute("SELECT 1");'),
            ("host/commands/a.cpp", 'Print("select a column, UPDATE it");'),
        ]
        for path, line in cases:
            with self.subTest(path=path, line=line):
                self.write(path, line)
                self.assertEqual(self.run_check()[0], 0)
                (self.root / path).unlink()

    def test_a_root_without_sources_is_an_error(self):
        code, printed = self.run_check()
        self.assertEqual(code, 2)
        self.assertIn("no source file", printed)


if __name__ == "__main__":
    unittest.main()
