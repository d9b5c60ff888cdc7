"""register, unregister and components, with a folder of registrations of the test's own."""

import json
import os
import unittest
from pathlib import Path

from host_case import HostCase


class ComponentsTest(HostCase):
    def setUp(self):
        super().setUp()
        self.registered = self.folder / "registered"
        self.here = {"TSLM5_COMPONENTS": str(self.registered)}

    def listed(self):
        return json.loads(self.done("components", "--json", **self.here))["components"]

    def test_nothing_is_registered_at_first(self):
        self.assertEqual(
            self.done("components", **self.here),
            "no component is registered (tslm5 register does it)\n",
        )
        self.assertEqual(self.listed(), [])

    def test_a_registered_component_is_listed_and_usable(self):
        self.assertEqual(
            self.done("register", **self.here),
            f"TSLM5DataManager is registered in {self.registered}\n",
        )
        (component,) = self.listed()
        self.assertEqual(component["name"], "TSLM5DataManager")
        self.assertIs(component["usable"], True)
        self.assertTrue(Path(component["library"]).is_file())
        self.assertRegex(component["library"], r"/libTSLM5DataManager\.so\.\d+\.\d+\.\d+$")
        names = [entry["name"] for entry in component["classes"]]
        for name in ("DataSetLite", "InMemorySet", "OriginalDataSet", "ParseEventArgs",
                     "RunCatalog", "RunSchema"):
            self.assertIn(name, names)
        text = self.done("components", **self.here)
        self.assertIn("  class         TSLM5DataManager.DataSetLite\n", text)
        self.assertNotIn("trouble", text)

    def test_a_library_that_is_gone_is_told(self):
        self.done("register", **self.here)
        file = self.registered / "TSLM5DataManager.component"
        lines = file.read_text().splitlines()
        lines = ["library /gone/lib.so" if x.startswith("library") else x for x in lines]
        file.write_text("\n".join(lines))
        (component,) = self.listed()
        self.assertIs(component["usable"], False)
        self.assertIn("/gone/lib.so", component["trouble"])
        self.assertIn("  trouble       ", self.done("components", **self.here))

    def test_unregister_undoes_it(self):
        self.done("register", **self.here)
        said = self.done("unregister", **self.here)
        self.assertEqual(said, "TSLM5DataManager is not registered any more\n")
        self.assertEqual(self.listed(), [])
        self.assertEqual(os.listdir(self.registered), [])
        self.done("unregister", **self.here)

    def test_a_folder_that_cannot_be_made_is_told(self):
        self.registered.write_text("a file where the folder should be")
        self.failed(
            3, f"the component cannot be registered in {self.registered}", "register", **self.here
        )


if __name__ == "__main__":
    unittest.main()
