"""What the options of brvhost select: staves, measures and layers as lists."""

import unittest

from brvhost import Case, HIDDEN_NOTE, HIDE, NOTE, brvhost, faulty, run


def part_of(number, measures):
    return f'<part id="P{number}">' + "".join(f'<measure number="{i}">{m}</measure>' for i, m in enumerate(measures, 1)) + "</part>"


def score_of(*parts):
    """A score of parts, each a list of what is in its measures."""
    return ("<score-partwise><part-list>" + "".join(f'<score-part id="P{i}"/>' for i in range(1, len(parts) + 1)) +
            "</part-list>" + "".join(part_of(i, part) for i, part in enumerate(parts, 1)) + "</score-partwise>")


def in_voices(*voices):
    return "".join(f"<note><duration>1</duration><voice>{voice}</voice></note>" for voice in voices)


class Lists(Case):
    STAVES, MEASURES = 5, 6

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score_of(*[[NOTE] * self.MEASURES] * self.STAVES))
        self.out = self.folder / "out.musicxml"

    MESSAGE = "No ledger lines were hidden: the region has no notes, or theirs are hidden already.\n"

    def hides(self, staves, measures, *options, message=False):
        """That the options hide the notes of these staves and measures, and no others; whether one block has none to hide."""
        process = self.succeeds(run(HIDE, *options, self.score, "-o", self.out))
        wanted = score_of(*[[HIDDEN_NOTE if staff in staves and measure in measures else NOTE
                             for measure in range(1, self.MEASURES + 1)] for staff in range(1, self.STAVES + 1)])
        self.assertEqual(self.out.read_text(), wanted)
        self.out.unlink()
        self.assertEqual(process.stdout, (self.MESSAGE if message else "") +
                         f"{self.score}: {len(staves) * len(measures)} of 30 entries changed, written to {self.out}\n")

    def test_select_what_they_name(self):
        self.hides({1, 3}, {1, 2, 3, 4, 5, 6}, "--staves", "1,3")
        self.hides({1, 2, 3, 4, 5}, {2, 4, 5, 6}, "--measures", "2,4-")
        self.hides({1, 4, 5}, {1, 2, 3, 6}, "--staves", "4-9,1", "--measures", "6,2-3,1,1-2")
        self.hides({1, 4, 5}, {1, 2, 3, 6}, "--staves", " 4-9, 1 ", "--measures", "m6, m1-m3")

    def test_take_positions_from_the_first_and_the_last_measure_of_all(self):
        self.hides({1, 3}, {1, 4, 6}, "--staves", "1,3", "--measures", "1,4,6", "--start-at", "0", "--end-at", "0")
        self.hides({2}, {4, 6}, "--staves", "2", "--measures", "1,4,6", "--start-at", "1/2", message=True)

    def test_write_a_score_in_place_once(self):
        process = self.succeeds(run(HIDE, "--staves", "1,3,5", "--in-place", self.score))
        self.assertEqual(process.stdout, f"{self.score}: 18 of 30 entries changed, written to {self.score}\n")

    def test_are_refused_where_they_are_none_or_start_beyond_the_score(self):
        for wrong, message in {
                "1,,3": "--staves 1,,3: is not a list of ranges such as 3, 2-5, 2- or -5",
                "1;3": "--staves 1;3: is not a list of ranges such as 3, 2-5, 2- or -5",
                "1 - 3": "--staves 1 - 3: is not a list of ranges such as 3, 2-5, 2- or -5",
                "1, 5-2": "--staves 1, 5-2: 5-2 starts after its end",
                "1,5-2": "--staves 1,5-2: 5-2 starts after its end",
                "5-2": "--staves 5-2: starts after its end",
                "1,7-8": f"{self.score}: the region goes on at staff 7, but the score has only 5"}.items():
            process = run(HIDE, "--staves", wrong, "--dry-run", self.score)
            self.assertEqual((process.returncode, process.stderr), (2, f"brvhost: {message}\n"))
        self.fails(run(HIDE, "--measures", "M1", "--dry-run", self.score), 2,
                   "--measures M1: is not a list of ranges such as 3, 2-5, 2- or -5, nor of printed numbers such as m12\n")

    def test_of_layers_take_ranges(self):
        self.score.write_text(score_of([in_voices(1, 2, 3, 4, 5)]))
        self.succeeds(run(HIDE, "--layers", "4-9,1", self.score, "-o", self.out))
        hidden = [voice in (1, 4, 5) for voice in range(1, 6)]
        self.assertEqual(self.out.read_text(), score_of(["".join(
            in_voices(voice).replace("<note", '<note print-leger="no"' if hide else "<note") for voice, hide in enumerate(hidden, 1))]))
        self.fails(run(HIDE, "--layers", "1,6-7", self.score, "--dry-run"), 2,
                   "the region is to show layer 6, but its staves have only 5")


class PartsAndVoices(Case):
    NAMES = ["Violin I", "Violin II", "Horns 1, 2"]

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", self.with_hidden(set()))
        self.out = self.folder / "out.musicxml"

    def with_hidden(self, hidden):
        """A score of three parts with the voices 1 and 2, and 2 and 5, and 1; the pairs of part and voice are hidden."""
        voices = [(1, [1, 2]), (2, [2, 5]), (3, [1])]
        parts = "".join(f'<part id="P{part}"><measure number="1">' + "".join(
            in_voices(voice).replace("<note", '<note print-leger="no"' if (part, voice) in hidden else "<note")
            for voice in own) + "</measure></part>" for part, own in voices)
        names = "".join(f'<score-part id="P{number}"><part-name>{name}</part-name></score-part>'
                        for number, name in enumerate(self.NAMES, 1))
        return f"<score-partwise><part-list>{names}</part-list>{parts}</score-partwise>"

    def hides(self, hidden, *options):
        self.succeeds(run(HIDE, *options, self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), self.with_hidden(hidden))
        self.out.unlink()

    def test_are_selected_by_name(self):
        self.hides({(2, 2), (2, 5), (3, 1)}, "--parts", "violin ii,P3")
        self.hides({(1, 1), (1, 2), (3, 1)}, "--parts", "Horns 1, 2", "--parts", "Violin I")
        self.hides({(1, 1), (3, 1)}, "--voices", "1")
        self.hides({(1, 2), (2, 2), (2, 5)}, "--voices", "5, 2 ")
        self.hides({(2, 2)}, "--voices", "2", "--staves", "2-3")
        self.hides({(1, 1)}, "--voices", "1", "--parts", "VIOLIN I", "--measures", "m1")

    def test_are_refused_where_there_are_none_of_the_name(self):
        for options, message in {
                ("--parts", "Violn I"): 'the score has no part "Violn I"; the nearest is Violin I; it has Violin I, Violin II, Horns 1, 2',
                ("--voices", "1,7"): "the region is to show voice 7, but its staves have only 1, 2, 5"}.items():
            process = run(HIDE, *options, self.score, "--dry-run")
            self.assertEqual((process.returncode, process.stderr), (2, f"brvhost: {self.score}: {message}\n"))

    def test_are_refused_beside_what_names_the_same_otherwise(self):
        for options, message in {
                ("--parts", "Violin I", "--staves", "1"): "--parts and --staves: both name staves; give one of them",
                ("--voices", "1", "--layers", "1"): "--voices and --layers: both name layers; give one of them",
                ("--all", "--parts", "Viola"): "--all and --parts Viola: the whole score or a part of it, not both",
                ("--parts", ""): "--parts: is empty", ("--parts", "Viola", "--parts", ""): "--parts: is empty",
                ("--voices", ""): "--voices: is empty", ("--voices", "1, "): "--voices 1, : has an empty name in it",
                ("--parts",): "--parts: needs a value, --parts NAMES"}.items():
            process = run(HIDE, self.score, "--dry-run", *options)
            self.assertEqual((process.returncode, process.stderr), (2, f"brvhost: {message}\n"))


class PrintedNumbers(Case):
    NUMBERS = [("0", False), ("1", True), ("2", True), ("X1", False), ("3-4", True), ("1", True), ("2", True)]

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", self.numbered(set()))
        self.out = self.folder / "out.musicxml"

    def numbered(self, hidden):
        """A score of a pick-up, two measures, the rest of a split one, one for two measures, and a new start."""
        measures = "".join(f'<measure number="{number}"{"" if printed else " implicit=" + chr(34) + "yes" + chr(34)}>'
                           f"{HIDDEN_NOTE if order in hidden else NOTE}</measure>"
                           for order, (number, printed) in enumerate(self.NUMBERS, 1))
        return f'<score-partwise><part id="A">{measures}</part></score-partwise>'

    def test_name_measures(self):
        for measures, hidden in {"m0": {1}, "mX1": {4}, "m0-m1/1": {1, 2}, "m2/2,m1/2": {6, 7}, r"m3\-4-": {5, 6, 7},
                                 "-mX1": {1, 2, 3, 4}}.items():
            self.succeeds(run(HIDE, "--measures", measures, self.score, "-o", self.out))
            self.assertEqual(self.out.read_text(), self.numbered(hidden), measures)
            self.out.unlink()

    def test_are_refused_where_they_name_none_or_several(self):
        for measures, message in {
                "m1": "the printed number 1 is that of 2 measures: m1/1 is measure 2, m1/2 is measure 6",
                "m3": "the score has no measure with the printed number 3; those that it has are (0), 1-2, (X1), 3-4, 1-2"}.items():
            process = run(HIDE, "--measures", measures, self.score, "--dry-run")
            self.assertEqual((process.returncode, process.stderr), (2, f"brvhost: {self.score}: {message}\n"))

    def test_are_refused_with_advice_where_they_are_badly_written(self):
        for measures in ("m12-20", "12-m20", "m3,5", "m", "m3,", "m1-2-m4"):
            process = run(HIDE, "--measures", measures, self.score, "--dry-run")
            self.assertEqual((process.returncode, process.stderr), (2, f"brvhost: --measures {measures}: is not a list of printed "
                             "numbers such as m12, m12-m20, m12-, -m20 or m12/2 (the second measure with that number): m stands "
                             "before each, and a backslash before a dash, a comma or a slash within one\n"))

    def test_are_shown_beside_the_order(self):
        self.assertIn("\n  measures  7\n  printed   1-5: (0), 1-2, (X1), 3-4\n            6-7: 1-2\n  layers    ",
                      self.succeeds(brvhost("info", self.score)).stdout)


class Blocks(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score_of(*[[NOTE] * 4] * 3))

    def regions(self, *options):
        """What an extension is invoked on that spoils its records each time."""
        process = self.succeeds(run(0, *options, "--in-place", self.score, bundle=faulty("shows_its_region")))
        return [line.strip() for line in process.stdout.splitlines()]

    def test_are_invoked_in_order_on_one_open_score(self):
        whole = "of staves 1-3 measures 1@0-4@end; selected"
        self.assertEqual(self.regions("--staves", "3,1", "--measures", "3,1", "--layers", "1", "--start-at", "0", "--end-at", "1"), [
            f"staves 1-1 measures 1@0-1@end layers 1; {whole}; changed 1",
            f"staves 1-1 measures 3@0-3@10080 layers 1; {whole}; changed 2",
            f"staves 3-3 measures 1@0-1@end layers 1; {whole}; changed 3",
            f"staves 3-3 measures 3@0-3@10080 layers 1; {whole}; changed 4",
            f"{self.score}: 4 of 12 entries changed, written to {self.score}"])
        changed = [HIDDEN_NOTE, NOTE, HIDDEN_NOTE, NOTE]
        self.assertEqual(self.score.read_text(), score_of(changed, [NOTE] * 4, changed))

    def test_that_touch_are_one(self):
        self.assertEqual(self.regions("--staves", "2,1,3", "--measures", "1-2,2-4"), [
            "staves 1-3 measures 1@0-4@end layers 1 2 3 4; of staves 1-3 measures 1@0-4@end; selected; changed 1",
            f"{self.score}: 1 of 12 entries changed, written to {self.score}"])

    def test_keep_the_records_of_those_before(self):
        process = self.succeeds(run(0, "--measures", "1,3", "--dry-run", self.score, bundle=faulty("keeps_records")))
        created = [line.strip() for line in process.stdout.splitlines() if "create" in line]
        # The second report has the first one, too.
        first = ["create 1", "create 1", "create 0", "create 1"]
        self.assertEqual(created, [*first, *first, "create 0", "create 0", "create 0", "create 1"])

    def test_end_with_the_first_that_fails(self):
        process = run(0, "--measures", "1,3", "--dry-run", self.score, bundle=faulty("throws_when_invoked"))
        self.fails(process, 1, "the extension throws_when_invoked failed: ")
        self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)


if __name__ == "__main__":
    unittest.main()
