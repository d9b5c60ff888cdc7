"""The manual page and the completions do what they are for."""

import os
import shutil
import subprocess
import unittest
from pathlib import Path

DOCUMENTS = Path(os.environ["TSLM5_DOCUMENTS"])


def output_of(*words, **arguments):
    return subprocess.run(words, capture_output=True, text=True, check=False, **arguments)


class DocumentsTest(unittest.TestCase):
    def complete(self, *words):
        """What bash offers for the last of the words."""
        script = (
            'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tslm5; '
            'printf "%s\\n" "${COMPREPLY[@]}"'
        )
        result = output_of(
            "bash", "-c", script, "bash", DOCUMENTS / "tslm5.bash", "tslm5", *words, cwd=DOCUMENTS
        )
        self.assertEqual(result.stderr, "")
        return result.stdout.split()

    def test_commands_are_completed(self):
        self.assertEqual(self.complete("lo"), ["load"])
        self.assertIn("--version", self.complete("--"))

    def test_options_and_their_values_are_completed(self):
        self.assertEqual(self.complete("load", "--ru"), ["--run"])
        self.assertEqual(self.complete("load", "--set", "te"), ["testing"])
        self.assertEqual(self.complete("show", "--set", "te"), ["testing"])
        self.assertEqual(
            self.complete("show", "--set", "time-series-te"), ["time-series-testing"]
        )
        self.assertNotIn("--rows", self.complete("load", "--"))

    def test_files_are_completed(self):
        self.assertEqual(self.complete("load", "tslm5.ba"), ["tslm5.bash"])

    @unittest.skipUnless(shutil.which("groff"), "no groff")
    def test_the_page_is_set_without_a_warning(self):
        result = output_of("groff", "-man", "-ww", "-Tutf8", DOCUMENTS / "tslm5.1")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("tslm5 load", result.stdout)

    @unittest.skipUnless(shutil.which("zsh"), "no zsh")
    def test_the_function_of_zsh_is_read(self):
        result = output_of("zsh", "-n", DOCUMENTS / "_tslm5")
        self.assertEqual((result.returncode, result.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
