"""brvhost check: each fault is found, and found by the fact that is about it."""

import concurrent.futures
import itertools
import json
import os
import unittest

from brvhost import Case, EXECUTABLE_FOLDER, LEGER_LINES, SANITIZED, brvhost, faulty
from misbehaviour import MISBEHAVES, misbehaviour

# Fault, the first fact that fails, and words of the message.
FAULTS = [
    ("needs_missing_library", "exports-entry-points", "DefinedNowhere"),
    ("lacks_entry_points", "exports-entry-points", "BrevixExtensionInvoke"),
    ("does_not_bind", "binds-to-host", "main returns 0"),
    ("wrong_version", "is-for-this-version", "0x18000000, not 0x19500000"),
    ("fails_to_initialise", "initialises", "returns 0"),
    ("leaves_init_word", "initialises", "leaves its word"),
    ("offers_nothing", "ends-item-list", "no item"),
    ("never_ends_its_list", "ends-item-list", "more than 1000"),
    ("leaves_text_open", "ends-texts", "text 2 of item 0 has no end"),
    ("leaves_last_word", "clears-last-word", "0xA5A5A5A5"),
    ("writes_past_texts", "stays-within-texts", "beyond the record"),
    ("writes_to_refused_texts", "leaves-refused-texts", "it writes"),
    ("odd_menu_status", "has-menu-status", "-3"),
    ("takes_any_index", "refuses-wrong-item", "item 1"),
    ("ignores_decline", "respects-decline", ""),
    ("needs_host_functions", "works-without-functions", ""),
    ("leaks_frames", "frees-frames", "leaves frames loaded: 1 in all, loaded in BrevixExtensionInvoke"),
    ("leaks_frames_out_of_sight", "frees-frames", "leaves frames loaded: 1 in all, loaded in a function that is not exported"),
    ("frees_twice", "frees-frames", "item 0 frees a frame that is not loaded"),
    ("leaves_progress_open", "ends-edits", "progress"),
    ("leaves_edit_open", "ends-edits", "edit"),
    ("hangs_when_cancelled", "ends-when-cancelled", "does not return in BrevixExtensionInvoke within 5 seconds"),
    ("leaks_when_save_fails", "survives-one-failure",
     "item 0 leaves frames loaded: 1 in all, loaded in BrevixExtensionInvoke, where call 2 fails (BX_SaveTGF)"),
    ("ends_progress_that_did_not_start", "survives-one-failure",
     "item 0 ends a progress display that it has not started, where call 1 fails (BX_StartMassEdit)"),
    ("crashes_when_records_fail", "survives-one-failure", "crashes in BrevixExtensionInvoke: signal 6 (Aborted)"),
    ("crashes_when_invoked", "works-without-functions", "Aborted"),
    ("crashes_at_the_end", "works-without-functions", "Aborted"),
]

# Faults that no other fact finds, and the whole message.
FOUND_ALONE = [
    ("leaves_edit_when_calls_fail", "survives-lasting-failure",
     "item 0 leaves an edit open, where call 1 fails (BX_StartBrevixEdit), and all after it"),
    ("asks_whether_measures_are_empty", "avoids-leaving-calls",
     "item 0 leaves frames loaded: 1 in all, loaded in BXUtilIsEmptyMeasure"),
    ("saves_what_did_not_change", "changes-nothing-twice", "item 0 saves frames without a change: 1 in all"),
    ("toggles", "changes-nothing-twice", "item 0 changes the score again"),
    ("alternates", "repeats-its-result", "item 0 returns 1 and then 0"),
    ("needs_entries", "works-without-entries", "crashes in BrevixExtensionInvoke: signal 6 (Aborted)"),
    ("needs_two_measures", "works-on-one-measure", "crashes in BrevixExtensionInvoke: signal 6 (Aborted)"),
    ("counts_measures_in_short", "works-on-most-measures", "does not return in BrevixExtensionInvoke within 5 seconds"),
    ("counts_staves_in_short", "works-on-most-staves", "does not return in BrevixExtensionInvoke within 5 seconds"),
    ("has_a_long_name", "has-short-names", f"a name of item 0 has 61 characters: \"{'x' * 60}...\""),
    ("exports_a_name_of_its_own", "exports-nothing-else",
     f"{EXECUTABLE_FOLDER}/exports_a_name_of_its_own.so exports CountOfCalls"),
    ("prints", "prints-nothing", "it writes to the standard output in item 0: \"one [31m line two no end\""),
    ("keeps_descriptors", "closes-descriptors", "item 0 keeps 1 descriptors at each invocation"),
]

# The first fact that fails where an extension misbehaves at each point.
POINTS = {
    "constructors": "exports-entry-points",
    "main": "binds-to-host",
    "BrevixExtensionVersion": "is-for-this-version",
    "BrevixExtensionInit": "initialises",
    "BrevixExtensionEnumerate_UTF16": "ends-item-list",
    "BrevixExtensionGetMenuStatus": "has-menu-status",
    "BrevixExtensionInvoke": "refuses-wrong-item",
    "BrevixExtensionTerminate": "works-without-functions",
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
            process = self.succeeds(brvhost("check", "--timeout", 60, bundle))
            facts = brvhost("check", "--list").stdout.splitlines()
            *lines, summary = process.stdout.splitlines()
            self.assertEqual([line[-1:] for line in lines], ["]"] * len(facts))
            self.assertTrue(all(line.startswith("ok      ") for line in lines), process.stdout)
            self.assertEqual(summary, f"{len(facts)} facts: {len(facts)} hold, 0 errors, 0 warnings")

    def test_finds_each_fault(self):
        for fault, fact, words in FAULTS:
            with self.subTest(fault):
                process = brvhost("check", "--timeout", 5, faulty(fault))
                self.assertEqual(process.returncode, 1, process.stdout + process.stderr)
                failed = [line for line in process.stdout.splitlines() if line.startswith("FAILED  ")]
                self.assertTrue(failed[0].endswith(f" [{fact}]"), process.stdout)
                self.assertIn(words, failed[0])

    def test_finds_each_fault_by_the_fact_about_it_alone(self):
        for fault, fact, message in FOUND_ALONE:
            with self.subTest(fault):
                process = brvhost("check", "--json", "--only-failed", "--timeout", 5, faulty(fault))
                *failed, _ = map(json.loads, process.stdout.splitlines())
                self.assertEqual([(line["fact"], line["message"]) for line in failed], [(fact, message)])

    def test_finds_threads_that_go_on(self):
        # The memory that such a thread has is found, too.
        process = brvhost("check", "--only-failed", "--exclude", "releases-memory", faulty("starts_a_thread"))
        self.assertEqual(process.stdout.splitlines()[:-1], [
            "warning leaves no thread when it returns: of the threads that it starts in item 0, 1 goes on [ends-threads]"])

    @unittest.skipIf(SANITIZED, "the sanitizer has memory of its own")
    def test_finds_a_byte_that_is_kept_at_each_invocation(self):
        process = brvhost("check", "--only-failed", faulty("keeps_a_byte"))
        lines = process.stdout.splitlines()[:-1]
        self.assertEqual(len(lines), 1)
        self.assertRegex(lines[0], r"^warning takes no more memory with each invocation: item 0 keeps \d+ bytes of memory at each "
                                   r"invocation \[releases-memory\]$")

    def test_names_each_way_to_misbehave_and_the_point(self):
        cells = list(itertools.product(POINTS, WAYS))
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as executor:
            processes = executor.map(lambda cell: brvhost("check", MISBEHAVES, environment=misbehaviour(*cell)), cells)
            for (point, way), process in zip(cells, processes):
                with self.subTest(f"{way} at {point}"):
                    failed = [line for line in process.stdout.splitlines() if line.startswith("FAILED  ")]
                    self.assertTrue(failed[0].endswith(f": {message(point, way)} [{POINTS[point]}]"), failed[0])
                    self.assertEqual((process.stderr, process.returncode), ("", 1))

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
