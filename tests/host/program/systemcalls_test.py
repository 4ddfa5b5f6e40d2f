"""What is left of a run, and what it reports, when one of its calls of the system fails, or one of its processes is killed
before or after such a call. Calls that are made before main, by the dynamic loader, are left out."""

import errno
import os
import re
import shutil
import subprocess
import tempfile
import unittest

from brvhost import COUNTED, Case, HIDDEN_NOTE, LEGER_LINES, PROGRAM, SANITIZED, hiding, score

FAILING_CALL = os.environ["BRV_FAILING_CALL"]
# Every call takes minutes; otherwise only the first ones of a process that have the same name are taken, and the last.
ALL = os.environ.get("BRV_ALL_FAULTS") == "1"
FIRST = 2

NOT_PERMITTED = 125
KILLED = 128 + 9
SUPERVISOR, KEEPER, LOADER = "0", "0t", "0.1.1"

# What each call can fail with. One that is not here cannot fail where brvhost makes it. On arm64 younger calls stand for
# some of them.
ERRORS = {
    "access": "EACCES", "clone": "EAGAIN ENOMEM", "clone3": "EAGAIN", "close": "EIO", "close_range": "ENOSYS",
    "dup2": "EINTR", "dup3": "EINTR", "faccessat": "EACCES", "fchmod": "EPERM", "fgetxattr": "EIO ENOTSUP",
    "flistxattr": "EIO ENOTSUP", "flock": "ENOLCK EINTR EWOULDBLOCK", "fremovexattr": "EPERM", "fsync": "EIO ENOSPC",
    "getcwd": "ENOENT", "getdents64": "EIO", "getrandom": "ENOSYS", "kill": "EPERM",
    "linkat": "EPERM ENOSPC EEXIST ENOENT", "madvise": "EINVAL", "mkdir": "EACCES ENOSPC", "mkdirat": "EACCES ENOSPC", "mmap": "ENOMEM", "mprotect": "ENOMEM",
    "munmap": "ENOMEM", "newfstatat": "EIO EACCES", "openat": "EMFILE EACCES EIO", "pipe2": "EMFILE",
    "poll": "EINTR ENOMEM", "ppoll": "EINTR ENOMEM", "prctl": "EINVAL", "prlimit64": "EPERM", "pselect6": "EINTR ENOMEM",
    "read": "EIO EINTR", "readlink": "EACCES", "readlinkat": "EACCES", "recvmsg": "EINTR ENOMEM", "rename": "EACCES EIO",
    "renameat": "EACCES EIO", "sendmsg": "EPIPE ENOBUFS EINTR", "sendto": "EPIPE ENOBUFS", "setsid": "EPERM",
    "socketpair": "EMFILE", "sync_file_range": "EIO", "write": "ENOSPC EIO EINTR"}

# Beside brvhost's own message, the kit's, whose assertion ends an extension that cannot read its own bundle; and one for
# the score where the whole run ends with its extension.
BESIDE = (r"LegerLines: .*Assertion `bundleRef != NULL' failed\.|brvhost: the process that loaded the extension LegerLines .*"
          r"|brvhost: when it was ended, the extension LegerLines .*")


def can_trace():
    command = [FAILING_CALL, os.devnull, "0", "none", "0", "0", PROGRAM, "--version"]
    return subprocess.run(command, capture_output=True).returncode != NOT_PERMITTED


@unittest.skipIf(COUNTED, "what counts what is run makes calls of its own")
@unittest.skipIf(SANITIZED, "what looks for leaks cannot be traced")
@unittest.skipUnless(can_trace(), "the system does not let one process trace another")
class SystemCalls(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())
        self.out = self.folder / "out.musicxml"
        self.calls = tempfile.NamedTemporaryFile("r")
        self.addCleanup(self.calls.close)

    def trace(self, command, process="0", call="none", number=0, action=0):
        """The finished process, and the calls of the run: their process, their name and their number."""
        finished = subprocess.run([FAILING_CALL, self.calls.name, process, call, str(number), str(action), PROGRAM,
                                   *map(str, command)], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                  timeout=30, env={**os.environ, "LANGUAGE": "en"}, cwd=self.folder)
        self.calls.seek(0)
        return finished, [line.split() for line in self.calls]

    def files(self):
        """By their paths; a folder has no content."""
        return {str(path.relative_to(self.folder)): path.read_bytes() if path.is_file() else None
                for path in sorted(self.folder.rglob("*"))}

    def restore(self, files):
        for path in self.folder.iterdir():
            shutil.rmtree(path) if path.is_dir() else path.unlink()
        for name, content in files.items():
            (self.folder / name).mkdir() if content is None else (self.folder / name).write_bytes(content)

    def chosen(self, calls):
        """All calls, or those that stand for the others."""
        last = {(process, call): int(number) for process, call, number in calls}
        return [(process, call, int(number)) for process, call, number in calls
                if ALL or int(number) <= FIRST or int(number) == last[process, call]]

    def check_each_fault(self, processes, command, faults_of, check):
        """Runs the command with each fault, a name and an action, of each chosen call, and checks what comes of it. The check
        is given that, the good run, and the files before and after that, which are put back at the end."""
        before = self.files()
        good, calls = self.trace(command)
        self.succeeds(good)
        after = self.files()
        chosen = [call for call in self.chosen(calls) if call[0] in processes]
        self.assertNotEqual(chosen, [])
        for process, call, number in chosen:
            for name, action in faults_of(call):
                with self.subTest(process=process, call=call, number=number, fault=name):
                    self.restore(before)
                    run, _ = self.trace(command, process, call, number, action)
                    check(run, good, before, after)
        self.restore(before)

    def survives(self, processes, *command):
        def errors_of(call):
            return [(name, getattr(errno, name)) for name in ERRORS.get(call, "").split()]
        self.check_each_fault(processes, command, errors_of, self.is_right)

    def is_right(self, run, good, before, after):
        files = self.files()
        if run.returncode == 0:
            self.assertEqual((run.stdout, run.stderr, files), (good.stdout, good.stderr, after))
            return
        self.assertIn(run.returncode, (1, 2, 3))
        messages = [line for line in run.stderr.splitlines() if not re.fullmatch(BESIDE, line)]
        self.assertLessEqual(len(messages), 1, run.stderr)
        self.assertRegex(run.stderr, "(^|\n)brvhost: [^\n]+\n$")
        self.assertNotRegex(run.stderr, r"std::|basic_|terminate")
        self.assertIn(files, (before, after))

    def is_killed_well(self, processes, *command):
        def check(run, _good, before, after):
            self.assertIn(run.returncode, (0, 1, 3, KILLED))
            files = self.files()
            for name, content in after.items():
                self.assertIn(files.get(name), (before.get(name), content))
            self.succeeds(subprocess.run([PROGRAM, *map(str, command)], capture_output=True, text=True, timeout=60))
            self.assertEqual(self.files(), after)
        self.check_each_fault(processes, command, lambda _: [(moment, moment) for moment in ("before", "after")], check)

    def test_that_fail_leave_a_new_result_whole(self):
        self.survives((SUPERVISOR, KEEPER, "0.1", LOADER, "0.1.1.1"), *hiding(self.score, "-o", self.out))

    def test_that_fail_leave_a_result_whole_that_is_reported_in_json(self):
        self.survives((SUPERVISOR, KEEPER), *hiding("--json", "--list", "--quiet", self.score, "-o", self.out))

    def test_that_fail_cost_a_result_on_the_standard_output(self):
        self.survives((KEEPER,), *hiding(self.score, "-o", "-"))

    def test_that_fail_leave_the_score_itself_whole(self):
        self.survives((KEEPER,), *hiding("--in-place", self.score))

    def test_that_fail_leave_an_archive_whole(self):
        self.survives((KEEPER,), *hiding("--in-place", self.compressed_score()))

    def test_that_fail_leave_the_result_that_was_there_whole(self):
        self.out.write_text("old")
        self.survives((KEEPER,), *hiding(self.score, "-o", self.out))

    def test_that_fail_are_reported_by_other_commands(self):
        self.survives((SUPERVISOR,), "info", self.score)
        self.survives((SUPERVISOR,), "info", "-r", self.folder)

    def test_that_fail_leave_a_new_extension_whole_or_none_of_it(self):
        self.survives((SUPERVISOR,), "new", "Mine", "--languages", "de,pt")

    def test_that_report_the_end_of_a_worker_end_the_run(self):
        other = self.write("other.musicxml", score())
        command = hiding(self.score, other, "--jobs", "1", "--out-dir", self.folder / "out")
        (self.folder / "out").mkdir()
        # The first one offers the menu items, and the second reports the end of the first worker.
        run, _ = self.trace(command, LOADER, "sendmsg", 2, errno.ENOBUFS)
        self.fails(run, 1, "the process that loaded the extension LegerLines closed the connection to brvhost\n")
        # When the loader is missed, the second score may be done, at work or not begun.
        written = sorted(path.name for path in (self.folder / "out").iterdir())
        self.assertIn(written, (["score.musicxml"], ["other.musicxml", "score.musicxml"]))
        rest = 2 - len(written)
        self.assertIn(run.stdout.splitlines()[-1],
                      (f"2 scores: {len(written)} changed, 0 unchanged, {rest} failed",
                       f"2 scores: {len(written)} changed, 0 unchanged, 0 failed, {rest} not run"))

    def test_at_which_it_is_killed_leave_the_score_whole(self):
        self.is_killed_well((SUPERVISOR, KEEPER, "0.1", LOADER, "0.1.1.1"), *hiding("--in-place", self.score))

    def test_at_which_it_is_killed_leave_a_new_result_whole(self):
        self.is_killed_well((KEEPER,), *hiding(self.score, "-o", self.out))


if __name__ == "__main__":
    unittest.main()
