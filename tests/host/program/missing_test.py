"""What brvhost reports of functions that an extension asks for and brvhost does not have."""

import json
import unittest

from brvhost import Case, LEGER_LINES, brvhost, faulty, score

MISSING = "makes_many_calls asked for 2 functions that brvhost does not have: BX_IsCocoaBXDLG, BX_ProcessMidiData\n"


class MissingFunctions(Case):
    def run_all(self, bundle, *arguments):
        return brvhost("run", bundle, "--item", 0, "--all", "--dry-run", *arguments)

    def told(self, process):
        """The lines about them on the standard error."""
        return [line for line in process.stderr.splitlines(keepends=True) if "asked for" in line]

    def test_are_named_at_the_end_of_a_run(self):
        process = self.succeeds(self.run_all(faulty("makes_many_calls"), self.write("a.xml", score())))
        self.assertEqual(self.told(process), [f"brvhost: {MISSING}"])

    def test_are_named_once_for_several_scores(self):
        paths = [self.write(f"{name}.xml", score()) for name in "abc"]
        process = self.succeeds(self.run_all(faulty("makes_many_calls"), "--jobs", 2, *paths))
        self.assertEqual(self.told(process), [f"brvhost: {MISSING}"])

    def test_are_named_with_their_score_where_each_is(self):
        paths = [self.write(f"{name}.xml", score()) for name in "ab"]
        process = self.succeeds(self.run_all(faulty("makes_many_calls"), "--verbose", *paths))
        self.assertEqual(self.told(process), [f"brvhost: {paths[0]}: {MISSING}", f"brvhost: {MISSING}"])

    def test_are_a_note_of_a_check(self):
        process = self.succeeds(brvhost("check", "--strict", "--include", "asks-for", faulty("makes_many_calls"), LEGER_LINES))
        self.assertEqual(process.stdout.splitlines()[1:], [
            "note    asks for host functions that brvhost has: it asked for 2 functions that brvhost does not have: BX_IsCocoaBXDLG, "
            "BX_ProcessMidiData [asks-for-known-functions]",
            LEGER_LINES, "ok      asks for host functions that brvhost has [asks-for-known-functions]",
            "2 facts of 2 bundles: 1 holds, 0 errors, 0 warnings, 1 note"])

    def test_are_not_named_where_only_failures_are(self):
        process = self.succeeds(self.run_all(faulty("makes_many_calls"), "--quiet", self.write("a.xml", score())))
        self.assertEqual(self.told(process), [])

    def test_are_in_the_json_of_each_score(self):
        paths = [self.write("a.xml", score()), self.folder / "none.xml", self.write("c.xml", score())]
        process = self.run_all(faulty("makes_many_calls"), "--json", *paths)
        lines = {line["score"]: line["missingFunctions"] for line in map(json.loads, process.stdout.splitlines())}
        both = ["BX_IsCocoaBXDLG", "BX_ProcessMidiData"]
        self.assertEqual(lines, {str(paths[0]): both, str(paths[1]): [], str(paths[2]): both})

    def test_are_known_after_a_crash(self):
        process = self.run_all(faulty("crashes_after_asking"), self.write("a.xml", score()))
        self.fails(process, 1, "crashes_after_asking asked for a function that brvhost does not have: BX_CountParts\n")

    def test_are_none_of_what_leger_lines_asks_for(self):
        self.assertEqual(self.told(self.run_all(LEGER_LINES, self.write("a.xml", score()))), [])


if __name__ == "__main__":
    unittest.main()
