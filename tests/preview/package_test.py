"""The Debian package of brvhost-preview: what is in it, and that it works from where it is unpacked."""

import json
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from releaseparts import make_part

SOURCE = pathlib.Path(__file__).parents[2]
SAMPLE = SOURCE / "samples/piano.musicxml"
# Later than that of any file.
TIME = {"SOURCE_DATE_EPOCH": "4102444800"}
# As the copyright file names the licences that packages of Node have.
LICENSES = {"LGPL-3.0-or-later": "LGPL-3+ and OFL-1.1", "ISC": "ISC", "MIT": "MIT"}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def columns_of(package):
    """What there is of modes, owners, sizes, days and times among the files of a package."""
    listing = subprocess.run(["dpkg-deb", "--contents", package], check=True, capture_output=True, text=True,
                             env={**os.environ, "TZ": "UTC"}).stdout
    return list(map(set, zip(*(line.split()[:5] for line in listing.splitlines()))))


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.package = make_part(SOURCE, "preview", cls.folder, **TIME)
        cls.root = cls.folder / "root"
        subprocess.run(["dpkg-deb", "--extract", cls.package, cls.root], check=True)
        cls.program = cls.root / "usr/bin/brvhost-preview"
        cls.modules = cls.root / "usr/share/brvhost-preview/node_modules"

    def test_is_the_same_when_it_is_made_again(self):
        again = make_part(SOURCE, "preview", self.folder / "again", **TIME)
        self.assertEqual(again.read_bytes(), self.package.read_bytes())

    def test_has_the_version_in_its_name_and_in_its_fields(self):
        version = re.fullmatch(r"brvhost-preview_(.*)_all\.deb", self.package.name)[1]
        self.assertEqual(output_of("dpkg-deb", "--field", self.package, "Version"), f"{version}\n")
        self.assertRegex(output_of("node", self.program, "--version"), rf"^brvhost-preview {re.escape(version)}[,\n]")

    def test_engraves_a_score(self):
        page = self.folder / "page.html"
        output_of("node", self.program, SAMPLE, "-o", page)
        self.assertIn("lineDash", page.read_text())

    def test_holds_what_the_lock_file_names_and_the_licence_of_each(self):
        locked = json.loads((SOURCE / "preview/package-lock.json").read_text())["packages"]
        wanted = {path.removeprefix("node_modules/"): LICENSES[entry["license"]] for path, entry in locked.items() if path}
        self.assertEqual(sorted(path.name for path in self.modules.iterdir()), sorted(wanted))
        text = (self.root / "usr/share/doc/brvhost-preview/copyright").read_text()
        stated = dict(re.findall(r"^Files: usr/share/brvhost-preview/node_modules/(.*)/\*\n(?:.*\n)+?License: (.*)$", text, re.MULTILINE))
        self.assertEqual(stated, wanted)
        for license in {"LGPL-3+", "OFL-1.1", "ISC", "MIT"}:
            self.assertRegex(text, rf"(?m)^License: {re.escape(license)}\n ")

    def test_has_a_manual_page_with_each_option_of_the_help(self):
        options = set(re.findall(r"^ +(?:-\w, )?(--[\w-]+)", output_of("node", self.program, "--help"), re.MULTILINE))
        manual = output_of("zcat", self.root / "usr/share/man/man1/brvhost-preview.1.gz").replace("\\-", "-")
        self.assertIn("--before", options)
        self.assertEqual(set(re.findall(r"^\.B .*?(--[\w-]+)", manual, re.MULTILINE)), options)

    def test_belongs_to_root_and_is_for_everybody(self):
        modes, owners, *_ = columns_of(self.package)
        self.assertEqual(modes, {"drwxr-xr-x", "-rw-r--r--", "-rwxr-xr-x", "lrwxrwxrwx"})
        self.assertEqual(owners, {"root/root"})

    def test_bears_the_time_that_is_asked_for(self):
        self.assertEqual(columns_of(self.package)[3:], [{"2100-01-01"}, {"00:00"}])

    def test_starts_by_the_node_of_the_distribution(self):
        self.assertEqual(self.program.read_text().splitlines()[0], "#!/usr/bin/node")


if __name__ == "__main__":
    unittest.main()
