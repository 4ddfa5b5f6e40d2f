"""Many scores, extensions that are good and bad, and runs that are killed: each score is done or as it was."""

import os
import random
import signal
import subprocess
import time
import unittest

from brvhost import (Case, HIDDEN_NOTE, LEGER_LINES, NOTE, PROGRAM, SANITIZED, descendants, faulty, is_running, run,
                     score, state_of, wait_until)
from misbehaviour import MISBEHAVES, misbehaviour

SCORES = 200 if SANITIZED else 1000
KILLS = int(os.environ.get("BRV_KILLS", 10 if SANITIZED else 40))

FAILED = "0 changed, 0 unchanged, {} failed"
INVOKED = "BrevixExtensionInvoke"

# Bundle, its environment, its part of the scores in percent, the end of its summary, and whether it hides the notes.
BUNDLES = [
    (LEGER_LINES, {}, 40, "{} changed, 0 unchanged, 0 failed", True),
    (faulty("prints"), {}, 5, "{} changed, 0 unchanged, 0 failed", True),
    (faulty("without_fault" if SANITIZED else "changes_its_surroundings"), {}, 5, "{} changed, 0 unchanged, 0 failed", True),
    (faulty("frees_twice"), {}, 5, "0 changed, {} unchanged, 0 failed", False),
    (MISBEHAVES, misbehaviour(INVOKED, "abort"), 10, FAILED, False),
    (MISBEHAVES, misbehaviour(INVOKED, "exit"), 5, FAILED, False),
    (MISBEHAVES, misbehaviour(INVOKED, "throw"), 5, FAILED, False),
    (MISBEHAVES, misbehaviour(INVOKED, "close descriptors"), 5, FAILED, False),
    (faulty("moves_entries"), {}, 10, FAILED, False),
    (MISBEHAVES, misbehaviour(call="BX_AlertMessage null 64 0 wild"), 10, FAILED, False),
]


class Batches(Case):
    def test_of_many_scores_do_what_each_extension_can(self):
        self.assertEqual(sum(share for _, _, share, _, _ in BUNDLES), 100)
        content = {}
        for number in range(SCORES):
            # Every 50th cannot be read.
            text = score(NOTE * (1 + number % 5)) if number % 50 else "<score-partwise>"
            content[self.write(f"{number:04}.musicxml", text)] = text
        left = sorted(content)
        for bundle, environment, share, summary, hides in BUNDLES:
            scores, left = left[:SCORES * share // 100], left[SCORES * share // 100:]
            bad = [path for path in scores if not content[path].endswith("</score-partwise>")]
            process = run(0, "--all", "--in-place", "--jobs", 3, *scores, bundle=bundle, environment=environment)
            good = len(scores) - len(bad)
            expected = f"{len(scores)} scores: " + summary.format(good)
            if bad:
                counts = summary.format(good).split(", ")
                failed = len(bad) + int(counts[2].split()[0])
                expected = f"{len(scores)} scores: {counts[0]}, {counts[1]}, {failed} failed"
            self.assertEqual(process.stdout.splitlines()[-1], expected, process.stderr)
            self.assertEqual(process.returncode, 2 if bad else 0 if " 0 failed" in expected else 1)
            if hides:
                for path in set(scores) - set(bad):
                    content[path] = content[path].replace(NOTE, HIDDEN_NOTE)
        self.assertEqual(left, [])
        self.assertEqual({path: path.read_text() for path in self.folder.iterdir()}, content)

    def test_go_on_where_many_workers_end_while_others_are_started(self):
        names = [f"none{number}.xml" for number in range(1000)]
        process = run(0, "--all", "--dry-run", "--jobs", 64, *names, bundle=faulty("holds_workers_up"))
        self.assertEqual((process.returncode, process.stdout),
                         (2, "1000 scores: 0 would change, 0 unchanged, 1000 failed\n"))

    def test_load_the_extension_when_their_list_is_whole(self):
        command = [PROGRAM, "run", MISBEHAVES, "--item", "0", "--all", "--dry-run", "--files-from", "-"]
        process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   env={**os.environ, **misbehaviour("BrevixExtensionInit", "stop")})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)

        def has_stopped():
            return any(state_of(child) == "T" for child in descendants(process.pid))

        process.stdin.write(b"a.musicxml\n")
        process.stdin.flush()
        self.assertFalse(wait_until(has_stopped, seconds=0.5))
        process.stdin.close()
        self.assertTrue(wait_until(has_stopped))

    def test_end_at_the_second_interrupt_where_their_workers_cannot_be_started(self):
        names = [f"none{number}.xml" for number in range(100)]
        command = [PROGRAM, "run", faulty("stops_its_loader"), "--item", "0", "--all", "--dry-run", "--jobs", "64", *names]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        self.assertTrue(wait_until(lambda: any(state_of(child) == "T" for child in descendants(process.pid))))
        time.sleep(0.5)  # so that the line to the process that starts workers is full
        for _ in range(2):
            below = descendants(process.pid)
            process.send_signal(signal.SIGINT)
            time.sleep(0.3)  # since two at once count as one
        self.assertTrue(wait_until(lambda: process.poll() is not None), "it waits for more interrupts")
        self.assertEqual(process.returncode, 130)
        self.assertTrue(wait_until(lambda: not any(map(is_running, below))), below)

    def test_end_where_many_workers_end_after_the_last_score(self):
        names = [f"none{number}.xml" for number in range(500)]
        process = run(0, "--all", "--dry-run", *names, bundle=faulty("holds_workers_up"))
        self.assertEqual((process.returncode, process.stdout),
                         (2, "500 scores: 0 would change, 0 unchanged, 500 failed\n"))


# What looks for leaks at the end of a sanitized process has a process of its own, which is none of brvhost's: killed,
# it leaves the other waiting forever.
WITHOUT_LEAK_CHECK = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"}


class Kills(Case):
    def test_leave_each_score_as_it_was_or_done_and_nothing_beside_it(self):
        old, new = score(NOTE * 20_000), score(HIDDEN_NOTE * 20_000)
        scores = [self.write(f"{number}.musicxml", old) for number in range(3)]
        command = [PROGRAM, "run", LEGER_LINES, "--item", "0", "--all", "--in-place", "--jobs", "2", *map(str, scores)]
        start = time.monotonic()
        subprocess.run(command, check=True, capture_output=True, timeout=60)
        whole = time.monotonic() - start
        moments = random.Random(16)
        done = 0
        for _ in range(KILLS):
            for path in scores:
                path.write_text(old)
            process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                                       env=WITHOUT_LEAK_CHECK)
            time.sleep(moments.uniform(0, whole))
            below = descendants(process.pid)
            # One of its processes, whichever, or all of them.
            victim = moments.choice([process.pid, process.pid, *below])
            try:
                os.kill(victim, signal.SIGKILL)
            except ProcessLookupError:
                pass  # it has ended meanwhile
            process.wait(timeout=60)
            self.assertTrue(wait_until(lambda: not any(map(is_running, below))), below)
            contents = [path.read_text() for path in scores]
            self.assertEqual([text for text in contents if text not in (old, new)], [])
            done += contents.count(new)
        self.assertGreater(done, 0, "no run came far enough")
        self.assertLess(done, 3 * KILLS, "every run came to its end")
        subprocess.run(command, check=True, capture_output=True, timeout=60)
        self.assertEqual(sorted(self.folder.iterdir()), sorted(scores))
        self.assertEqual([path.read_text() == new for path in scores], [True] * 3)


if __name__ == "__main__":
    unittest.main()
