"""brvhost check: each fault is found, and found by the fact that is about it."""

import concurrent.futures
import itertools
import os
import unittest

from brvhost import Case, LEGER_LINES, brvhost, faulty
from misbehaviour import MISBEHAVES, misbehaviour

# Fault, the first fact that fails, and words of the message.
FAULTS = [
    ("needs_missing_library", "loads, and exports the entry points", "DefinedNowhere"),
    ("lacks_entry_points", "loads, and exports the entry points", "BrevixExtensionInvoke"),
    ("does_not_bind", "binds to its host", "main returns 0"),
    ("wrong_version", "is for this version of the host", "0x18000000, not 0x19500000"),
    ("fails_to_initialise", "initialises, and clears the word", "returns 0"),
    ("leaves_init_word", "initialises, and clears the word", "leaves its word"),
    ("offers_nothing", "offers items, and ends their list", "no item"),
    ("never_ends_its_list", "offers items, and ends their list", "more than 1000"),
    ("leaves_text_open", "ends each text of an item", "text 2 of item 0 has no end"),
    ("leaves_last_word", "clears the last word of each item's texts", "0xA5A5A5A5"),
    ("writes_past_texts", "writes to the texts' record alone", "beyond the record"),
    ("writes_to_refused_texts", "does not touch the texts of an item that it does not have", "it writes"),
    ("odd_menu_status", "has a menu status", "-3"),
    ("takes_any_index", "refuses an item that it does not have", "item 1"),
    ("ignores_decline", "does nothing when the user declines", ""),
    ("needs_host_functions", "works in a host without functions", ""),
    ("leaks_frames", "frees each frame that it loads, once", "leaves frames loaded: 1"),
    ("frees_twice", "frees each frame that it loads, once", "item 0 frees a frame that is not loaded"),
    ("leaves_progress_open", "ends the edits and progress that it starts", "progress"),
    ("leaves_edit_open", "ends the edits and progress that it starts", "edit"),
    ("hangs_when_cancelled", "ends in order when the user cancels", "does not return in BrevixExtensionInvoke within 5 seconds"),
    ("saves_what_did_not_change", "changes nothing the second time", "saves frames without a change"),
    ("crashes_when_invoked", "works in a host without functions", "Aborted"),
    ("crashes_at_the_end", "works in a host without functions", "Aborted"),
]

# The first fact that fails where an extension misbehaves at each point.
POINTS = {
    "constructors": "loads, and exports the entry points",
    "main": "binds to its host",
    "BrevixExtensionVersion": "is for this version of the host",
    "BrevixExtensionInit": "initialises, and clears the word",
    "BrevixExtensionEnumerate_UTF16": "offers items, and ends their list",
    "BrevixExtensionGetMenuStatus": "has a menu status",
    "BrevixExtensionInvoke": "refuses an item that it does not have",
    "BrevixExtensionTerminate": "works in a host without functions",
}
# What is reported of each way, with the point.
WAYS = {
    "crash": "crashes in {}: signal 11 (Segmentation fault)",
    "abort": "crashes in {}: signal 6 (Aborted)",
    "exit": "ends the process in {}: status 0",
    "_exit": "ends the process in {}: status 7",
    "throw": "{} threw an exception: there is no font",
    "throw a number": "{} threw an exception: of type int",
    "kill the parent": "loses its guard in {}, and is killed",
    "close descriptors": "closes the connection to brvhost",
}


def message(point, way):
    text = WAYS[way].format("its constructors" if point == "constructors" else point)
    return f"its code does not load: {text}" if point == "constructors" and "threw" in text else text


class Check(Case):
    def test_finds_no_fault_where_there_is_none(self):
        for bundle in (LEGER_LINES, faulty("without_fault")):
            process = self.succeeds(brvhost("check", bundle))
            lines = process.stdout.splitlines()
            self.assertEqual(len(lines), 18)
            self.assertTrue(all(line.startswith("ok      ") for line in lines), process.stdout)

    def test_finds_each_fault(self):
        for fault, fact, words in FAULTS:
            with self.subTest(fault):
                process = brvhost("check", "--timeout", 5, faulty(fault))
                self.assertEqual(process.returncode, 1, process.stdout + process.stderr)
                failed = [line for line in process.stdout.splitlines() if line.startswith("FAILED  ")]
                self.assertTrue(failed[0].startswith(f"FAILED  {fact}: "), process.stdout)
                self.assertIn(words, failed[0])

    def test_names_each_way_to_misbehave_and_the_point(self):
        cells = list(itertools.product(POINTS, WAYS))
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as executor:
            processes = executor.map(lambda cell: brvhost("check", MISBEHAVES, environment=misbehaviour(*cell)), cells)
            for (point, way), process in zip(cells, processes):
                with self.subTest(f"{way} at {point}"):
                    failed = [line for line in process.stdout.splitlines() if line.startswith("FAILED  ")]
                    self.assertEqual((failed[:1], process.stderr, process.returncode),
                                     ([f"FAILED  {POINTS[point]}: {message(point, way)}"], "", 1))

    def test_refuses_a_bundle_that_cannot_be_there(self):
        loop = self.folder / "loop"
        loop.symlink_to(loop)
        for bundle in (loop, self.folder / ("x" * 5000)):
            self.fails(brvhost("check", bundle), 3, f"brvhost: {bundle}: there is no such bundle\n")

    def test_needs_a_place_for_temporary_files(self):
        process = brvhost("check", LEGER_LINES, environment={"TMPDIR": str(self.folder / "none")})
        self.fails(process, 1, "brvhost: there is no place for temporary files\n")

    def test_refuses_a_time_limit_that_is_out_of_range(self):
        for seconds in ("0", "-1", "1000001", "ten"):
            with self.subTest(seconds):
                process = brvhost("check", f"--timeout={seconds}", LEGER_LINES)
                self.assertEqual((process.returncode, process.stdout), (2, ""))
                self.assertRegex(process.stderr, "^brvhost: .*--timeout.*\n$")

    def test_needs_a_bundle(self):
        self.fails(brvhost("check", self.folder / "none.bundle"), 3, "there is no such bundle")


if __name__ == "__main__":
    unittest.main()
