"""What is installed: client programs built against it, and the Debian packages in a clean root."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

BUILD = Path(os.environ["TSLM5_BUILD"])
HERE = Path(__file__).parent
DATA = "a,b\n1,2\n3,4\n5,6.5\n"


def run(*words, cwd=None, **environment):
    result = subprocess.run(
        [*map(str, words)],
        capture_output=True,
        text=True,
        cwd=cwd,
        env={**os.environ, "LC_ALL": "C", **environment},
        timeout=600,
        check=False,
    )
    if result.returncode != 0:
        raise AssertionError(f"{words}\n{result.stdout}{result.stderr}")
    return result.stdout


class Installed(unittest.TestCase):
    """A tree made by cmake --install, both components."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.prefix = cls.folder / "prefix"
        for component in ("runtime", "development"):
            run("cmake", "--install", BUILD, "--prefix", cls.prefix, "--component", component)
        (library,) = cls.prefix.rglob("libTSLM5DataManager.so")
        cls.lib = library.parent
        cls.data = cls.folder / "data.csv"
        cls.data.write_text(DATA)

    def test_a_prefix_may_be_relative(self):
        run("cmake", "--install", BUILD, "--prefix", "an ä", "--component", "runtime",
            cwd=self.folder)
        (file,) = (self.folder / "an ä").rglob("*.component")
        (path,) = re.findall("^library (.*)$", file.read_text(encoding="utf-8"), re.MULTILINE)
        self.assertTrue(path.startswith(f"{self.folder}/an ä/"), path)
        self.assertTrue(Path(path).is_file(), path)

    def test_libraries_have_a_versioned_soname(self):
        for name in ("libTSLM5DataManager", "libTSLMRep5"):
            dynamic = run("readelf", "-d", self.lib / f"{name}.so")
            self.assertRegex(dynamic, rf"SONAME.*\[{name}\.so\.\d+\]")
            self.assertTrue((self.lib / f"{name}.so").is_symlink())

    def test_the_program_runs_where_it_was_installed(self):
        run_file = self.folder / "run.db"
        program = self.prefix / "bin/tslm5"
        run(program, "load", self.data, "--run", run_file)
        self.assertIn('"rows":[[1,2],[3,4],[5,6.5]]', run(program, "show", run_file, "--json"))

    def test_the_page_and_the_completions_are_installed(self):
        for name in ("man/man1/tslm5.1", "bash-completion/completions/tslm5",
                     "zsh/vendor-completions/_tslm5"):
            self.assertTrue((self.prefix / "share" / name).is_file(), name)

    def test_clients_find_the_package(self):
        build = self.folder / "client"
        run("cmake", "-S", HERE / "client", "-B", build, "-G", "Ninja",
            f"-DCMAKE_PREFIX_PATH={self.prefix}")
        run("cmake", "--build", build)
        printed = run(build / "linked", self.data, self.folder / "client.db")
        self.assertEqual(printed, "3 x 2, b, 6.5\n")

        components = self.prefix / "share/tslm5/components"
        printed = run(build / "by_name", self.data, TSLM5_COMPONENTS=str(components))
        self.assertEqual(printed, "3 x 2\nunloaded: 1\n")
        needed = run("readelf", "-d", build / "by_name")
        self.assertNotIn("TSLM5DataManager", needed)

    def test_pkg_config_knows_both_ways(self):
        path = {"PKG_CONFIG_PATH": str(self.lib / "pkgconfig")}
        flags = run("pkg-config", "--cflags", "--libs", "tslm5-datamanager", **path).split()
        program = self.folder / "linked"
        run("g++", "-std=c++20", HERE / "client/linked.cpp", *flags,
            f"-Wl,-rpath,{self.lib}", "-o", program)
        printed = run(program, self.data, self.folder / "pkg.db")
        self.assertEqual(printed, "3 x 2, b, 6.5\n")
        self.assertEqual(run("pkg-config", "--libs", "tslm5-client", **path).strip(), "-ldl")

    def test_a_plain_c_program_calls_the_four_functions(self):
        flags = run("pkg-config", "--cflags", "--libs", "tslm5-client",
                    PKG_CONFIG_PATH=str(self.lib / "pkgconfig")).split()
        program = self.folder / "plain"
        run("gcc", "-std=c11", "-Wall", "-Wextra", "-Werror", HERE / "client/plain.c", *flags,
            "-o", program)
        printed = run(program, self.lib / "libTSLM5DataManager.so",
                      TSLM5_COMPONENTS=str(self.folder / "registered"))
        self.assertEqual(
            printed,
            "unload at first: 1\nunknown class: 1\nclass object: 1\nunload while it lives: 0\n"
            "unload afterwards: 1\nregistered: 1\nunregistered: 1\n",
        )


@unittest.skipUnless(shutil.which("dpkg-shlibdeps"), "no Debian machine")
class DebianPackages(unittest.TestCase):
    """Both packages, unpacked by dpkg into a root with nothing in it."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-G", "DEB", "-B", cls.folder)
        cls.packages = {path.name.split("_")[0]: path for path in cls.folder.glob("*.deb")}
        cls.root = cls.folder / "root"
        for name in ("updates", "info"):
            (cls.root / "var/lib/dpkg" / name).mkdir(parents=True)
        (cls.root / "var/lib/dpkg/status").touch()
        cls.dpkg("--install", *cls.packages.values())

    @classmethod
    def dpkg(cls, *words):
        return run("dpkg", f"--root={cls.root}", "--force-not-root", "--force-depends",
                   "--force-script-chrootless", f"--log={cls.folder}/dpkg.log", *words)

    def test_there_are_two(self):
        self.assertEqual(sorted(self.packages), ["tslm5", "tslm5-dev"])
        fields = run("dpkg-deb", "--field", self.packages["tslm5"], "Depends", "Version")
        for library in ("libsqlite3-0", "libicu", "libc6", "libstdc++6"):
            self.assertIn(library, fields)
        self.assertIn("tslm5 (= ", run("dpkg-deb", "--field", self.packages["tslm5-dev"], "Depends"))

    def test_the_program_runs_in_the_clean_root(self):
        data = self.folder / "data.csv"
        data.write_text(DATA)
        program = self.root / "usr/bin/tslm5"
        run(program, "load", data, "--run", self.folder / "run.db")
        self.assertIn("training set\n  rows     3\n", run(program, "info", self.folder / "run.db"))

    def test_the_component_is_registered_where_it_will_be(self):
        (file,) = self.root.rglob("*.component")
        self.assertEqual(file.parent, self.root / "usr/share/tslm5/components")
        (library,) = [x for x in file.read_text().splitlines() if x.startswith("library ")]
        path = library.removeprefix("library ")
        self.assertTrue(path.startswith("/usr/lib/"), path)
        self.assertTrue((self.root / path.lstrip("/")).is_file())

    def test_headers_are_in_the_development_package_alone(self):
        runtime = run("dpkg-deb", "--contents", self.packages["tslm5"])
        development = run("dpkg-deb", "--contents", self.packages["tslm5-dev"])
        self.assertNotIn(".h\n", runtime)
        self.assertIn("/usr/include/tslm5/contracts/data_set.h\n", development)
        self.assertNotIn("bin/tslm5", development)
        for contents in (runtime, development):
            self.assertNotIn(str(BUILD), contents)

    def test_nothing_is_left_when_it_is_removed(self):
        self.dpkg("--purge", "tslm5-dev", "tslm5")
        left = [p for p in self.root.rglob("*") if p.is_file() and "var/lib/dpkg" not in str(p)]
        self.assertEqual(left, [])
        self.dpkg("--install", *self.packages.values())


if __name__ == "__main__":
    unittest.main()
