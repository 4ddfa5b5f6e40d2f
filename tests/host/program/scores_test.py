"""The main job on real scores, against an independent reader. Without the folder of scores there is nothing to compare."""

import fractions
import functools
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

# Staves, measures, first and last position, in quarters: a middle, a single staff to the end, beyond which a last position
# does not count, and a corner of one measure, which is too short in some scores.
REGIONS = [((2, 3), (5, 20), "1", "3/2"), ((4, 4), (1, 9999), "0.5", "1"), ((1, 2), (7, 7), "1", "2.5")]



class Original:
    """What the independent reader finds in a score, without its document, as all of them would not fit in memory."""

    def __init__(self, score):
        root = ElementTree.fromstring(scorereader.document(score))
        reading = scorereader.Reading(root)
        self.lengths = reading.lengths
        # Of the measures whose numbers are printed, by their order.
        self.printed = {order: measure.get("number") for order, measure in enumerate(scorereader.parts(root)[0], 1)
                        if measure.get("implicit") != "yes"}
        self.hides_some = any(entry.is_hidden() for entry in reading.entries)
        self.entries = reading.entries
        notes = list(root.iter("note"))
        self.attributes = [note.get("print-leger") for note in notes]
        numbers = {note: number for number, note in enumerate(notes)}
        for entry in self.entries:
            entry.notes = [numbers[note] for note in entry.notes]

    def attributes_after_hiding(self, is_selected):
        """What each note's attribute has to be once the ledger lines of selected entries are hidden."""
        wanted = list(self.attributes)
        for entry in filter(is_selected, self.entries):
            for number in entry.notes:
                wanted[number] = "no"
        return wanted


original = functools.lru_cache(maxsize=None)(Original)


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
                self.assertEqual(list(map(scorereader.has_no, notes)), [True] * len(original(score).attributes))

    def test_do_not_change_a_second_time(self):
        process = self.succeeds(run(HIDE, "--all", "--jobs", "2", "--in-place", *sorted(self.hidden.iterdir())))
        self.assertIn(f"{len(SCORES)} scores: 0 changed, {len(SCORES)} unchanged, 0 failed", process.stdout)

    def test_with_nothing_hidden_change_no_byte_when_shown(self):
        process = self.succeeds(run(SHOW, "--all", "--jobs", "2", *SCORES, "--out-dir", self.folder))
        unchanged = 0
        for score in SCORES:
            if original(score).hides_some:
                continue
            with self.subTest(score.name):
                self.assertEqual(scorereader.document(score), scorereader.document(self.folder / score.name))
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
        """Hides a region in all quartets, in a folder of its own; returns it and what brvhost had to report."""
        (first_staff, last_staff), (first_measure, last_measure), start_at, end_at = region
        folder = self.folder / str(number)
        process = run(HIDE, "--jobs", "2", "--staves", f"{first_staff}-{last_staff}", "--measures",
                      f"{first_measure}-{last_measure}", "--start-at", start_at, "--end-at", end_at, *QUARTETS,
                      "--out-dir", folder)
        return folder, process.stderr

    @staticmethod
    def selection(region):
        (first_staff, last_staff), (first_measure, last_measure), start_at, end_at = region
        low, high = fractions.Fraction(start_at), fractions.Fraction(end_at)
        return lambda entry: (first_staff <= entry.staff <= last_staff and first_measure <= entry.measure <= last_measure
                              and (entry.measure != first_measure or entry.position >= low)
                              and (entry.measure != last_measure or entry.position <= high))

    @staticmethod
    def refusal(region, lengths):
        """What is wrong with the region in a score whose measures have these lengths; None if nothing is."""
        _, (first_measure, last_measure), start_at, end_at = region
        for does, measure, position in (("starts", first_measure, start_at), ("ends", last_measure, end_at)):
            position = fractions.Fraction(position)
            if measure <= len(lengths) and position > lengths[measure - 1]:
                return f"the region {does} at position {position} in measure {measure}, whose length is only " \
                       f"{lengths[measure - 1]} (in quarter notes)"
        return None

    def test_are_hidden_and_nothing_else(self):
        results = [self.hide(number, region) for number, region in enumerate(REGIONS)]
        selected = [0] * len(REGIONS)
        refusals = 0
        for score in QUARTETS:
            for number, (region, (folder, errors)) in enumerate(zip(REGIONS, results)):
                with self.subTest(score.name, region=region):
                    refusal = self.refusal(region, original(score).lengths)
                    self.assertEqual(refusal is None, str(score) not in errors)
                    if refusal:
                        self.assertIn(f"brvhost: {score}: {refusal}\n", errors)
                        self.assertFalse((folder / score.name).exists())
                        refusals += 1
                        continue
                    is_selected = self.selection(region)
                    notes = scorereader.start_tags(scorereader.document(folder / score.name))
                    wanted = original(score).attributes_after_hiding(is_selected)
                    wrong = [number for number, (note, attribute) in enumerate(zip(notes, wanted, strict=True), 1)
                             if note.get("print-leger") != attribute]
                    self.assertEqual(wrong[:10], [])
                    selected[number] += sum(map(is_selected, original(score).entries))
        self.assertTrue(all(count > len(QUARTETS) for count in selected), selected)
        self.assertLess(refusals, len(QUARTETS))


@unittest.skipUnless(QUARTETS, f"no quartets in {SHARED}: nothing to run on")
class Names(Case):
    """The outer measures of a passage and one more in the first movement, by their printed numbers, in two parts."""

    PARTS, STAVES = "violin 1,VIOLA", (1, 3)
    MEASURES = "m30/1,m5/1-m20/1"

    def test_of_parts_and_measures_are_hidden_and_nothing_else(self):
        self.succeeds(run(HIDE, "--jobs", "2", "--parts", self.PARTS, "--measures", self.MEASURES, *QUARTETS, "--out-dir",
                          self.folder))
        for score in QUARTETS:
            with self.subTest(score.name):
                orders = {number: order for order, number in reversed(original(score).printed.items())}
                measures = {orders["30"], *range(orders["5"], orders["20"] + 1)}
                wanted = original(score).attributes_after_hiding(
                    lambda entry: entry.staff in self.STAVES and entry.measure in measures)
                notes = scorereader.start_tags(scorereader.document(self.folder / score.name))
                self.assertEqual([note.get("print-leger") for note in notes], wanted)


if __name__ == "__main__":
    unittest.main()
