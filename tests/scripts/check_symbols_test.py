"""Proves that scripts/check_symbols.sh finds a symbol too many, one too few, and a forbidden call.

Builds small libraries by the compiler named in CXX (c++ when it is not set).
"""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_symbols.sh"
COMPILER = os.environ.get("CXX", "c++")

HEADER = """
/* Plain C, with a decoy: int32_t NotDeclared(void); */
#include <stdint.h>
#define TSLM5_FAILED ((int32_t)0x80004005)
int32_t DllGetClassObject(const void* class_id, const void* interface_id,
                          void** object);
int32_t DllCanUnloadNow(void);
"""
MANAGER = """
extern "C" int DllGetClassObject(const void*, const void*, void**) { return 0; }
extern "C" int DllCanUnloadNow() { return 0; }
"""
ENGINE = "namespace tslm5 { int OpenRun(const char*, int) { return 0; } }\n"
ROOM = "int Twice(int value) { return 2 * value; }\n"


class CheckSymbolsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        root = Path(folder.name)
        header = root / "include" / "tslm5" / "component" / "entry_points.h"
        header.parent.mkdir(parents=True)
        header.write_text(HEADER, encoding="utf-8")
        (root / "scripts").mkdir()
        self.script = shutil.copy(SCRIPT, root / "scripts")
        self.build = root / "build"
        (self.build / "lib").mkdir(parents=True)

    def compile(self, text, name, *options):
        source = self.build / (name + ".cpp")
        source.write_text(text, encoding="utf-8")
        subprocess.run([COMPILER, *options, str(source), "-o", str(self.build / name)], check=True)
        return self.build / name

    def run_check(self, manager=MANAGER, engine=ENGINE, room=ROOM):
        """The exit code and what was printed for libraries made of these sources."""
        if manager is not None:
            self.compile(manager, "lib/libTSLM5DataManager.so", "-shared", "-fPIC")
        self.compile(engine, "lib/libTSLMRep5.so", "-shared", "-fPIC")
        if room is not None:
            compiled = self.compile(room, "room.o", "-c")
            archive = self.build / "lib" / "libtslm5_room.a"
            subprocess.run(["ar", "qc", str(archive), str(compiled)], check=True)
        run = subprocess.run(["bash", self.script, str(self.build)], text=True, check=False,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return run.returncode, run.stdout

    def test_libraries_that_keep_their_contracts_pass(self):
        self.assertEqual(self.run_check(), (0, "2 libraries and 1 archives keep their contracts\n"))

    def test_a_function_too_many_fails(self):
        code, printed = self.run_check(manager=MANAGER + 'extern "C" void Extra() {}\n')
        self.assertEqual(code, 1)
        self.assertIn("> Extra\n", printed)

    def test_a_missing_entry_point_fails(self):
        code, printed = self.run_check(manager=MANAGER.replace("DllCanUnloadNow", "Other"))
        self.assertEqual(code, 1)
        self.assertIn("< DllCanUnloadNow\n", printed)

    def test_a_missing_library_fails(self):
        code, printed = self.run_check(manager=None)
        self.assertEqual(code, 1)
        self.assertIn("libTSLM5DataManager.so: missing", printed)

    def test_an_engine_that_shows_more_fails(self):
        code, printed = self.run_check(engine=ENGINE + "int tslm5_leak;\n")
        self.assertEqual(code, 1)
        self.assertIn("> tslm5_leak\n", printed)

    def test_forbidden_calls_fail(self):
        cases = [
            ("abort", "#include <cstdlib>\nvoid F() { std::abort(); }\n"),
            ("exit", "#include <cstdlib>\nvoid F() { std::exit(1); }\n"),
            ("puts", '#include <cstdio>\nvoid F() { std::puts("x"); }\n'),
            ("printf", '#include <cstdio>\nvoid F(int i) { std::printf("%d", i); }\n'),
            ("stderr", "#include <cstdio>\nvoid F() { std::fputc(0, stderr); }\n"),
            ("_ZSt4cout", "#include <iostream>\nvoid F() { std::cout << 1; }\n"),
            ("_ZSt4cerr", "#include <iostream>\nvoid F() { std::cerr << 1; }\n"),
            ("strtod", "#include <string>\ndouble F() { return std::stod(\"1\"); }\n"),
            ("vsnprintf", "#include <string>\nstd::string F(double d) "
                          "{ return std::to_string(d); }\n"),
            ("setlocale", '#include <clocale>\nvoid F() { std::setlocale(LC_ALL, ""); }\n'),
        ]
        for symbol, room in cases:
            with self.subTest(symbol=symbol):
                (self.build / "lib" / "libtslm5_room.a").unlink(missing_ok=True)
                code, printed = self.run_check(room=room)
                self.assertEqual(code, 1)
                self.assertRegex(printed, rf"calls what no library may:\n.*room\.o.* {symbol}\n")

    def test_a_build_without_archives_fails(self):
        code, printed = self.run_check(room=None)
        self.assertEqual(code, 1)
        self.assertIn("no archive", printed)


if __name__ == "__main__":
    unittest.main()
