"""Extensions found by their names, along a path."""

import os
import pathlib
import plistlib
import shutil
import subprocess
import unittest

from brvhost import BUNDLES, Case, EXECUTABLE_FOLDER, LEGER_LINES, PROGRAM, SAMPLES, brvhost

RESOURCES = pathlib.Path(os.environ["BRV_SOURCE"]) / "extension/resources"
SYSTEM = EXECUTABLE_FOLDER.replace("-", " on ", 1)


class Installed(Case):
    """Two folders on the path, and the user's; what is installed with the program is in no place of the build."""

    def setUp(self):
        super().setUp()
        self.first, self.second = self.folder / "first", self.folder / "second"
        self.data = self.folder / "data"
        self.users = self.data / "brvhost"
        for folder in (self.first, self.second, self.users, self.folder / "here"):
            folder.mkdir(parents=True)
        self.programs = f"{os.environ['BRV_BUILD']}/lib/brvhost"

    def install(self, folder, name="LegerLines", bundle=LEGER_LINES):
        path = folder / f"{name}.bundle"
        shutil.copytree(bundle, path)
        return path

    def brvhost(self, *arguments, **variables):
        environment = {"BRVHOST_PATH": f"{self.first}:{self.second}", "XDG_DATA_HOME": str(self.data), **variables}
        return brvhost(*arguments, environment=environment, cwd=self.folder / "here")

    def name_of_first_item(self, *arguments, **variables):
        return self.succeeds(self.brvhost("items", *arguments, **variables)).stdout.split("\t")[1]


class Names(Installed):
    def test_find_a_bundle_in_each_folder(self):
        for folder in (self.first, self.second, self.users):
            path = self.install(folder)
            for name in ("LegerLines", "LegerLines.bundle"):
                self.assertEqual(self.name_of_first_item(name), "Hide Ledger Lines")
            shutil.rmtree(path)

    def test_work_for_each_command_that_takes_a_bundle(self):
        self.install(self.second)
        process = self.brvhost("run", "LegerLines", "--item", 0, "--all", "--dry-run", SAMPLES / "winds.musicxml")
        self.assertEqual((process.returncode, process.stderr), (0, ""))
        self.assertNotIn("FAILED", self.succeeds(self.brvhost("check", "LegerLines", "--no-confine")).stdout)

    def test_find_the_bundle_in_the_home_folder_without_a_folder_for_data(self):
        home = self.folder / "home"
        self.install(home / ".local/share/brvhost")
        for data in ("", "relative/folder"):
            self.assertEqual(self.name_of_first_item("LegerLines", XDG_DATA_HOME=data, HOME=str(home)), "Hide Ledger Lines")

    def test_find_the_first_of_several(self):
        self.install(self.second)
        self.assertEqual(self.name_of_first_item("LegerLines"), "Hide Ledger Lines")
        first = self.install(self.first, bundle=BUNDLES / "wrong_version.bundle")
        self.fails(self.brvhost("items", "LegerLines"), 3, f"brvhost: {first}: is for version 0x18000000")

    def test_lead_to_what_is_in_the_working_folder_before_all_others(self):
        self.install(self.first)
        (self.folder / "here/LegerLines").mkdir()
        self.fails(self.brvhost("items", "LegerLines"), 3, "brvhost: LegerLines: is a folder, not a bundle\n")

    def test_with_a_slash_are_paths(self):
        self.install(self.first)
        process = self.brvhost("items", "./LegerLines")
        self.assertEqual((process.returncode, process.stderr), (3, "brvhost: ./LegerLines: there is no such bundle\n"))

    def test_that_are_empty_are_wrong_usage(self):
        for command in (["items", ""], ["check", ""], ["run", "", "--item", 0, "--all", "--dry-run", "a.xml"]):
            process = self.brvhost(*command)
            self.assertEqual((process.returncode, process.stderr), (2, "brvhost: BUNDLE: is empty\n"))

    def test_that_nothing_has_are_reported_with_what_was_searched(self):
        path = self.install(self.first)
        self.install(self.second)
        searched = f"{self.first}, {self.second}, {self.users} and {self.programs}"
        for name, bundle, advice in (("LegerLine", "LegerLine", "did you mean LegerLines?"),
                                     ("legerlines.bundle", "legerlines", "did you mean LegerLines?"),
                                     ("Other", "Other", "`brvhost list` lists what is installed")):
            message = f"brvhost: {name}: there is no such bundle here, and no {bundle}.bundle in {searched}; {advice}\n"
            for command in (["items", name], ["check", name], ["run", name, "--item", 0, "--all", "--dry-run", "a.xml"]):
                process = self.brvhost(*command)
                self.assertEqual((process.returncode, process.stdout, process.stderr), (3, "", message))
        shutil.rmtree(path)

    def test_are_not_looked_for_where_the_path_has_nothing(self):
        self.install(self.folder / "here")
        os.rename(self.folder / "here/LegerLines.bundle", self.folder / "here/Mine.bundle")
        self.fails(self.brvhost("items", "Mine", BRVHOST_PATH=":"), 3,
                   f"no Mine.bundle in {self.users} and {self.programs}; ")

    def test_are_looked_for_once_in_each_folder(self):
        (self.folder / "link").symlink_to(self.first)
        path = f"{self.first}:{self.folder}/link:{self.second}:{self.users}:{self.first}"
        self.fails(self.brvhost("items", "Mine", BRVHOST_PATH=path), 3,
                   f"no Mine.bundle in {self.first}, {self.second}, {self.users} and {self.programs}; ")


class List(Installed):
    def lines(self, **variables):
        process = self.succeeds(self.brvhost("list", **variables))
        self.assertEqual(process.stderr, "")
        return process.stdout

    def test_is_empty_where_nothing_is_installed(self):
        self.assertEqual(self.lines(BRVHOST_PATH=str(self.folder / "nowhere")), "")

    def test_has_what_is_known_without_loading_any(self):
        leger_lines = self.install(self.first)
        (leger_lines / "Contents/MacOS").mkdir()
        (leger_lines / "Contents/MacOS/LegerLines").touch()
        (leger_lines / "Contents/Resources/Base.lproj").mkdir()
        crashing = self.install(self.second, "Crashing", BUNDLES / "without_fault.bundle")
        image, = crashing.rglob("*.so")
        image.write_text("no code")
        (crashing / "Contents/Info.plist").write_bytes(plistlib.dumps({"CFBundleExecutable": image.stem}))
        (self.first / "notes.txt").touch()
        (self.first / "Folder").mkdir()
        version = brvhost("--version").stdout.split()[1].partition("+")[0]
        languages = sorted(path.stem for path in RESOURCES.glob("*.lproj"))
        self.assertIn("en", languages)
        self.assertEqual(self.lines(),
                         f"LegerLines\t{version}\t{', '.join(languages)}\tmacOS, {SYSTEM}\t{leger_lines}\n"
                         f"Crashing\t\t\t{SYSTEM}\t{crashing}\n")

    def test_marks_those_that_are_hidden_by_others(self):
        first, second, users = (self.install(folder, "Mine", BUNDLES / "without_fault.bundle")
                                for folder in (self.first, self.second, self.users))
        self.assertEqual(self.lines(), f"Mine\t1.0\t\t{SYSTEM}\t{first}\n"
                                       f"Mine\t1.0\t\t{SYSTEM}\t{second}\thidden by {first}\n"
                                       f"Mine\t1.0\t\t{SYSTEM}\t{users}\thidden by {first}\n")

    def test_reports_those_that_cannot_be_used(self):
        good = self.install(self.second, "Good", BUNDLES / "without_fault.bundle")
        (self.first / "File.bundle").touch()
        (self.first / "Empty.bundle").mkdir()
        (self.first / "Other.bundle/Contents/MacOS").mkdir(parents=True)
        (self.first / "Other.bundle/Contents/MacOS/Other").touch()
        process = self.brvhost("list")
        self.assertEqual((process.returncode, process.stdout), (3, f"Good\t1.0\t\t{SYSTEM}\t{good}\n"))
        self.assertEqual(process.stderr,
                         f"brvhost: {self.first}/Empty.bundle: has no executable for {SYSTEM}\n"
                         f"brvhost: {self.first}/File.bundle: is not a bundle\n"
                         f"brvhost: {self.first}/Other.bundle: has no executable for {SYSTEM}; it has one for macOS\n")

    def test_takes_no_argument(self):
        process = self.brvhost("list", "all")
        self.assertEqual((process.returncode, process.stderr),
                         (2, "brvhost: all: is one argument too many; `brvhost list --help` explains what it takes\n"))

    def test_is_not_complete_when_it_cannot_be_written(self):
        self.install(self.first)
        with open("/dev/full", "w") as full:
            process = subprocess.run([PROGRAM, "list"], stdout=full, stderr=subprocess.PIPE, text=True,
                                     env={**os.environ, "BRVHOST_PATH": str(self.first)})
        self.assertEqual((process.returncode, process.stderr), (1, "brvhost: the standard output cannot be written\n"))


if __name__ == "__main__":
    unittest.main()
