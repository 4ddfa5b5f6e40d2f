"""The archive with the bundle. The environment names the sources, brvhost, and the bundle for macOS that was built last."""

import filecmp
import os
import pathlib
import subprocess
import tempfile
import unittest
import zipfile

from releaseparts import make_part

SOURCES = pathlib.Path(os.environ["BRV_SOURCE"])
BUILT = pathlib.Path(os.environ["BRV_MACOS_BUNDLE"])
ITEMS = """\
0\tHide Ledger Lines\tHide ledger lines\tHides the ledger lines of all notes in the selected region.
1\tShow Ledger Lines\tShow ledger lines\tShows the ledger lines of all notes in the selected region.
"""


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.archive = make_part(SOURCES, "bundle", cls.folder / "first")
        with zipfile.ZipFile(cls.archive) as archive:
            archive.extractall(cls.folder)
        cls.contents = cls.folder / "LegerLines.bundle" / "Contents"

    def test_is_named_after_the_version(self):
        self.assertRegex(self.archive.name, r"^LegerLines-\d+\.\d+\.\d+\.zip$")

    def test_holds_the_bytes_of_the_macos_bundle(self):
        files = [path.relative_to(BUILT) for path in BUILT.rglob("*") if path.is_file()]
        self.assertIn(pathlib.Path("Contents/MacOS/LegerLines"), files)
        _, different, missing = filecmp.cmpfiles(BUILT, self.contents.parent, files, shallow=False)
        self.assertEqual((different, missing), ([], []))

    def test_has_an_executable_for_each_system_and_processor(self):
        executables = {path.relative_to(self.contents).as_posix() for path in self.contents.rglob("LegerLines*")}
        self.assertEqual(executables, {"MacOS/LegerLines", "Linux-x86-64/LegerLines.so", "Linux-arm64/LegerLines.so"})

    def test_runs_in_the_host_for_linux(self):
        host = subprocess.run([os.environ["BRVHOST"], "items", self.contents.parent], capture_output=True, text=True,
                              env={**os.environ, "LANGUAGE": "en"}, timeout=60)
        self.assertEqual((host.stdout, host.stderr), (ITEMS, ""))

    def test_says_how_to_install_it(self):
        note = (self.folder / "INSTALL-macOS.txt").read_text()
        self.assertIn("com.apple.quarantine", note)
        self.assertIn("codesign", note)

    def test_has_the_same_bytes_each_time(self):
        again = make_part(SOURCES, "bundle", self.folder / "second")
        self.assertTrue(filecmp.cmp(self.archive, again, shallow=False))


if __name__ == "__main__":
    unittest.main()
