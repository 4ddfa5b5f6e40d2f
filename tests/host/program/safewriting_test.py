"""What a result does to the file that it replaces, and what is left of it when something comes in between."""

import errno
import os
import pathlib
import random
import signal
import subprocess
import tempfile
import time
import unittest
import zipfile

from brvhost import (COUNTED, Case, HIDDEN_NOTE, HIDE, LEGER_LINES, NOTE, PROGRAM, SANITIZED, SHOW, faulty, run, score)

FILE_CALLS = os.environ["BRV_FILE_CALLS"]


def names_in(folder):
    return sorted(path.name for path in folder.iterdir())


def run_with_file_calls(*arguments, without="", **variables):
    """A run on a file system that lacks something, or on which something happens; filecalls.cpp lists the variables."""
    environment = {**os.environ, "LANGUAGE": "en", "LD_PRELOAD": FILE_CALLS, "FILES_WITHOUT": without, **variables}
    return subprocess.run([PROGRAM, "run", LEGER_LINES, "--item", str(HIDE), "--all", *map(str, arguments)],
                          stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60, env=environment)


def kill_all(process):
    """Kills a program and what it has started, and waits for the end of all: then its output ends."""
    if process.returncode is None:
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate(timeout=60)


@unittest.skipIf(SANITIZED, "the sanitizer wants to be loaded first")
class FileSystems(Case):
    """Those that lack something that others have."""

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())
        self.out = self.folder / "out.musicxml"

    def test_take_results_all_the_same(self):
        for without in ("unnamed", "locks", "unnamed free", "unnamed free links locks"):
            with self.subTest(without):
                self.out.unlink(missing_ok=True)
                for _ in ("new", "old"):
                    self.succeeds(run_with_file_calls(self.score, "-o", self.out, without=without))
                    self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE))
                    self.assertEqual(names_in(self.folder), ["out.musicxml", "score.musicxml"])

    @unittest.skipIf(COUNTED, "counts are files too")
    def test_have_the_content_before_the_name_and_then_the_folder(self):
        for without, old, names in (("", None, ["linkat"]), ("", "old", ["linkat", "rename"]),
                                    ("unnamed", None, ["renameat2"]), ("unnamed", "old", ["rename"])):
            with self.subTest(without=without, old=old):
                self.out.unlink(missing_ok=True)
                if old is not None:
                    self.out.write_text(old)
                self.assertEqual(self.calls_of(self.score, "-o", self.out, without=without),
                                 ["open", "write", "fsync", *names, "fsync"])

    def calls_of(self, *arguments, without=""):
        calls = self.folder / "calls"
        self.succeeds(run_with_file_calls(*arguments, without=without, CALLS_LISTED_IN=str(calls)))
        listed = calls.read_text().split()
        calls.unlink()
        return listed

    def test_have_the_content_before_the_name_whatever_the_result_is(self):
        for without, names in (("", ["linkat", "rename"]), ("unnamed", ["rename"])):
            replaced = ["open", "write", "fsync", *names, "fsync"]
            with self.subTest(without):
                scores = [self.write("score.musicxml", score()), self.write("other.musicxml", score())]
                self.assertEqual(self.calls_of("--in-place", scores[0], without=without), replaced)
                self.write("score.musicxml", score())
                self.assertEqual(self.calls_of("--in-place", "--jobs", 1, *scores, without=without), 2 * replaced)
                archive = self.folder / "score.mxl"
                with zipfile.ZipFile(archive, "w") as members:
                    members.writestr("META-INF/container.xml",
                                     '<container><rootfiles><rootfile full-path="x.xml"/></rootfiles></container>')
                    members.writestr("x.xml", score())
                self.assertEqual(self.calls_of("--in-place", archive, without=without), replaced)

    def test_give_no_name_that_somebody_else_took_last(self):
        for without in ("", "unnamed", "unnamed free", "unnamed links"):
            with self.subTest(without):
                self.out.unlink(missing_ok=True)
                process = run_with_file_calls(self.score, "-o", self.out, without=without, TAKEN_LAST="of somebody else")
                self.assertEqual((process.returncode, process.stderr),
                                 (1, f"brvhost: {self.out}: was changed while brvhost worked on it\n"))
                self.assertEqual(self.out.read_text(), "of somebody else")
                self.assertEqual(names_in(self.folder), ["out.musicxml", "score.musicxml"])

    def test_that_take_no_attribute_keep_the_file_that_has_one(self):
        self.out.write_text("old")
        try:
            os.setxattr(self.out, "user.note", b"kept")
        except OSError:
            self.skipTest("the file system has no extended attributes")
        process = run_with_file_calls(self.score, "-o", self.out, without="attributes")
        self.assertEqual((process.returncode, process.stderr),
                         (1, f"brvhost: {self.out}: cannot keep its extended attribute user.note: "
                             f"{os.strerror(errno.ENOSPC)}\n"))
        self.assertEqual(self.out.read_text(), "old")
        self.assertEqual(names_in(self.folder), ["out.musicxml", "score.musicxml"])


class Kills(Case):
    def setUp(self):
        super().setUp()
        self.content = score(NOTE * 20000)
        self.hidden = score(HIDDEN_NOTE * 20000)
        self.score = self.write("score.musicxml", self.content)
        self.out = self.folder / "out.musicxml"

    def next_run(self):
        """Another run that writes to the folder."""
        other = self.write("other.musicxml", score())
        self.succeeds(run(HIDE, "--all", other, "--in-place"))
        other.unlink()

    def check(self, target, old):
        """Whether the target is the old file, or all of the new one; nothing else is left after the next run."""
        content = target.read_text() if target.exists() else None
        self.assertIn(content, (old, self.hidden))
        self.next_run()
        self.assertLessEqual(set(names_in(self.folder)), {"out.musicxml", "score.musicxml"})
        return content == old

    @unittest.skipIf(SANITIZED, "the sanitizer wants to be loaded first")
    @unittest.skipIf(COUNTED, "counts are files too")
    def test_at_any_call_leave_nothing_after_the_next_run(self):
        for without in ("unnamed", "unnamed free", "unnamed free links"):
            for old in (None, "old"):
                with self.subTest(without=without, old=old):
                    kept = killed = 0
                    for call in range(1, 100):
                        self.out.unlink(missing_ok=True)
                        if old is not None:
                            self.out.write_text(old)
                        process = run_with_file_calls(self.score, "-o", self.out, without=without,
                                                      KILLED_AT=str(call))
                        if process.returncode == 0:
                            break
                        killed += 1
                        kept += self.check(self.out, old)
                    self.assertEqual(process.returncode, 0)
                    self.assertEqual(self.out.read_text(), self.hidden)
                    self.assertGreater(kept, 6, "it opens, writes, synchronises, and takes the name")
                    self.assertGreater(killed - kept, 1, "it synchronises the folder")

    def test_at_any_moment_leave_nothing_after_the_next_run(self):
        started = time.monotonic()
        self.succeeds(run(HIDE, "--all", self.score, "--dry-run"))
        duration = time.monotonic() - started
        command = [PROGRAM, "run", LEGER_LINES, "--item", str(HIDE), "--all", "--in-place", str(self.score)]
        for _ in range(30):
            self.score.write_text(self.content)
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                       stderr=subprocess.STDOUT, start_new_session=True)
            time.sleep(random.uniform(0, 1.5 * duration))
            kill_all(process)
            self.check(self.score, self.content)


class Others(Case):
    """Who works on the same file at the same time."""

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score(NOTE * 2))
        self.out = self.folder / "out.musicxml"
        elsewhere = tempfile.TemporaryDirectory()
        self.addCleanup(elsewhere.cleanup)
        self.told = pathlib.Path(elsewhere.name) / "told"

    def start(self, *arguments):
        """A run whose extension is at work, and goes on once it is told to."""
        process = subprocess.Popen([PROGRAM, "run", faulty("works_until_told"), "--item", "0", "--all", *map(str, arguments)],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                   env={**os.environ, "LANGUAGE": "en", "TOLD_BY_FILE": str(self.told)},
                                   start_new_session=True)
        self.addCleanup(kill_all, process)
        self.assertIn("working", process.stdout.readline())
        return process

    def end(self, process):
        self.told.touch()
        out, errors = process.communicate(timeout=60)
        self.told.unlink()
        return subprocess.CompletedProcess(process.args, process.returncode, out, errors)

    def fails_with_one_line(self, process, line):
        self.assertEqual((process.returncode, process.stderr), (1, f"brvhost: {line}\n"))

    def test_do_not_work_on_the_same_score(self):
        first = self.start("--in-place", self.score)
        self.fails_with_one_line(run(HIDE, "--all", "--in-place", self.score),
                                 f"{self.score}: another brvhost is working on it")
        self.assertEqual(self.score.read_text(), score(NOTE * 2))
        self.succeeds(self.end(first))
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE * 2))
        self.succeeds(run(SHOW, "--all", "--in-place", self.score))
        self.assertEqual(self.score.read_text(), score(NOTE * 2))

    def test_do_not_work_on_the_same_result(self):
        self.out.write_text("old")
        first = self.start(self.score, "-o", self.out)
        self.fails_with_one_line(run(SHOW, "--all", self.score, "-o", self.out),
                                 f"{self.out}: another brvhost is working on it")
        self.succeeds(self.end(first))
        self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE * 2))

    def test_keep_a_new_result_that_they_made_first(self):
        first = self.start(self.score, "-o", self.out)
        self.succeeds(run(SHOW, "--all", self.score, "-o", self.out))
        self.fails_with_one_line(self.end(first), f"{self.out}: was changed while brvhost worked on it")
        self.assertEqual(self.out.read_text(), score(NOTE * 2))
        self.assertEqual(names_in(self.folder), ["out.musicxml", "score.musicxml"])

    def test_keep_what_they_edited(self):
        edited = score(NOTE * 3)
        for saves in ("over the file", "in its place"):
            with self.subTest(saves):
                self.score.write_text(score(NOTE * 2))
                first = self.start("--in-place", self.score)
                if saves == "over the file":
                    self.score.write_text(edited)
                else:
                    self.write("new", edited).rename(self.score)
                self.fails_with_one_line(self.end(first), f"{self.score}: was changed while brvhost worked on it")
                self.assertEqual(self.score.read_text(), edited)
                self.assertEqual(names_in(self.folder), ["score.musicxml"])

    def test_that_were_killed_lock_nothing(self):
        first = self.start("--in-place", self.score)
        kill_all(first)
        self.succeeds(run(HIDE, "--all", "--in-place", self.score))
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE * 2))


class Replaced(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def test_names_that_others_have_keep_the_old_content(self):
        other = self.folder / "other.musicxml"
        os.link(self.score, other)
        process = self.succeeds(run(HIDE, "--all", "--in-place", self.score))
        self.assertEqual(process.stderr,
                         f"brvhost: {self.score}: warning: has 2 names; the others keep the old content\n")
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE))
        self.assertEqual(other.read_text(), score())

    def run_as_nobody(self):
        nobody = 65534
        self.folder.chmod(0o777)
        return subprocess.run([PROGRAM, "run", LEGER_LINES, "--item", str(HIDE), "--all", "--in-place", str(self.score)],
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60, user=nobody,
                              group=nobody, extra_groups=[])

    @unittest.skipUnless(os.geteuid() == 0, "only root can give files away")
    def test_owners_are_kept_where_that_is_allowed(self):
        os.chown(self.score, 12345, 54321)
        self.succeeds(run(HIDE, "--all", "--in-place", self.score))
        status = self.score.stat()
        self.assertEqual((self.score.read_text(), status.st_uid, status.st_gid), (score(HIDDEN_NOTE), 12345, 54321))

    @unittest.skipUnless(os.geteuid() == 0, "only root can give files away")
    @unittest.skipIf(COUNTED, "another user cannot write the counts, and is told so")
    def test_owners_that_only_root_could_keep_are_lost_with_a_warning(self):
        os.chown(self.score, 12345, 54321)
        self.score.chmod(0o666)
        try:
            process = self.run_as_nobody()
        except PermissionError:
            self.skipTest("another user may not run what is in this folder")
        self.succeeds(process)
        self.assertEqual(process.stderr.splitlines(), [
            f"brvhost: {self.score}: warning: its group could not be kept: only root may give it to one that you do not "
            "belong to",
            f"brvhost: {self.score}: warning: its owner could not be kept: only root may give files away"])
        status = self.score.stat()
        self.assertEqual((self.score.read_text(), status.st_uid, status.st_mode & 0o7777), (score(HIDDEN_NOTE), 65534, 0o666))


if __name__ == "__main__":
    unittest.main()
