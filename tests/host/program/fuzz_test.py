"""brvhost fuzz: random rounds with an extension."""

import pathlib
import signal
import subprocess
import time
import unittest

from brvhost import BUNDLES, COUNTED, EMULATED, LEGER_LINES, PROGRAM, SANITIZED, Case, brvhost, faulty
from jsoncase import JsonCase
from misbehaviour import MISBEHAVES, misbehaviour

INVOKE = "BrevixExtensionInvoke"
ABORTED, SEGMENTATION_FAULT = (f"crashes in {INVOKE}: signal {number} ({name})"
                               for number, name in ((6, "Aborted"), (11, "Segmentation fault")))
HANGS = f"does not return in {INVOKE} within 1 second"

# What is found within so many rounds from seed 1 on: bundle, rounds, kind, message.
FOUND = [
    ("adds_notes", 100, "crash", SEGMENTATION_FAULT),  # where there is no frame
    ("asks_for_ever", 1, "hang", "does not return"),
    ("blocks_all_signals", 1, "hang", HANGS),
    ("counts_below_zero", 100, "crash", SEGMENTATION_FAULT),  # where there is no frame
    ("counts_measures_in_short", 30000, "hang", HANGS),
    ("counts_staves_in_short", 30000, "hang", HANGS),
    ("crashes_after_asking", 100, "crash", ABORTED),
    ("crashes_at_the_end", 100, "crash", "crashes in BrevixExtensionTerminate: signal 6 (Aborted)"),
    ("crashes_when_invoked", 100, "crash", ABORTED),
    ("crashes_when_records_fail", 1000, "crash", ABORTED),
    ("ends_progress_that_did_not_start", 200, "frames", "item 0 ends a progress display that it has not started"),
    ("ends_what_it_did_not_start", 100, "frames", "item 0 ends a progress display that it has not started"),
    ("frees_twice", 100, "frames", "item 0 frees a frame that is not loaded"),
    ("hangs_when_cancelled", 18, "hang", HANGS),
    ("ignores_cancel", 1, "hang", HANGS),
    ("ignores_decline", 100, "crash", SEGMENTATION_FAULT),  # nobody may look at what was declined
    ("leaks_frames", 100, "frames", f"item 0 leaves frames loaded: 1 in all, loaded in {INVOKE}"),
    ("leaks_frames_out_of_sight", 100, "frames", "item 0 leaves frames loaded: 1 in all, loaded in a function that is not exported"),
    ("leaks_when_save_fails", 1000, "frames", f"item 0 leaves frames loaded: 1 in all, loaded in {INVOKE}"),
    ("leaves_edit_open", 100, "edits", "item 0 leaves an edit open"),
    ("leaves_edit_when_calls_fail", 1000, "edits", "item 0 leaves an edit open"),
    ("leaves_progress_open", 100, "edits", "item 0 leaves the progress display open"),
    ("makes_many_calls", 100, "frames", "item 0 frees a frame that is not loaded"),
    ("moves_entries", 100, "crash", SEGMENTATION_FAULT),  # where there is no frame
    ("needs_entries", 1000, "crash", ABORTED),
    ("needs_host_functions", 100, "crash", SEGMENTATION_FAULT),
    ("needs_two_measures", 100, "crash", ABORTED),
    ("overwrites_flags", 100, "crash", SEGMENTATION_FAULT),  # where there is no frame
    ("overwrites_host_bytes", 100, "memory", "item 0 overwrites the host's bytes in entry 1 of a frame"),
    ("removes_entries", 100, "crash", SEGMENTATION_FAULT),  # where there is no frame
    ("saves_beyond_memory", 1, "shortage", "takes more than 1 GB of memory"),
    ("takes_any_index", 1000, "item", "which does not exist, returns 1"),
    ("takes_its_changes_back", 100, "crash", SEGMENTATION_FAULT),  # where there is no frame
    ("throws_when_invoked", 100, "exception", f"{INVOKE} threw an exception: there is no\x1b[2J font"),
    ("uses_a_freed_frame", 100, "frames", "item 0 saves a frame that is not loaded"),
    ("uses_the_whole_score", 1000, "decline", "item 0 returns 1 though the user declines"),
    ("works_beyond_its_region", 1000, "region", "item 0 changes what is outside of its region: staff "),
]

# How a sanitizer ends the process where an extension follows a null pointer.
ENDED = ("exit", f"ends the process in {INVOKE}: status 1")

# Why nothing is found.
NOT_FOUND = {
    "it has no fault": ["without_fault", "shows_its_region", "keeps_records", "toggles"],
    "the kit leaves frames loaded, by contract": ["asks_whether_measures_are_empty"],
    "the application takes such changes": ["changes_records"],
    "each round has a score of its own": ["alternates", "saves_what_did_not_change"],
    "check counts what is left after many invocations": ["keeps_a_byte", "keeps_descriptors"],
    "check has it: it is not about an item's work": [
        "leaves_init_word", "leaves_text_open", "leaves_last_word", "writes_past_texts", "writes_to_refused_texts",
        "odd_menu_status", "has_a_long_name", "exports_a_name_of_its_own"],
    "nobody sees what it prints": ["prints", "shows_terminal_controls"],
    "it harms its own process alone": ["changes_its_surroundings", "replaces_descriptors", "stops_its_loader"],
    "only what the environment names misbehaves": ["misbehaves", "crashes_after_rounds"],
}
UNUSABLE = {
    "wrong_version": "is for version 0x18000000 of the host, not 0x19500000",
    "does_not_bind": "does not bind to this host",
    "fails_to_initialise": "does not initialise",
    "lacks_entry_points": "has no BrevixExtension",
    "needs_missing_library": "its code does not load",
    "offers_nothing": "offers no menu items",
    "never_ends_its_list": "offers more than 1000 menu items",
}
NOT_PLAYED = {
    "works until somebody ends it, and has no fault": ["works_until_cancelled", "works_until_told"],
    "starts programs or threads, which check looks for": ["leaves_programs", "starts_a_thread"],
    "is about the processes of a run": ["holds_workers_up", "forges_questions", "stops_its_guard"],
    "needs an environment": ["touches_the_world"],
}


# Where no process can be confined, or a confined one cannot write what it has counted.
UNCONFINED = ["--no-confine"] if EMULATED or COUNTED else []


def fuzz(bundle, *arguments, point="", way="", environment=None):
    return brvhost("fuzz", bundle, *UNCONFINED, *arguments, environment={**misbehaviour(point, way), **(environment or {})})


def flat(table):
    return [name for names in table.values() for name in names]


class FaultyBundles(JsonCase):
    def test_are_all_in_one_of_the_tables(self):
        listed = [row[0] for row in FOUND] + flat(NOT_FOUND) + list(UNUSABLE) + flat(NOT_PLAYED)
        self.assertEqual(sorted(listed), sorted(path.stem for path in BUNDLES.glob("*.bundle")),
                         "each bundle of tests/host/bundles is in FOUND, NOT_FOUND, UNUSABLE or NOT_PLAYED, once")

    @unittest.skipIf(EMULATED, "the emulator names signals otherwise")
    def test_are_found(self):
        for name, rounds, kind, message in FOUND:
            if kind == "shortage" and SANITIZED:
                continue  # the sanitizer ends the process
            with self.subTest(name):
                process = fuzz(faulty(name), "--json", "--seed", 1, "--rounds", rounds,
                               "--timeout", 1 if kind == "hang" else 60)
                *findings, end = self.lines("fuzz", process.stdout)
                self.assertEqual((process.returncode, end["status"], end["rounds"]), (1, "failed", rounds), process.stderr)
                right = [(kind, message)] + ([ENDED] if SANITIZED and message == SEGMENTATION_FAULT else [])
                self.assertTrue(any(finding["finding"] == kind and message in finding["message"]
                                    for finding in findings for kind, message in right), findings)

    def test_are_not_found_where_rounds_cannot_show_it(self):
        for name in flat(NOT_FOUND):
            if SANITIZED and name in ("changes_its_surroundings", "replaces_descriptors"):
                continue  # the sanitizer needs what these change
            with self.subTest(name):
                process = self.succeeds(fuzz(faulty(name), "--seed", 1, "--rounds", 1000))
                self.assertEqual(process.stdout, "1000 rounds from seed 1 on: nothing found\n")

    def test_are_refused_where_they_cannot_be_used(self):
        for name, message in UNUSABLE.items():
            with self.subTest(name):
                self.fails(fuzz(faulty(name), "--rounds", 1), 3, f"brvhost: {faulty(name)}: {message}")


class Rounds(JsonCase):
    def test_find_nothing_in_the_extension(self):
        process = self.succeeds(fuzz(LEGER_LINES, "--rounds", 5000, "--seed", 1, "--jobs", 2))
        self.assertEqual((process.stdout, process.stderr), ("5000 rounds from seed 1 on: nothing found\n", ""))

    def test_end_with_the_time(self):
        start = time.monotonic()
        process = self.succeeds(fuzz(LEGER_LINES, "--time", 1))
        self.assertLess(time.monotonic() - start, 9)
        self.assertRegex(process.stdout, r"^\d+ rounds? from seed \d+ on: nothing found\n$")

    def test_follow_from_their_seeds(self):
        """A seed is the same round in every run: what is found from the second on was found before."""
        def seeds(first, rounds):
            process = fuzz(faulty("takes_any_index"), "--json", "--seed", first, "--rounds", rounds)
            return [line["seed"] for line in self.lines("fuzz", process.stdout)[:-1]]

        found = seeds(1, 1000)
        self.assertEqual(seeds(found[0], 1), found[:1])
        self.assertEqual(seeds(found[0] - 1, 1), [])

    def test_that_bring_a_fault_up_together_are_named_together(self):
        environment = {"BRV_TEST_ROUND": "7"}
        process = fuzz(faulty("crashes_after_rounds"), "--seed", 1, "--rounds", 20, environment=environment)
        self.assertEqual(process.stdout.splitlines()[1],
                         f"        after other rounds: brvhost fuzz {faulty('crashes_after_rounds')} --seed 1 --rounds 7")

    @unittest.skipIf(EMULATED, "the emulator names signals otherwise")
    def test_end_with_the_summary_where_they_are_interrupted(self):
        command = [PROGRAM, "fuzz", faulty("crashes_when_invoked"), *UNCONFINED, "--time", "1000"]
        process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.kill)
        with process.stdout as output:
            self.assertEqual(output.readline(), f"FOUND   {ABORTED} [crash]\n")
            self.assertIn("--reproduce", output.readline())
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(60), 130)
            self.assertRegex(output.read(), r"^\d+ rounds? from seed \d+ on: 1 kind of fault found\n$")


class Misbehaviour(JsonCase):
    @unittest.skipIf(EMULATED, "the emulator names signals otherwise")
    def test_is_told_apart(self):
        ways = {
            "crash": f"FOUND   {SEGMENTATION_FAULT} [crash]",
            "overflow the stack": f"FOUND   {SEGMENTATION_FAULT} [crash]",
            "exit": f"FOUND   ends the process in {INVOKE}: status 0 [exit]",
            "_exit": f"FOUND   ends the process in {INVOKE}: status 7 [exit]",
            "throw a number": f"FOUND   {INVOKE} threw an exception: of type int [exception]",
            "stop": f"FOUND   {HANGS} [hang]",
            "kill the parent": "FOUND   ",
        }
        for way, line in ways.items():
            with self.subTest(way):
                process = fuzz(MISBEHAVES, "--rounds", 1, "--timeout", 1, point=INVOKE, way=way)
                self.assertEqual(process.returncode, 1, process.stderr)
                self.assertTrue(process.stdout.startswith(line), process.stdout)

    def test_before_the_first_round_makes_a_bundle_useless(self):
        for point in ("constructors", "main", "BrevixExtensionInit", "BrevixExtensionEnumerate_UTF16"):
            with self.subTest(point):
                self.fails(fuzz(MISBEHAVES, "--rounds", 1, point=point, way="abort"), 3, f"brvhost: {MISBEHAVES}: crashes in ")


class Reproduction(JsonCase):
    def one(self, name, *arguments):
        """The only finding of the first rounds."""
        finding, _ = self.lines("fuzz", fuzz(faulty(name), "--json", "--seed", 1, *arguments).stdout)
        self.assertEqual(finding["reproduce"], f"brvhost fuzz {faulty(name)} --reproduce {finding['seed']}")
        return finding

    def test_finds_the_same_and_shows_the_calls(self):
        finding = self.one("leaks_frames", "--rounds", 100)
        process = fuzz(faulty("leaks_frames"), "--reproduce", finding["seed"])
        self.assertEqual(process.stdout.splitlines()[0], f"FOUND   {finding['message']} [frames]")
        self.assertEqual(process.returncode, 1)
        calls = process.stderr.splitlines()
        start = next(i for i, line in enumerate(calls) if line.startswith("item 0; "))
        self.assertRegex(calls[start], r"^item 0; \d+ staves, \d+ measures, \d+ layers, \d+ entries; the user .*; .*fails?")
        self.assertRegex(calls[start + 1], rf"^  {INVOKE}\(context: null, itemIndex: 0, region: \(scope 0, staves ")
        self.assertRegex(calls[start + 2], r"^    BX_LoadTGF\(regionScope: 0, .*\) = \(staff \d+, measure \d+, layer 0, entries \d+\)$")
        self.assertEqual(calls[start + 3], f"  {INVOKE} = 0")

    def test_is_the_same_each_time(self):
        first, second = (fuzz(LEGER_LINES, "--reproduce", 5) for _ in range(2))
        self.assertEqual(self.succeeds(first).stdout, "1 round from seed 5 on: nothing found\n")
        self.assertEqual((first.stdout, first.stderr), (second.stdout, second.stderr))
        self.assertIn(INVOKE, first.stderr)

    @unittest.skipIf(EMULATED, "the emulator ends in its own way")
    def test_crashes_with_the_extension(self):
        process = fuzz(faulty("crashes_when_invoked"), "--reproduce", self.one("crashes_when_invoked", "--rounds", 1)["seed"])
        self.assertEqual(process.returncode, -signal.SIGABRT)
        self.assertIn(f"\n  {INVOKE}(context: null, itemIndex: 0, ", process.stderr)

    def test_prints_json(self):
        finding = self.one("leaks_frames", "--rounds", 100)
        lines = self.lines("fuzz", fuzz(faulty("leaks_frames"), "--json", "--reproduce", finding["seed"]).stdout)
        self.assertEqual(lines, [finding, {"bundle": faulty("leaks_frames"), "status": "failed", "seed": finding["seed"],
                                           "rounds": 1, "findings": 1}])

    def test_takes_one_round(self):
        for option in ("--seed", "--rounds", "--time"):
            self.fails(fuzz(LEGER_LINES, "--reproduce", 1, option, 1), 2,
                       "brvhost: --reproduce: plays one round; --seed, --rounds and --time are for many\n")


class Usage(Case):
    def test_takes_whole_numbers(self):
        for option, value, first in ("--seed", "-1", 0), ("--rounds", "0", 1), ("--reproduce", "x", 0):
            self.fails(fuzz(LEGER_LINES, f"{option}={value}"), 2, f"brvhost: {option} {value}: is not a whole number from {first} on\n")

    def test_takes_large_seeds(self):
        last = 2**63 - 1
        process = self.succeeds(fuzz(LEGER_LINES, "--seed", last, "--rounds", 10))
        self.assertEqual(process.stdout, f"1 round from seed {last} on: nothing found\n")

    def test_needs_a_bundle(self):
        missing = pathlib.Path(self.folder) / "none.bundle"
        self.fails(fuzz(missing, "--rounds", 1), 3, f"brvhost: {missing}: there is no such bundle\n")


if __name__ == "__main__":
    unittest.main()
