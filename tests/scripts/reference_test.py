"""Makes the reference of the public headers, where an undocumented member is an error."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]


def make_reference(top, output):
    """Runs doxygen over the headers of `top`; its exit code and what it complains of."""
    settings = (TOP / "docs" / "Doxyfile").read_text() + f'\nOUTPUT_DIRECTORY = "{output}"\n'
    done = subprocess.run(
        [os.environ.get("TSLM5_DOXYGEN", "doxygen"), "-"],
        input=settings,
        cwd=top,
        capture_output=True,
        text=True,
        timeout=300,
    )
    return done.returncode, done.stdout + done.stderr


class Reference(unittest.TestCase):
    def test_every_public_member_is_documented(self):
        with tempfile.TemporaryDirectory() as output:
            code, complaints = make_reference(TOP, output)
            self.assertEqual((code, complaints), (0, ""))
            page = pathlib.Path(output) / "html" / "classtslm5_1_1IDataSet.html"
            self.assertIn("GetRowOriginalIndex", page.read_text())

    def test_a_missing_comment_fails(self):
        removed = {
            "contracts/deployment_data_set.h": "  /// Number of records.\n",
            "platform/number_text.h": "/// The text of `WriteNumber`.\n",
            "component/entry_points.h": "/** Done. */\n",
        }
        for header, comment in removed.items():
            with self.subTest(header), tempfile.TemporaryDirectory() as folder:
                top = pathlib.Path(folder)
                copy = top / "include" / "tslm5" / header
                copy.parent.mkdir(parents=True)
                for part in ("platform", "contracts", "component", "engine"):
                    shutil.copytree(
                        TOP / "include" / "tslm5" / part, copy.parents[1] / part, dirs_exist_ok=True
                    )
                text = copy.read_text()
                self.assertEqual(text.count(comment), 1)
                copy.write_text(text.replace(comment, ""))
                code, complaints = make_reference(top, top / "out")
                self.assertNotEqual(code, 0)
                self.assertIn(header, complaints)
                self.assertIn("is not documented", complaints)


if __name__ == "__main__":
    unittest.main()
