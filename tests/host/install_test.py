"""The installed kit: the tutorial's commands as they stand, pkg-config, and the Debian package."""

import os
import re
import shutil
import subprocess
import unittest

from brvhost import Case, SAMPLES
from installed import BUILD, SOURCE, install

TUTORIAL = SOURCE / "docs" / "write-an-extension.md"
EXAMPLE = SOURCE / "examples" / "ScoreReport"


class Installed(Case):
    def setUp(self):
        super().setUp()
        self.prefix = self.folder / "prefix"
        install(self.prefix)

    def sh(self, script, **variables):
        environment = {**os.environ, "LANGUAGE": "en", **{name: str(value) for name, value in variables.items()}}
        process = subprocess.run(["bash", "-e", "-c", script], cwd=self.folder, env=environment, capture_output=True, text=True)
        self.assertEqual(process.returncode, 0, process.stdout + process.stderr)
        return process.stdout

    def test_kit_builds_what_the_tutorial_shows(self):
        text = TUTORIAL.read_text()
        commands = "\n".join(re.findall(r"^```sh\n(.*?)^```$", text, re.MULTILINE | re.DOTALL))
        shown = re.search(r"^```text\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)[1]
        output = self.sh(commands, BREVIX=self.prefix, SCORE=SAMPLES / "winds.musicxml")
        self.assertIn(shown.strip(), output)
        for path in EXAMPLE.rglob("*.*"):
            if path.is_file():
                made = self.folder / "ScoreReport" / path.relative_to(EXAMPLE)
                self.assertEqual(made.read_text(), path.read_text(), "the example is what the tutorial makes")

    def test_kit_is_known_to_pkg_config(self):
        flags = self.sh("pkg-config --cflags --libs brvedk", PKG_CONFIG_PATH=self.prefix / "lib" / "pkgconfig")
        self.assertIn("-lBrvEDK", flags)
        self.write("include.cpp", '#include "brevixpdk.h"\n#include "documentspecs.h"\n#include "eu16string.h"\n'
                                  '#include "transposition.h"\n#include "textblocks.h"\n#include "portable.h"\n')
        self.sh(f"c++ -std=c++20 -fsyntax-only {flags.split(' -L')[0]} include.cpp")


@unittest.skipUnless(shutil.which("dpkg-shlibdeps"), "no tools for Debian packages")
class DebianPackage(Case):
    def test_installs_and_removes_cleanly(self):
        subprocess.run(["cpack", "-G", "DEB", "-B", self.folder], cwd=BUILD, check=True, capture_output=True)
        package = next(self.folder.glob("*.deb"))
        root = self.folder / "root"
        (root / "var/lib/dpkg/updates").mkdir(parents=True)
        (root / "var/lib/dpkg/info").mkdir()
        (root / "var/lib/dpkg/status").touch()
        dpkg = ["dpkg", f"--root={root}", "--force-not-root", "--force-depends", "--log=/dev/null"]
        subprocess.run([*dpkg, "--install", package], check=True, capture_output=True)
        program = root / "usr/bin/brvhost"
        version = subprocess.run([program, "--version"], check=True, capture_output=True, text=True).stdout
        self.assertTrue(version.startswith("brvhost "))
        self.assertTrue((root / "usr/include/BrvEDK/brevixpdk.h").exists())
        self.assertTrue((root / "usr/share/man/man1/brvhost.1").exists())
        subprocess.run([*dpkg, "--purge", "brvedk"], check=True, capture_output=True)
        left = [path for path in root.rglob("*") if path.is_file() and "dpkg" not in path.parts]
        self.assertEqual(left, [])


if __name__ == "__main__":
    unittest.main()
