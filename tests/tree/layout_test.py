"""What the check of the layout finds in small trees."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).with_name("layout.py")
ARCHITECTURE = """\
# Architecture

## Floors

Words, and `code/`.

    tests/  bench/  at the top
    host/           the host
                    host/ and more of it

    extension/      entry points
    LIB/            texts
    BrvEDK/Source/  the bridge
    platform/       the system

The host includes only:

    brevixpdk.h  hostrecords.h
    entries.inc

## How brvhost works

    commands/       items
    score/  text/   the score; texts

- **Words.** No list: `score/` and `text/`.

## Tests

    nothing/        that is listed for the host
"""
# A tree in which each folder of the lists has a source.
SOUND = {
    "docs/architecture.md": ARCHITECTURE,
    "tests/one_test.cpp": "#include <vector>\n#include \"bxstring.h\"\n#include \"host/score/score.h\"\n",
    "bench/walk.cpp": "#include <BrvEDK/bxstring.h>\n",
    "host/main.cpp": "#include \"host/commands/run.h\"\n",
    "host/version.h.in": "",
    "host/commands/run.h": "#include \"host/version.h\"\n",
    "host/commands/run.cpp": "#include \"host/commands/run.h\"\n\n#include \"host/score/score.h\"\n",
    "host/score/score.h": "#include \"BrvEDK/Source/hostrecords.h\"\n#include <CoreFoundation/CoreFoundation.h>\n",
    "host/text/words.h": "",
    "extension/entrypoints.cpp": "#include \"bxstring.h\"\n",
    "LIB/bxstring.h": "#include \"brevixpdk.h\"\n",
    "LIB/bxstring.cpp": "// words\n#include \"bxstring.h\"\n",
    "LIB/clock_mac.cpp": "#include \"clock.h\"\n",
    "LIB/clock.h": "",
    "BrvEDK/Source/brevixpdk.h": "#include <cstdint>\n\n  #  include \"hostrecords.h\"\n// #include \"nowhere.h\"\n",
    "BrvEDK/Source/hostrecords.h": "",
    "BrvEDK/Source/frames.h": "",
    "platform/include/CoreFoundation/CoreFoundation.h": "",
}


class Layout(unittest.TestCase):
    def problems(self, changes, *removed):
        """What is printed for the sound tree with changed or added files."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {**SOUND, **changes}.items():
                if name not in removed:
                    path = pathlib.Path(folder, name)
                    path.parent.mkdir(parents=True, exist_ok=True)
                    path.write_text(text)
            check = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True)
            self.assertEqual(check.stderr, "")
            self.assertEqual(check.returncode, 1 if check.stdout.strip() else 0)
            return check.stdout.splitlines() if check.stdout.strip() else []

    def test_nothing_is_wrong_with_a_sound_tree(self):
        self.assertEqual(self.problems({}), [])

    def test_finds_an_include_of_a_floor_above(self):
        self.assertEqual(self.problems({"LIB/words.cpp": "\n#include \"extension/command.h\"\n", "extension/command.h": ""}),
                         ["LIB/words.cpp:2: includes extension/command.h, but extension/ is not below LIB/"])

    def test_finds_an_include_of_the_same_floor_in_another_folder(self):
        self.assertEqual(self.problems({"bench/edata.cpp": "#include \"tests/host.h\"\n", "tests/host.h": ""}),
                         ["bench/edata.cpp:1: includes tests/host.h, but tests/ is not below bench/"])

    def test_finds_an_include_of_a_floor_above_within_the_host(self):
        self.assertEqual(self.problems({"host/score/score.cpp": "#include \"score.h\"\n#include \"host/commands/run.h\"\n"}),
                         ["host/score/score.cpp:2: includes host/commands/run.h, but host/commands/ is not below host/score/"])

    def test_finds_an_include_of_what_stands_in_no_folder_of_the_host(self):
        self.assertEqual(self.problems({"host/common.h": "", "host/score/odd.cpp": "#include \"host/common.h\"\n"}),
                         ["host/score/odd.cpp:1: includes host/common.h, but host/ is not below host/score/"])

    def test_finds_an_include_by_the_name_of_an_installed_header(self):
        self.assertEqual(self.problems({"BrvEDK/Source/odd.cpp": "#include <BrvEDK/bxstring.h>\n"}),
                         ["BrvEDK/Source/odd.cpp:1: includes BrvEDK/bxstring.h, but LIB/ is not below BrvEDK/Source/"])

    def test_finds_a_table_that_includes_upward(self):
        self.assertEqual(self.problems({"BrvEDK/Source/entries.inc": "#include \"clock.h\"\n"}),
                         ["BrvEDK/Source/entries.inc:1: includes clock.h, but LIB/ is not below BrvEDK/Source/"])

    def test_finds_where_the_host_goes_past_the_interface(self):
        self.assertEqual(self.problems({"host/score/odd.cpp": "#include \"BrvEDK/Source/entries.inc\"\n"
                                                              "#include \"BrvEDK/Source/frames.h\"\n",
                                        "BrvEDK/Source/entries.inc": ""}),
                         ["host/score/odd.cpp:2: includes BrvEDK/Source/frames.h, which is not of the interface"])

    def test_finds_a_circle(self):
        self.assertEqual(self.problems({"LIB/a.h": "#include \"b.h\"\n", "LIB/b.h": "#include <map>\n#include \"c.h\"\n",
                                        "LIB/c.h": "\n\n#include \"a.h\"\n"}),
                         ["LIB/c.h:3: closes a circle: LIB/a.h -> LIB/b.h -> LIB/c.h -> LIB/a.h"])
        self.assertEqual(self.problems({"LIB/self.h": "#include \"self.h\"\n"}),
                         ["LIB/self.h:1: closes a circle: LIB/self.h -> LIB/self.h"])

    def test_finds_a_folder_on_no_floor(self):
        self.assertEqual(self.problems({"util/pitch.h": "", "BrvEDK/deep/er.h": "", "host/new/deep.cpp": ""}),
                         ["BrvEDK/deep/er.h:1: stands in BrvEDK/, which is on no floor",
                          "host/new/deep.cpp:1: stands in host/new/, which is on no floor",
                          "util/pitch.h:1: stands in util/, which is on no floor"])

    def test_finds_a_listed_folder_without_sources(self):
        self.assertEqual(self.problems({"bench/walk.py": ""}, "bench/walk.cpp", "host/text/words.h"),
                         ["docs/architecture.md:1: lists bench/, where no sources are",
                          "docs/architecture.md:1: lists host/text/, where no sources are"])

    def test_leaves_out_what_is_built(self):
        self.assertEqual(self.problems({"out/CMakeCache.txt": "", "out/made/odd.cpp": "", ".cache/odd.cpp": ""}), [])

    def test_finds_an_include_of_no_file_or_of_several(self):
        self.assertEqual(self.problems({"extension/odd.cpp": "#include \"nowhere.h\"\n#include \"clock.h\"\n#include <BrvEDK/no.h>\n",
                                        "platform/source/clock.h": ""}),
                         ["extension/odd.cpp:1: nowhere.h names 0 files of this tree",
                          "extension/odd.cpp:2: clock.h names 2 files of this tree",
                          "extension/odd.cpp:3: BrvEDK/no.h names 0 files of this tree"])

    def test_finds_a_body_that_does_not_include_its_header_first(self):
        self.assertEqual(self.problems({"LIB/bxstring.cpp": "#include <map>\n#include \"bxstring.h\"\n",
                                        "LIB/clock_mac.cpp": "int a;\n"}),
                         ["LIB/bxstring.cpp:1: does not include LIB/bxstring.h before all others",
                          "LIB/clock_mac.cpp:1: does not include LIB/clock.h before all others"])

    def test_says_what_a_document_lacks(self):
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder, "docs", "architecture.md")
            document.parent.mkdir()
            for text in ("", ARCHITECTURE.replace("How brvhost works", "Other"), ARCHITECTURE.replace("    brevix", "brevix")
                         .replace("    entries", "entries")):
                document.write_text(text)
                check = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True)
                self.assertEqual(check.returncode, 1)
                self.assertIn("docs/architecture.md: nothing is listed in a section", check.stderr)


if __name__ == "__main__":
    unittest.main()
