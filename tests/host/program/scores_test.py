"""The main job on real scores, against an independent reader. Without the folder of scores there is nothing to compare."""

import fractions
import os
import pathlib
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
import zipfile

import scorereader
from brvhost import Case, HIDE, SHOW, run

SHARED = pathlib.Path(os.environ.get("BRV_SHARED_DIR", pathlib.Path(os.environ["BRV_SOURCE"]).parent / "shared"))
CONFORMANCE = sorted((SHARED / "scores" / "conformance").glob("*.*"))
QUARTETS = sorted((SHARED / "scores" / "quartets").glob("*.mxl"))
SCORES = CONFORMANCE + QUARTETS

# Staves, measures, first and last position, in quarters: a middle, a single staff, and a corner of one measure.
REGIONS = [((2, 3), (5, 20), "1", "3/2"), ((4, 4), (1, 9999), "0.5", "1"), ((1, 2), (7, 7), "1", "2.5")]


@unittest.skipUnless(SCORES, f"no scores in {SHARED}: nothing to run on")
class Scores(Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.hidden = pathlib.Path(folder.name)
        process = run(HIDE, "--all", "--jobs", "2", *SCORES, "--out-dir", cls.hidden)
        assert process.returncode == 0, process.stderr

    def test_are_hidden_whole(self):
        for score in SCORES:
            with self.subTest(score.name):
                notes = scorereader.start_tags(scorereader.document(self.hidden / score.name))
                self.assertTrue(all(map(scorereader.has_no, notes)))

    def test_do_not_change_a_second_time(self):
        process = self.succeeds(run(HIDE, "--all", "--jobs", "2", "--in-place", *sorted(self.hidden.iterdir())))
        self.assertIn(f"{len(SCORES)} scores: 0 changed, {len(SCORES)} unchanged, 0 failed", process.stdout)

    def test_with_nothing_hidden_change_no_byte_when_shown(self):
        process = self.succeeds(run(SHOW, "--all", "--jobs", "2", *SCORES, "--out-dir", self.folder))
        unchanged = 0
        for score in SCORES:
            before = scorereader.document(score)
            entries, _ = scorereader.read(ElementTree.fromstring(before))
            if any(entry.is_hidden() for entry in entries):
                continue
            with self.subTest(score.name):
                self.assertEqual(before, scorereader.document(self.folder / score.name))
                unchanged += 1
        self.assertGreater(unchanged, len(SCORES) / 2, "most scores have nothing hidden")
        self.assertIn(f"{len(SCORES)} scores: {len(SCORES) - unchanged} changed, {unchanged} unchanged", process.stdout)

    def test_come_back_byte_for_byte(self):
        self.succeeds(run(SHOW, "--all", "--jobs", "2", *sorted(self.hidden.iterdir()), "--out-dir", self.folder))
        same = 0
        for score in SCORES:
            with self.subTest(score.name):
                before = scorereader.document(score)
                after = scorereader.document(self.folder / score.name)
                self.assertFalse(any(map(scorereader.has_no, scorereader.start_tags(after))))
                if any("print-leger" in note for note in scorereader.start_tags(before)):
                    continue
                self.assertEqual(before, after)
                same += 1
        self.assertGreater(same, len(SCORES) / 2, "most scores have nothing hidden")

    def test_keep_the_other_members_of_their_archives(self):
        for score in (score for score in SCORES if score.suffix == ".mxl"):
            with zipfile.ZipFile(score) as before, zipfile.ZipFile(self.hidden / score.name) as after:
                self.assertEqual(before.namelist(), after.namelist())
                changed = [name for name in before.namelist() if before.read(name) != after.read(name)]
                self.assertEqual(len(changed), 1)


@unittest.skipUnless(QUARTETS, f"no quartets in {SHARED}: nothing to run on")
class Regions(Case):
    def hide(self, number, region):
        """Hides a region in all quartets, in a folder of its own."""
        (first_staff, last_staff), (first_measure, last_measure), start_at, end_at = region
        folder = self.folder / str(number)
        self.succeeds(run(HIDE, "--jobs", "2", "--staves", f"{first_staff}-{last_staff}", "--measures",
                          f"{first_measure}-{last_measure}", "--start-at", start_at, "--end-at", end_at, *QUARTETS,
                          "--out-dir", folder))
        return folder

    @staticmethod
    def selection(region, measures):
        (first_staff, last_staff), (first_measure, last_measure), start_at, end_at = region
        low, high = fractions.Fraction(start_at), fractions.Fraction(end_at)
        last = min(last_measure, measures)
        return lambda entry: (first_staff <= entry.staff <= last_staff and first_measure <= entry.measure <= last
                              and (entry.measure != first_measure or entry.position >= low)
                              and (entry.measure != last or entry.position <= high))

    def test_are_hidden_and_nothing_else(self):
        folders = [self.hide(number, region) for number, region in enumerate(REGIONS)]
        selected = [0] * len(REGIONS)
        for score in QUARTETS:
            root = ElementTree.fromstring(scorereader.document(score))
            entries, _ = scorereader.read(root)
            measures = max(len(part) for part in scorereader.parts(root))
            for number, region in enumerate(REGIONS):
                with self.subTest(score.name, region=region):
                    is_selected = self.selection(region, measures)
                    wanted = scorereader.attributes_after_hiding(entries, is_selected)
                    result = scorereader.start_tags(scorereader.document(folders[number] / score.name))
                    self.assertEqual([note.get("print-leger") for note in result],
                                     [wanted[note] for note in root.iter("note")])
                    selected[number] += sum(map(is_selected, entries))
        self.assertTrue(all(count > len(QUARTETS) for count in selected), selected)


if __name__ == "__main__":
    unittest.main()
