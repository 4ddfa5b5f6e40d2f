"""The comparison of an interface with the kept one: what is new is listed, what is gone or has changed fails.

    compare_test.py    BRV_ABIDW, BRV_ABIDIFF: the programs; BRV_COMPILER: a compiler for C++
"""

import os
import pathlib
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).parent
KEPT = 'extern "C" int CountStaves(int part) { return part; }'


class Compare(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.kept = self.folder / "kept.abi"
        self.run_well(os.environ["BRV_ABIDW"], "--out-file", self.kept, self.library("kept", KEPT))

    def run_well(self, *command):
        subprocess.run(command, check=True)

    def library(self, name, code):
        source, library = self.folder / f"{name}.cpp", self.folder / f"lib{name}.so"
        source.write_text(code)
        self.run_well(os.environ["BRV_COMPILER"], "-g", "-shared", "-fPIC", "-Wl,-soname,libkept.so", "-o", library, source)
        return library

    def compare(self, code):
        process = subprocess.run(["cmake", f"-DABIDIFF={os.environ['BRV_ABIDIFF']}", f"-DSUPPRESSIONS={HERE / 'suppressions.ini'}",
                                  f"-DKEPT={self.kept}", f"-DLIBRARY={self.library('present', code)}", "-P", HERE / "compare.cmake"],
                                 capture_output=True, text=True)
        return process.returncode, process.stdout, process.stderr

    def test_passes_what_is_the_same(self):
        self.assertEqual(self.compare(KEPT), (0, "", ""))

    def test_lists_what_is_new_and_passes_it(self):
        status, output, errors = self.compare(KEPT + '\nextern "C" int CountMeasures() { return 1; }')
        self.assertEqual((status, errors), (0, ""))
        self.assertIn("CountMeasures", output)

    def test_fails_where_something_is_gone(self):
        status, output, errors = self.compare('extern "C" int CountMeasures() { return 1; }')
        self.assertEqual(status, 1)
        self.assertIn("CountStaves", output)
        self.assertIn(f"what {self.kept} has is gone or has changed", " ".join(errors.split()))

    def test_fails_where_something_has_changed(self):
        status, output, _ = self.compare('extern "C" int CountStaves(const char* part) { return *part; }')
        self.assertEqual(status, 1)
        self.assertIn("CountStaves", output)


if __name__ == "__main__":
    unittest.main()
