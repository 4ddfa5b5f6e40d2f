"""Copies of the extension whose files are changed, and what brvhost check finds in them."""

import json
import pathlib
import re
import shutil

from brvhost import Case, LEGER_LINES, brvhost

# The facts about files.
FILES = "^has-(?!menu|short)|placeholders|^fits|mac$|^exports-(for|nothing)|^imports-"


class Files(Case):
    def setUp(self):
        super().setUp()
        self.bundle = pathlib.Path(shutil.copytree(LEGER_LINES, self.folder / "Mine.bundle"))

    def info(self):
        return self.bundle / "Contents/Info.plist"

    def strings(self, language):
        return self.bundle / f"Contents/Resources/{language}.lproj/Localizable.strings"

    def edit(self, path, old, new):
        """Replaces what a pattern finds first."""
        text, count = re.subn(old, lambda _: new, path.read_text(), count=1)
        self.assertEqual(count, 1)
        path.write_text(text)

    def found(self, facts=FILES):
        """The facts that do not hold, and the messages."""
        process = brvhost("check", "--json", "--only-failed", "--include", facts, self.bundle)
        *failed, _ = map(json.loads, process.stdout.splitlines())
        return [(line["fact"], line["message"]) for line in failed]

    def messages(self, facts):
        return [message for _, message in self.found(facts)]

    def finds(self, fact, message):
        """One fact does not hold, and no other."""
        process = brvhost("check", "--json", "--only-failed", "--strict", "--include", FILES, self.bundle)
        *failed, _ = map(json.loads, process.stdout.splitlines())
        self.assertEqual([(line["fact"], line["message"]) for line in failed], [(fact, message)])
        self.assertEqual(process.returncode, 1)
