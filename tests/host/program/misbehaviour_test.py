"""What an extension that misbehaves does to a run: a message that names it, and nothing else."""

import os
import pathlib
import signal
import subprocess
import time
import unittest

from brvhost import (COUNTED, Case, HIDDEN_NOTE, NOTE, PROGRAM, SANITIZED, brvhost, descendants, faulty, is_running, run,
                     score, state_of, wait_until)
from misbehaviour import MISBEHAVES, misbehaviour

NOTHING = "; nothing was written\n"


def descendants_named(name, argument):
    """The processes that run a program with that one argument, wherever they hang."""
    found = []
    for folder in pathlib.Path("/proc").iterdir():
        try:
            command = (folder / "cmdline").read_bytes().split(b"\0")
        except OSError:
            continue
        if command[0].endswith(name.encode()) and argument.encode() in command:
            found.append(int(folder.name))
    return found


class Misbehaviour(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score(NOTE * 2))

    def invoke(self, bundle, *options, **more):
        return brvhost("run", faulty(bundle), "--item", 0, "--all", "--in-place", self.score, *options, **more)

    def check_untouched(self):
        self.assertEqual(self.score.read_text(), score(NOTE * 2))
        self.assertEqual([path.name for path in self.folder.iterdir()], ["score.musicxml"])

    def check_done(self, process, errors=""):
        self.assertEqual((process.returncode, process.stderr), (0, errors), process.stdout)
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE * 2))


class Crashes(Misbehaviour):
    def test_at_work_are_reported_for_a_score_alone(self):
        for bundle, message in (
                ("crashes_when_invoked", "crashed in BrevixExtensionInvoke: signal 6 (Aborted)"),
                ("throws_when_invoked", "failed: BrevixExtensionInvoke threw an exception: there is no [2J font")):
            with self.subTest(bundle):
                process = self.invoke(bundle)
                self.assertEqual(process.stderr, f"brvhost: {self.score}: the extension {bundle} {message}{NOTHING}")
                self.assertEqual(process.returncode, 1)
                self.check_untouched()

    def test_that_never_end_at_the_end_are_interrupted(self):
        command = [PROGRAM, "run", MISBEHAVES, "--item", "0", "--all", "--in-place", str(self.score)]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                   env={**os.environ, **misbehaviour("destructors", "hang")})
        self.assertIn("2 of 2 entries changed", process.stdout.readline())
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=20)
        self.assertEqual(process.returncode, 130)

    def test_cost_one_score_each(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(4)]
        process = run(0, "--all", "--in-place", "--jobs", 2, *others, bundle=faulty("crashes_when_invoked"))
        self.assertEqual(process.returncode, 1)
        self.assertEqual(process.stdout, "4 scores: 0 changed, 0 unchanged, 4 failed\n")
        self.assertEqual(sorted(process.stderr.splitlines()), [
            f"brvhost: {path}: the extension crashes_when_invoked crashed in BrevixExtensionInvoke: "
            "signal 6 (Aborted); nothing was written" for path in others])


class Surroundings(Misbehaviour):
    @unittest.skipIf(SANITIZED, "the sanitizer needs descriptors at the end")
    def test_of_its_process_do_not_matter_to_the_result(self):
        self.check_done(run(0, "--all", "--in-place", os.path.relpath(self.score), bundle=faulty("changes_its_surroundings")))

    def test_get_nothing_from_brvhost_where_it_replaces_the_line(self):
        log = self.folder.parent / (self.folder.name + ".log")
        self.addCleanup(log.unlink)
        os.environ["BRV_TEST_LOG"] = str(log)
        self.addCleanup(os.environ.pop, "BRV_TEST_LOG")
        process = self.invoke("replaces_descriptors")
        message = f"{self.score}: the extension replaces_descriptors closed the connection to brvhost{NOTHING}"
        self.assertEqual((process.returncode, process.stderr), (1, "brvhost: " + message))
        self.assertEqual(log.read_bytes(), b"")
        self.check_untouched()


class Hostility(Misbehaviour):
    def test_of_one_that_never_stops_talking_ends_in_time(self):
        late = f"the extension {{}} did not end{{}} within 3 seconds{NOTHING}"
        for bundle, message in (
                ("asks_for_ever", late.format("asks_for_ever", " in BX_AlertMessage, called in BrevixExtensionInvoke")),
                ("forges_questions", f"the extension forges_questions garbled its messages{NOTHING}")):
            with self.subTest(bundle):
                process = self.invoke(bundle, "--timeout", 3)
                self.assertEqual(process.returncode, 1, process.stderr[-1000:])
                self.assertTrue(process.stderr.endswith(f"brvhost: {self.score}: {message}"), process.stderr[-1000:])
                self.check_untouched()

    def test_against_the_guard_does_not_last(self):
        command = [PROGRAM, "run", faulty("stops_its_guard"), "--item", "0", "--all", "--in-place", str(self.score)]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.communicate)
        self.assertIn("2 of 2 entries changed", process.stdout.readline())
        below = descendants(process.pid)
        for _ in range(2):
            process.send_signal(signal.SIGINT)
            time.sleep(0.3)  # since two at once count as one
        self.assertEqual(process.wait(timeout=20), 130)
        self.assertTrue(wait_until(lambda: not any(map(is_running, below))), below)


class Output(Misbehaviour):
    def test_is_shown_as_the_extensions_own_without_terminal_controls(self):
        self.check_done(self.invoke("prints"),
                        "prints: and an error\nprints: one [31m line two\nprints: no end\n")

    def test_is_shown_with_the_score_where_there_are_several(self):
        other = self.write("other.musicxml", score())
        process = self.invoke("prints", other)
        self.assertEqual(sorted(process.stderr.splitlines()), sorted(
            f"{path}: prints: {line}" for path in (self.score, other)
            for line in ("and an error", "one [31m line two", "no end")))

    def test_in_alerts_keeps_its_lines_and_no_terminal_controls(self):
        process = self.succeeds(self.invoke("shows_terminal_controls"))
        self.assertEqual(process.stdout, "first ]0;title \nscore: 5 of 5\n"
                                         f"{self.score}: 0 of 2 entries changed, nothing written\n")

    def test_in_alerts_names_the_score_in_each_line_where_there_are_several(self):
        other = self.write("other.musicxml", score())
        process = self.succeeds(self.invoke("shows_terminal_controls", other))
        self.assertEqual(sorted(process.stdout.splitlines()), sorted(
            [f"{path}: {line}" for path in (self.score, other) for line in ("first ]0;title ", "score: 5 of 5")]
            + ["2 scores: 0 changed, 2 unchanged, 0 failed"]))


class Edits(Misbehaviour):
    def test_that_a_score_cannot_take_are_reported_and_write_nothing(self):
        for bundle, change in (("moves_entries", "moved entry 1 of staff 1, measure 1, layer 1"),
                               ("adds_notes", "added notes to entry 1 of staff 1, measure 1, layer 1"),
                               ("removes_entries", "removed entries from staff 1, measure 1, layer 1"),
                               ("counts_below_zero", "gave a count of entries below zero to staff 1, measure 1, layer 1"),
                               ("overwrites_flags",
                                "overwrote more than the ledger-line bit of entry 1 of staff 1, measure 1, layer 1"),
                               ("changes_records", "changed the record SOMS (1, 0)")):
            with self.subTest(bundle):
                process = self.invoke(bundle)
                self.assertEqual(process.stderr, f"brvhost: {self.score}: the extension {bundle} {change}; "
                                 "a score takes changes of ledger lines alone, and nothing was written\n")
                self.assertEqual(process.returncode, 1)
                self.check_untouched()

    def test_that_were_taken_back_do_not_count(self):
        self.check_done(self.invoke("takes_its_changes_back"))

    def test_of_its_own_records_are_reported_to_be_lost(self):
        process = self.invoke("keeps_records")
        self.assertEqual((process.returncode, process.stderr),
                         (0, f"brvhost: {self.score}: warning: the extension keeps_records added records to the document, "
                             "which a score cannot hold: 3 in all\n"))

    def test_by_wrong_calls_are_reported(self):
        for bundle, uses in (("frees_twice", ["frees a frame that is not loaded"]),
                             ("uses_a_freed_frame",
                              ["saves a frame that is not loaded", "writes to a frame that it has freed"]),
                             ("ends_what_it_did_not_start", ["ends a progress display that it has not started"])):
            with self.subTest(bundle):
                process = self.succeeds(self.invoke(bundle))
                self.assertEqual(process.stderr, "".join(
                    f"brvhost: {self.score}: warning: the extension {bundle} {use}\n" for use in uses))


class Remains(Misbehaviour):
    """Every program that an extension left is found by the seconds that it sleeps."""

    def setUp(self):
        super().setUp()
        self.seconds = str(1_000_000 + os.getpid())
        self.environment = {**os.environ, "BRV_TEST_SECONDS": self.seconds}

    def tearDown(self):
        for process in descendants_named("sleep", self.seconds):
            os.kill(process, signal.SIGKILL)

    def start(self, bundle):
        """The process, in a group of its own, when the extension is at work."""
        command = [PROGRAM, "run", faulty(bundle), "--item", "0", "--all", "--in-place", str(self.score)]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   text=True, env={**self.environment, "BRV_TEST_STAY": "1"}, start_new_session=True)
        self.addCleanup(process.communicate)
        self.assertIn("working", process.stdout.readline())
        return process

    def check_gone(self, processes):
        def are_gone():
            return not any(map(is_running, processes))
        self.assertTrue(wait_until(are_gone), processes)
        self.assertEqual(descendants_named("sleep", self.seconds), [])

    def test_nothing_of_an_extension_that_is_done(self):
        command = [PROGRAM, "run", faulty("leaves_programs"), "--item", "0", "--all", "--in-place", str(self.score)]
        process = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, env=self.environment, timeout=60)
        self.check_done(process)
        self.assertEqual(descendants_named("sleep", self.seconds), [])

    def test_nothing_when_the_supervisor_is_killed(self):
        process = self.start("leaves_programs")
        self.assertTrue(wait_until(lambda: descendants_named("sleep", self.seconds)))
        all_of_them = descendants(process.pid)
        self.assertGreaterEqual(len(all_of_them), 6)
        process.kill()
        self.check_gone(all_of_them)
        self.check_untouched()

    def test_nothing_after_a_second_interrupt(self):
        for bundle in ("leaves_programs", "blocks_all_signals", "misbehaves"):
            with self.subTest(bundle):
                if bundle == "misbehaves":
                    command = [PROGRAM, "run", MISBEHAVES, "--item", "0", "--all", "--in-place", str(self.score)]
                    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                               env={**os.environ, **misbehaviour("BrevixExtensionInvoke", "stop")})
                    self.addCleanup(process.communicate)
                    def is_stopped():
                        return any(state_of(child) == "T" for child in descendants(process.pid))
                    self.assertTrue(wait_until(is_stopped))
                else:
                    process = self.start(bundle)
                all_of_them = descendants(process.pid)
                process.send_signal(signal.SIGINT)
                time.sleep(0.3)  # since two at once count as one
                self.assertIsNone(process.poll(), "it waits for the extension")
                process.send_signal(signal.SIGINT)
                self.assertEqual(process.wait(timeout=20), 130)
                self.check_gone(all_of_them)
                self.check_untouched()


class Confinement(Misbehaviour):
    def setUp(self):
        super().setUp()
        self.world = self.folder.parent / (self.folder.name + ".world")
        self.world.mkdir()
        (self.world / "file").write_text("content")
        os.environ["BRV_TEST_FOLDER"] = str(self.world)
        self.addCleanup(os.environ.pop, "BRV_TEST_FOLDER")

    def tearDown(self):
        for path in self.world.iterdir():
            path.rmdir() if path.is_dir() else path.unlink()
        self.world.rmdir()

    @unittest.skipIf(SANITIZED, "the sanitizer needs more than an extension does")
    @unittest.skipIf(COUNTED, "a confined process cannot write its counts, and tells so")
    def test_lets_an_extension_read_and_no_more(self):
        process = self.invoke("touches_the_world", "--confine")
        self.check_done(process, "".join(f"touches_the_world: {line}\n" for line in (
            "reads 1", "writes 0", "truncates 0", "creates 0", "makes folders 0", "renames 0", "removes 0",
            "connects 0", "starts programs 0")))
        self.assertEqual([(path.name, path.read_text()) for path in self.world.iterdir()], [("file", "content")])

    def test_is_not_there_unless_it_is_asked_for(self):
        process = self.succeeds(self.invoke("touches_the_world"))
        self.assertIn("touches_the_world: writes 1\n", process.stderr)
        self.assertIn("touches_the_world: starts programs 1\n", process.stderr)

    def test_is_there_when_an_extension_is_checked(self):
        brvhost("check", faulty("touches_the_world"))
        self.assertEqual([(path.name, path.read_text()) for path in self.world.iterdir()], [("file", "content")])
        brvhost("check", "--no-confine", faulty("touches_the_world"))
        self.assertNotEqual([path.name for path in self.world.iterdir()], ["file"])


if __name__ == "__main__":
    unittest.main()
