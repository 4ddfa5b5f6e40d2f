"""What a run reports for people: which entries change, which scores would."""

import signal
import subprocess
import unittest

from brvhost import Case, HIDDEN_NOTE, HIDE, NOTE, PROGRAM, SHOW, faulty, run, score

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

    def test_are_on_the_standard_error_where_the_result_is_on_the_other(self):
        process = self.succeeds(run(HIDE, "--list", "--layers", 2, self.score, "-o", "-"))
        self.assertEqual(process.stderr, f"{self.score}:6: staff 1, measure 1, layer 2, position 3: hidden\n"
                                         f"{self.score}: 1 of 4 entries changed, written to the standard output\n")

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


class Loudness(Case):
    def setUp(self):
        super().setUp()
        chord = NOTE.replace("<duration>", "<chord/><duration>")
        mixed = self.write("a.musicxml", score(HIDDEN_NOTE + chord))  # of which there is a warning
        self.scores = [mixed, self.write("b.musicxml", score()), self.write("c.musicxml", "<x/>")]

    def test_by_default_counts_scores(self):
        process = run(HIDE, "--all", "--in-place", *self.scores)
        self.assertEqual((process.returncode, process.stdout), (2, "3 scores: 2 changed, 0 unchanged, 1 failed\n"))
        self.assertIn(": warning: ", process.stderr)

    def test_that_is_quiet_leaves_errors(self):
        process = run(HIDE, "--all", "--in-place", "--quiet", *self.scores)
        self.assertEqual((process.returncode, process.stdout), (2, ""))
        self.assertEqual(process.stderr, f"brvhost: {self.scores[2]}:1:1: not MusicXML: the root element is <x>\n")

    def test_that_is_quiet_leaves_out_what_the_extension_shows_and_prints(self):
        for bundle in ("prints", "shows_terminal_controls"):
            process = self.succeeds(run(0, "--all", "--in-place", "-q", self.scores[1], bundle=faulty(bundle)))
            self.assertEqual((process.stdout, process.stderr), ("", ""))

    def test_that_is_quiet_leaves_lists(self):
        process = self.succeeds(run(HIDE, "--all", "--dry-run", "--quiet", "--list", self.scores[1]))
        self.assertEqual(process.stdout, f"{self.scores[1]}:1: staff 1, measure 1, layer 1, position 0: would be hidden\n")

    def test_that_is_verbose_names_each_score(self):
        process = run(HIDE, "--all", "--in-place", "--verbose", *self.scores)
        self.assertEqual(process.stdout, f"""\
{self.scores[0]}: 1 of 1 entries changed, written to {self.scores[0]}
{self.scores[1]}: 1 of 1 entries changed, written to {self.scores[1]}
3 scores: 2 changed, 0 unchanged, 1 failed
""")

    def test_that_is_verbose_names_what_an_interrupt_has_left_undone(self):
        command = [PROGRAM, "run", faulty("works_until_cancelled"), "--item", "0", "--all", "--in-place", "-v",
                   *map(str, self.scores)]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.assertIn("working", process.stdout.readline())
        process.send_signal(signal.SIGINT)
        output, _ = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)
        self.assertEqual(output.splitlines()[-4:], [
            f"{self.scores[0]}: interrupted", f"{self.scores[1]}: not run", f"{self.scores[2]}: not run",
            "3 scores: 0 changed, 0 unchanged, 0 failed, 1 interrupted, 2 not run"])

    def test_cannot_be_both(self):
        process = run(HIDE, "--all", "--in-place", "-q", "-v", *self.scores)
        self.assertEqual((process.returncode, process.stderr), (2, "brvhost: --quiet and --verbose: one or the other, not both\n"))


if __name__ == "__main__":
    unittest.main()
