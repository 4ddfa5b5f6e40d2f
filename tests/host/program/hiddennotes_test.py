"""Which ledger lines are hidden: brvhost's rule against the table of cases that other programs keep to as well."""

import json
import os
import pathlib
import re
import unittest

from brvhost import HIDE, SHOW, brvhost, run
from jsoncase import JsonCase

SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
DOCUMENT = SOURCE / "docs" / "hidden-ledger-lines.md"
TABLE = json.loads((SOURCE / "tests" / "support" / "hiddennotes.json").read_text())
CASES = TABLE["cases"]


def music(case):
    return "".join(f"{note['tag']}{note.get('content', TABLE['content'])}</note>" for note in case["notes"])


def score_of(case):
    declarations = case.get("declarations")
    doctype = f"<!DOCTYPE score-partwise [{declarations}]>" if declarations else ""
    return (f'{doctype}<score-partwise version="4.0"><part-list><score-part id="P1"/></part-list><part id="P1">'
            f'<measure number="1">{music(case)}</measure></part></score-partwise>')


def is_mixed(case):
    """Whether it has a chord, on one staff, whose notes differ."""
    return len(case["entries"]) < len({note["hidden"] for note in case["notes"]})


class Cases(JsonCase):
    def setUp(self):
        super().setUp()
        self.scores = [self.write(f"{number:02}.musicxml", score_of(case)) for number, case in enumerate(CASES)]

    def changes(self, item):
        """For each score the entries that the item would change."""
        process = self.succeeds(run(item, "--all", "--dry-run", "--list", "--json", *self.scores))
        lines = {line["score"]: line["changes"] for line in self.lines("run", process.stdout)}
        return [lines[str(score)] for score in self.scores]

    def test_are_those_that_showing_finds_and_hiding_leaves(self):
        self.assertTrue(CASES)
        for case, shown, hidden in zip(CASES, self.changes(SHOW), self.changes(HIDE), strict=True):
            with self.subTest(case["case"]):
                entries = sorted((change["staff"], change["layer"], change["position"], not change["hidden"])
                                 for change in shown + hidden)
                self.assertEqual([was_hidden for *_, was_hidden in entries], case["entries"])

    def test_have_a_mixed_chord_where_its_notes_differ(self):
        lines = self.lines("info", self.succeeds(brvhost("info", "--json", *self.scores)).stdout)
        self.assertEqual([len(line["mixedChords"]) for line in lines], [int(is_mixed(case)) for case in CASES])
        self.assertIn(True, map(is_mixed, CASES))


def words(states, hidden, shown):
    return ", ".join(hidden if state else shown for state in states)


def row(case):
    tags = ", ".join(f"`{note['tag']}`" for note in case["notes"])
    declarations = f" (`{case['declarations']}`)" if "declarations" in case else ""
    return [case["case"] + declarations, tags, words((note["hidden"] for note in case["notes"]), "hidden", "shown"),
            words(case["entries"], "hidden", "shown")]


class Document(unittest.TestCase):
    def test_has_the_same_table(self):
        lines = re.findall(r"^\| (.*) \|$", DOCUMENT.read_text(), re.MULTILINE)
        self.assertEqual([line.split(" | ") for line in lines[1:]], [row(case) for case in CASES])


if __name__ == "__main__":
    unittest.main()
