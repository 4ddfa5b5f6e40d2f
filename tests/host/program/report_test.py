"""What a run reports for people: which entries change, which scores would."""

import unittest

from brvhost import Case, HIDDEN_NOTE, HIDE, NOTE, SHOW, run, score

# More than one message brings.
MANY = 3000


class Changes(Case):
    def setUp(self):
        super().setUp()
        second = NOTE.replace("</note>", "<voice>2</voice></note>")
        self.measure = "\n".join(["", NOTE, HIDDEN_NOTE, NOTE.replace("1<", "2<"), "<backup><duration>1</duration></backup>",
                                  second, ""])
        self.score = self.write("score.musicxml", score(self.measure))

    def test_are_listed_with_their_lines_and_places(self):
        process = self.succeeds(run(HIDE, "--all", "--list", "--in-place", self.score))
        self.assertEqual(process.stdout, f"""\
{self.score}:2: staff 1, measure 1, layer 1, position 0: hidden
{self.score}:4: staff 1, measure 1, layer 1, position 2: hidden
{self.score}:6: staff 1, measure 1, layer 2, position 3: hidden
{self.score}: 3 of 4 entries changed, written to {self.score}
""")
        process = self.succeeds(run(SHOW, "--list", "--in-place", "--measures", 1, "--end-at", 1, self.score))
        self.assertEqual(process.stdout, f"""\
{self.score}:2: staff 1, measure 1, layer 1, position 0: shown
{self.score}:3: staff 1, measure 1, layer 1, position 1: shown
{self.score}: 2 of 4 entries changed, written to {self.score}
""")

    def test_are_those_that_a_dry_run_would_make(self):
        process = self.succeeds(run(HIDE, "--all", "--list", "--dry-run", "--layers", 2, self.score))
        self.assertEqual(process.stdout, f"""\
{self.score}:6: staff 1, measure 1, layer 2, position 3: would be hidden
{self.score}: 1 of 4 entries would change
""")
        self.assertEqual(self.score.read_text(), score(self.measure))

    def test_in_an_archive_are_lines_of_its_member(self):
        path = self.compressed_score()
        process = self.succeeds(run(HIDE, "--all", "--list", "--dry-run", path))
        self.assertEqual(process.stdout, f"{path}: x.xml:1: staff 1, measure 1, layer 1, position 0: would be hidden\n"
                                         f"{path}: 1 of 1 entries would change\n")

    def test_of_several_scores_are_listed_one_score_after_another(self):
        scores = [self.write(f"{number}.musicxml", score("\n" + (NOTE + "\n") * MANY)) for number in range(4)]
        process = self.succeeds(run(HIDE, "--all", "--list", "--in-place", "--jobs", 4, *scores))
        lines = process.stdout.splitlines()
        self.assertEqual(lines.pop(), "4 scores: 4 changed, 0 unchanged, 0 failed")
        of_scores = [lines[start:start + MANY] for start in range(0, len(lines), MANY)]
        self.assertEqual(sorted(of_scores), [
            [f"{path}:{2 + number}: staff 1, measure 1, layer 1, position {number}: hidden" for number in range(MANY)]
            for path in scores])

    def test_are_none_where_the_result_cannot_be_written(self):
        process = run(HIDE, "--all", "--list", self.score, "-o", self.folder / "none" / "out.musicxml")
        self.fails(process, 1)
        self.assertEqual(process.stdout, "")


class DryRuns(Case):
    def test_over_several_scores_name_each_with_its_entries_that_would_change(self):
        texts = {"a.musicxml": score(NOTE * 3), "b.musicxml": score(HIDDEN_NOTE), "c.musicxml": score(HIDDEN_NOTE + NOTE)}
        scores = [self.write(name, text) for name, text in texts.items()]
        bad = self.write("d.musicxml", "<nothing/>")
        process = run(HIDE, "--all", "--dry-run", *scores, bad)
        self.assertEqual(process.stdout, f"""\
{scores[0]}: 3 of 3 entries would change
{scores[1]}: No ledger lines were hidden: the region has no notes, or theirs are hidden already.
{scores[1]}: 0 of 1 entries would change
{scores[2]}: 1 of 2 entries would change
4 scores: 2 would change, 1 unchanged, 1 failed
""")
        self.fails(process, 2, f"brvhost: {bad}:1:1: not MusicXML")
        self.assertEqual({path.name: path.read_text() for path in scores}, texts)


if __name__ == "__main__":
    unittest.main()
