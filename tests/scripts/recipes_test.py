"""The recipes of CONTRIBUTING.md, followed on a copy of the tree: no file has to be touched but those that a recipe names,
and the tests that it names notice what was added.

    recipes_test.py    BRV_SOURCE: the tree; BRV_COMPILER: the compiler
"""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
TEXTS = {"20000,1": "Hulplijnen verbergen", "20000,2": "Hulplijnen verbergen",
         "20000,3": "Verbergt de hulplijnen van alle noten in het geselecteerde gebied.",
         "20001,1": "Hulplijnen tonen", "20001,2": "Hulplijnen tonen",
         "20001,3": "Toont de hulplijnen van alle noten in het geselecteerde gebied.",
         "20100,1": "Er is niets geselecteerd. Het commando op de hele partituur toepassen?",
         "20100,2": "Er zijn geen hulplijnen verborgen: er zijn geen noten, of hun hulplijnen zijn al verborgen.",
         "20100,3": "Er zijn geen hulplijnen getoond: er zijn geen noten, of hun hulplijnen zijn al zichtbaar."}


def recipe(name):
    """The steps, by the files that each names first."""
    section = re.search(rf"^### {name}\n(.*?)(?=^##|\Z)", (SOURCE / "CONTRIBUTING.md").read_text(), re.MULTILINE | re.DOTALL)[1]
    return section, re.findall(r"^\d\. `([^`]+)`", section, re.MULTILINE)


class Recipes(unittest.TestCase):
    """One copy, with what several recipes add: it is built once."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.tree = pathlib.Path(folder.name) / "tree"
        paths = subprocess.run([SOURCE / "scripts/files.sh"], check=True, capture_output=True, text=True).stdout
        for path in filter(None, paths.split("\0")):
            (cls.tree / path).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(SOURCE / path, cls.tree / path, follow_symlinks=False)
        cls.touched = {}
        cls.add_language()
        cls.add_host_function()
        cls.add_field()
        cls.run_in_tree("cmake", "-S", ".", "-B", "build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DBRV_BUILD_HOST=OFF",
                        "-DBRV_BUILD_TESTS=ON", "-DBRV_MACOS_TESTS=OFF", f"-DCMAKE_CXX_COMPILER={os.environ['BRV_COMPILER']}")
        cls.run_in_tree("cmake", "--build", "build", "--target", "LegerLines", "extension-tests", "bridge-calls", "bridge-nohost",
                        "records-tests")

    @classmethod
    def run_in_tree(cls, *command):
        process = subprocess.run(command, cwd=cls.tree, capture_output=True, text=True)
        if process.returncode != 0:
            raise AssertionError(f"{command}:\n{process.stdout}{process.stderr}")
        return process.stdout

    @classmethod
    def edit(cls, name, path, old, new):
        """Replaces what stands once in a file."""
        text = (cls.tree / path).read_text()
        if text.count(old) != 1:
            raise AssertionError(f"{path} has not one {old!r}")
        (cls.tree / path).write_text(text.replace(old, new))
        if path not in cls.touched.setdefault(name, []):
            cls.touched[name].append(path)

    @classmethod
    def add_language(cls):
        path = "extension/resources/nl.lproj/Localizable.strings"
        (cls.tree / path).parent.mkdir()
        (cls.tree / path).write_text("".join(f'"{key}" = "{text}";\n' for key, text in TEXTS.items()))
        cls.touched["A language"] = [path]
        # The list may go over the end of a line.
        [listed] = re.findall(r"Spanish\s+and\s+Japanese", (cls.tree / "README.md").read_text())
        cls.edit("A language", "README.md", listed, "Spanish, Japanese and Dutch")

    @classmethod
    def add_host_function(cls):
        name, before = "A host function", "BX_ScrollTo"
        prototype = ("// Passes a signed 16-bit number through. Returns the host's 16-bit result. [default -1]\n"
                     "BRV_EXPORT short16 BX_CountSystems(short16 argument1, BrvVersion version);\n\n")
        contract = "// Passes two signed 16-bit numbers through. Returns what the host returns. [default 0]\n"
        declaration = f"BRV_EXPORT HostResult {before}("
        cls.edit(name, "BrvEDK/Source/hostprototypes.inc", contract + declaration, prototype + contract + declaration)
        line = f"HOST_CALL({before}, 0, argument1, argument2)\n"
        cls.edit(name, "BrvEDK/Source/hostcalltable.inc", line, "HOST_CALL(BX_CountSystems, -1, argument1)\n" + line)
        cls.edit(name, "cmake/kitexports.txt", f"\n{before}\n", f"\nBX_CountSystems\n{before}\n")
        line = f"\n{before}\t"
        cls.edit(name, "tests/BrvEDK/bridge/calls.txt", line, "\nBX_CountSystems\tshort16\tshort16\t-1" + line)

    @classmethod
    def add_field(cls):
        name, path = "A field of a preference record", "tests/BrvEDK/records/fields.txt"
        cls.edit(name, "BrvEDK/Source/preffieldmap.cpp", '    Word(12, {"37"}, 2),\n', '    Word(12, {"37"}, 2),\n    Word(14, {"37"}, 3),\n')
        last = "12 ot37 65534 0 2 word\n"
        cls.edit(name, path, last, last + "14 ot37 65534 0 3 word\n")
        cls.edit(name, path, "record EDTPlaybackPrefs pfPL 14\n", "record EDTPlaybackPrefs pfPL 16\n")

    def passing(self, name):
        """The tests that the recipe runs, in the copy."""
        section, _ = recipe(name)
        pattern = re.search(r"`ctest --preset release -R '?([^`']+)'?`", section)[1]
        # What was not built has no tests but one, which states that.
        output = self.run_in_tree("ctest", "--test-dir", "build", "-R", pattern, "-E", "_NOT_BUILT")
        return re.findall(r"^ *\d+/\d+ Test +#\d+: (.*?) \.*   Passed", output, re.MULTILINE)

    def test_for_a_language_names_what_has_to_be_touched(self):
        self.assertEqual(recipe("A language")[1], self.touched["A language"])

    def test_for_a_language_names_tests_that_take_it(self):
        tests = [name for name in self.passing("A language") if "/nl" in name]
        self.assertEqual(len(tests), 3)

    def test_for_a_host_function_names_what_has_to_be_touched(self):
        section, paths = recipe("A host function")
        needed = section.partition("If brvhost should serve it")[0]
        self.assertEqual([path for path in paths if f"`{path}`" in needed], self.touched["A host function"])

    def test_for_a_host_function_names_tests_that_take_it(self):
        tests = self.passing("A host function")
        self.assertEqual(len([name for name in tests if "BX_CountSystems" in name]), 4)
        self.assertIn("Bundle.ExportsWhatItsHeadersDeclareAndNothingElse", tests)

    def test_for_a_field_names_what_has_to_be_touched(self):
        self.assertEqual(recipe("A field of a preference record")[1], self.touched["A field of a preference record"])

    def test_for_a_field_names_tests_that_take_it(self):
        tests = self.passing("A field of a preference record")
        for fact in ("HasAsManyFieldsAsAreListed", "LoadsEveryFieldFromItsWord"):
            self.assertIn(f"All/PrefRecord.{fact}/EDTPlaybackPrefs", [name.partition(" ")[0] for name in tests])


if __name__ == "__main__":
    unittest.main()
