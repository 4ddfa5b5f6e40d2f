"""ScoreReport, built from the installed kit, on samples and real scores, against an independent reader."""

import os
import pathlib
import pty
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

import reportreader
import scorereader
from brvhost import Case, PROGRAM, SAMPLES, brvhost
from installed import SOURCE, build_example

SHARED = pathlib.Path(os.environ.get("BRV_SHARED_DIR", SOURCE.parent / "shared"))
SCORES = sorted((SHARED / "scores" / "conformance").glob("*.*")) + sorted((SHARED / "scores" / "quartets").glob("*.mxl"))


def reports_of(bundle, paths):
    """The reports on scores, each as lists of columns: of the staves and of the measures."""
    output = brvhost("run", bundle, "--item", "0", "--all", "--dry-run", *paths)
    assert output.returncode == 0, output.stderr
    for path in paths:
        prefix = f"{path}: " if len(paths) > 1 else ""
        lines = [line.removeprefix(prefix) for line in output.stdout.splitlines() if line.startswith(prefix)]
        end = lines.index("")
        staves, changes = lines[1:end], lines[end + 2:lines.index("", end + 1)]
        yield list(map(columns, staves)), list(map(columns, changes))


def columns(line):
    return re.split(r"\s{2,}", line.strip())


class ReportCase(Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.bundle = cls.build(pathlib.Path(folder.name))

    @classmethod
    def build(cls, folder):
        return build_example(folder)

    def check(self, paths):
        for path, (staves, changes) in zip(paths, reports_of(self.bundle, paths), strict=True):
            with self.subTest(path.name):
                expected_staves, expected_changes = reportreader.report(ElementTree.fromstring(scorereader.document(path)))
                self.assertEqual(staves, [[str(value) for value in (number, *staff) if value != ""]
                                          for number, staff in enumerate(expected_staves, 1)])
                self.assertEqual(changes, [list(map(str, change)) for change in expected_changes])


class Report(ReportCase):
    def test_reports_what_is_in_the_samples(self):
        (staves, changes), = reports_of(self.bundle, [SAMPLES / "winds.musicxml"])
        self.assertEqual(staves[1], ["2", "Clarinet in Bb", "major 2nd down", "Bb3", "1", "1"])
        self.assertEqual(changes, [["1", "F major", "4/4"], ["3", "C major", "3/4"]])
        samples = sorted(SAMPLES.glob("*.musicxml"))
        self.assertGreater(len(samples), 1)
        self.check(samples)

    def test_keeps_to_the_calling_convention(self):
        process = self.succeeds(brvhost("check", "--only-failed", self.bundle))
        *failed, _ = process.stdout.splitlines()
        self.assertEqual(len(failed), 1)
        self.assertRegex(failed[0], r"^warning .* in all, loaded in BXUtilIsEmptyMeasure \[avoids-leaving-calls\]$")

    def test_keeps_a_caret_from_opening_a_tag(self):
        path = self.write("caret.musicxml", """<score-partwise><part-list><score-part id="P">
            <part-name font-family="Times (Roman)">Horn ^ in
            E\u266D</part-name></score-part></part-list><part id="P"><measure number="1"/></part></score-partwise>""")
        (staves, _), = reports_of(self.bundle, [path])
        self.assertEqual(staves[0][1], "Horn \u02C6 in Eb")

    def test_asks_before_it_reports_on_a_score_without_selection(self):
        command = ["run", self.bundle, "--item", "0", "--dry-run", SAMPLES / "winds.musicxml"]
        self.assertIn("Piccolo", brvhost(*command, "--yes").stdout)
        screen, terminal = pty.openpty()
        self.addCleanup(os.close, screen)
        self.addCleanup(os.close, terminal)
        os.write(screen, b"n\n")
        declined = subprocess.run([PROGRAM, *map(str, command)], stdin=terminal, stderr=terminal, stdout=subprocess.PIPE,
                                  text=True, timeout=60)
        self.assertEqual(declined.returncode, 0)
        self.assertNotIn("Piccolo", declined.stdout)
        self.assertIn(b"Nothing is selected. Report on the whole score?", os.read(screen, 4096))


@unittest.skipUnless(SCORES, f"no scores in {SHARED}: nothing to report on")
class RealScores(ReportCase):
    def test_agree_with_an_independent_reader(self):
        self.check(SCORES)


if __name__ == "__main__":
    unittest.main()
