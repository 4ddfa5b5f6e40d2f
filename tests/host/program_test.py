"""What brvhost does at the shell: commands, files, exit statuses, messages."""

import io
import os
import pty
import re
import select
import signal
import subprocess
import time
import unittest
import zipfile

from brvhost import (Case, HIDE, LEGER_LINES, NOTE, PROGRAM, SAMPLES, SHOW, brvhost, faulty, run, score)

HIDDEN_NOTE = NOTE.replace("<note", '<note print-leger="no"')


class Items(Case):
    def test_are_listed_with_their_texts(self):
        lines = self.succeeds(brvhost("items", LEGER_LINES)).stdout.splitlines()
        self.assertEqual([line.split("\t")[:2] for line in lines],
                         [["0", "Hide Ledger Lines"], ["1", "Show Ledger Lines"]])

    def test_need_a_bundle_that_is_there(self):
        self.fails(brvhost("items", self.folder / "none.bundle"), 3, "none.bundle: there is no such bundle")

    def test_need_a_bundle_that_loads(self):
        self.fails(brvhost("items", faulty("needs_missing_library")), 3, "does not load", "DefinedNowhere")

    def test_need_entry_points(self):
        self.fails(brvhost("items", faulty("lacks_entry_points")), 3, "has no BrevixExtensionVersion")

    def test_need_the_same_version(self):
        self.fails(brvhost("items", faulty("wrong_version")), 3, "0x18000000", "0x19500000")

    def test_need_an_end(self):
        self.fails(brvhost("items", faulty("never_ends_its_list")), 3, "more than 1000 menu items")


class Info(Case):
    def test_counts_what_a_score_holds(self):
        out = self.succeeds(brvhost("info", SAMPLES / "piano.musicxml")).stdout
        text = (SAMPLES / "piano.musicxml").read_text()
        self.assertRegex(out, r"staves +2\n")
        self.assertRegex(out, rf"measures +{text.count('<measure ')}\n")
        self.assertRegex(out, rf"notes +{text.count('<note>') - text.count('<rest/>')}\n")
        self.assertRegex(out, r"hidden +0 ")

    def test_goes_on_after_a_score_that_cannot_be_read(self):
        bad = self.write("bad.xml", "<nothing/>")
        process = brvhost("info", bad, SAMPLES / "winds.musicxml")
        self.fails(process, 2, f"{bad}:1:1: not MusicXML")
        self.assertIn("Horn in F", process.stdout)


class Run(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score(NOTE * 2))
        self.out = self.folder / "out.musicxml"

    def test_hides_the_whole_score(self):
        process = self.succeeds(run(HIDE, "--all", self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE * 2))
        self.assertIn("2 of 2 entries changed", process.stdout)

    def test_gives_every_sample_back(self):
        for sample in sorted(SAMPLES.glob("*.musicxml")):
            if b"print-leger" in sample.read_bytes():
                continue
            with self.subTest(sample.name):
                self.succeeds(run(HIDE, "--all", sample, "-o", self.out))
                self.assertNotEqual(self.out.read_bytes(), sample.read_bytes())
                self.succeeds(run(SHOW, "--all", self.out, "--in-place"))
                self.assertEqual(self.out.read_bytes(), sample.read_bytes())

    def test_writes_an_unchanged_score_where_it_was_told_to(self):
        process = self.succeeds(run(SHOW, "--all", self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), self.score.read_text())
        self.assertIn("No ledger lines were shown", process.stdout)

    def test_writes_nothing_in_a_dry_run(self):
        process = self.succeeds(run(HIDE, "--all", self.score, "--dry-run"))
        self.assertIn("2 of 2 entries changed", process.stdout)
        self.assertEqual(self.score.read_text(), score(NOTE * 2))

    def test_touches_no_file_in_place_that_does_not_change(self):
        before = os.stat(self.score)
        self.succeeds(run(SHOW, "--all", "--in-place", self.score))
        after = os.stat(self.score)
        self.assertEqual((before.st_ino, before.st_mtime_ns), (after.st_ino, after.st_mtime_ns))

    def test_keeps_permissions_and_links_in_place(self):
        os.chmod(self.score, 0o640)
        link = self.folder / "link.musicxml"
        link.symlink_to(self.score)
        self.succeeds(run(HIDE, "--all", "--in-place", link))
        self.assertTrue(link.is_symlink())
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE * 2))
        self.assertEqual(os.stat(self.score).st_mode & 0o777, 0o640)

    def test_leaves_nothing_beside_its_result(self):
        self.succeeds(run(HIDE, "--all", self.score, "-o", self.out))
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["out.musicxml", "score.musicxml"])

    def test_writes_to_a_new_folder(self):
        other = self.write("other.musicxml", score())
        process = self.succeeds(run(HIDE, "--all", self.score, other, "--out-dir", self.folder / "a" / "b"))
        self.assertEqual((self.folder / "a/b/score.musicxml").read_text(), score(HIDDEN_NOTE * 2))
        self.assertEqual((self.folder / "a/b/other.musicxml").read_text(), score(HIDDEN_NOTE))
        self.assertIn("2 scores: 2 changed, 0 unchanged, 0 failed", process.stdout)

    def test_cuts_the_region_at_its_ends(self):
        self.score.write_text(score(NOTE * 5))
        self.succeeds(run(HIDE, self.score, "-o", self.out, "--start-at", "1", "--end-at", "6/2"))
        self.assertEqual(self.out.read_text(), score(NOTE + HIDDEN_NOTE * 3 + NOTE))

    def test_leaves_hidden_layers_alone(self):
        voices = [NOTE.replace("</note>", f"<voice>{voice}</voice></note>") for voice in (1, 2, 3)]
        self.score.write_text(score("".join(voices)))
        self.succeeds(run(HIDE, "--all", "--layers", "1,3", self.score, "-o", self.out))
        voices[0] = voices[0].replace("<note", '<note print-leger="no"')
        voices[2] = voices[2].replace("<note", '<note print-leger="no"')
        self.assertEqual(self.out.read_text(), score("".join(voices)))

    def test_does_nothing_without_a_region_when_nobody_can_be_asked(self):
        self.succeeds(run(HIDE, self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), score(NOTE * 2))

    def test_works_on_the_whole_score_without_a_region_when_the_answer_is_yes(self):
        self.succeeds(run(HIDE, self.score, "-o", self.out, "--yes"))
        self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE * 2))

    def test_warns_of_what_it_guesses(self):
        self.score.write_text(score("\n<backup><duration>1</duration></backup>" + NOTE))
        process = self.succeeds(run(HIDE, "--all", self.score, "-o", self.out))
        self.assertIn("score.musicxml:2:", process.stderr)
        self.assertIn("warning: a backup leads before the barline", process.stderr)


class Records(Case):
    def test_live_as_long_as_the_document_is_open(self):
        score_path = self.write("score.musicxml", score())
        expected = """create 1
create 1
create 0
next 3 three
next 7 seven
previous 3 three
save 1
legacy 1 slur record
create 1
after cancel 0"""
        for _ in range(2):
            process = self.succeeds(run(0, "--all", score_path, "--dry-run", bundle=faulty("tells_of_records")))
            self.assertEqual([line.strip() for line in process.stdout.splitlines()[:10]], expected.splitlines())


class BadUsage(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def refuses(self, message, *arguments):
        before = sorted(self.folder.iterdir())
        process = run(*arguments)
        self.fails(process, 2, message)
        self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)
        self.assertEqual(sorted(self.folder.iterdir()), before)
        self.assertEqual(self.score.read_text(), score())

    def test_gets_one_line(self):
        score_and_in_place = (self.score, "--in-place")
        self.refuses("--item 2: the extension has 2 items", 2, "--all", *score_and_in_place)
        self.refuses("--item -1", -1, "--all", *score_and_in_place)
        self.refuses("--staves 0", HIDE, "--staves", "0", *score_and_in_place)
        self.refuses("--measures 5-2", HIDE, "--measures", "5-2", *score_and_in_place)
        self.refuses("--start-at x", HIDE, "--start-at", "x", *score_and_in_place)
        self.refuses("--end-at -1", HIDE, "--end-at=-1", *score_and_in_place)
        self.refuses("--layers 1,x", HIDE, "--all", "--layers", "1,x", *score_and_in_place)
        self.refuses("--jobs", HIDE, "--all", "--jobs", "0", *score_and_in_place)
        self.refuses("exactly one of --output", HIDE, "--all", self.score)
        self.refuses("exactly one of --output", HIDE, "--all", self.score, "--in-place", "-o", self.folder / "x")
        self.refuses("single score", HIDE, "--all", self.score, self.score, "-o", self.folder / "x")
        self.refuses("two of the results", HIDE, "--all", self.score, f"{self.folder}/./score.musicxml", "--in-place")
        self.refuses("starts at staff 7, and there are 1", HIDE, "--staves", "7", *score_and_in_place)

    def test_of_a_command_gets_one_line(self):
        for arguments in ([], ["fly"], ["items"], ["info"], ["run", LEGER_LINES], ["items", "a", "b"]):
            process = brvhost(*arguments)
            self.fails(process, 2, "brvhost: ")
            self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)


class BadScores(Case):
    def refuses(self, name, content, message):
        path = self.write(name, content)
        out = self.folder / ("out" + path.suffix)
        process = self.fails(run(HIDE, "--all", path, "-o", out), 2, f"{path}", message)
        self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)
        self.assertFalse(out.exists())
        self.assertEqual(path.read_bytes(), content if isinstance(content, bytes) else content.encode())

    def archive(self, members):
        path = self.folder / "made.zip"
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
            for name, content in members.items():
                archive.writestr(name, content)
        return path.read_bytes()

    @staticmethod
    def container(root):
        return f'<container><rootfiles><rootfile full-path="{root}"/></rootfiles></container>'

    def test_say_file_line_and_column(self):
        self.refuses("a.xml", "not xml", "a.xml:1:1: not well-formed")
        self.refuses("b.xml", "", "is empty")
        self.refuses("c.xml", "<html></html>", "c.xml:1:1: not MusicXML")
        self.refuses("d.xml", score()[:-9], "d.xml:1:")
        self.refuses("e.musicxml", score("\n  <attributes><divisions>0</divisions></attributes>"), "e.musicxml:2:27:")
        self.refuses("f.musicxml", "\x1f\x8b\x08 packed by another program", "f.musicxml:1:1")

    def test_say_what_is_wrong_with_an_archive(self):
        self.refuses("a.mxl", self.archive({"x.xml": score()}), "no member META-INF/container.xml")
        self.refuses("b.mxl", self.archive({"META-INF/container.xml": self.container("y.xml")}), "no member y.xml")
        self.refuses("c.mxl", self.archive({"META-INF/container.xml": "<container/>"}), "names no root file")
        self.refuses("d.mxl", self.archive({"META-INF/container.xml": "<container>"}), "META-INF/container.xml:1:")
        whole = self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": score()})
        self.refuses("e.mxl", whole[:-30], "not a readable .mxl archive")
        self.refuses("f.mxl", whole[:100] + b"\0\0\0\0" + whole[104:], "f.mxl: ")
        self.refuses("g.mxl", self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": "<html/>"}),
                     "g.mxl:1:1: not MusicXML")

    def test_say_where_an_archive_is_damaged(self):
        # A directory that says the right length, and one that does not, over a stream that was exchanged.
        content = score() + "<!-- some more, so that there is something to compress: " + "abc" * 100 + " -->"
        whole = self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": content})
        with zipfile.ZipFile(io.BytesIO(whole)) as archive:
            member = archive.getinfo("x.xml")
        stream = member.header_offset + 30 + len("x.xml")
        broken = whole[:stream] + b"\xff" * 8 + whole[stream + 8:]
        self.refuses("a.mxl", broken, "x.xml: its compressed data is damaged")
        crc = member.CRC.to_bytes(4, "little")
        self.refuses("b.mxl", whole.replace(crc, bytes(4)), "x.xml: its checksum does not agree")
        size = member.file_size.to_bytes(4, "little")
        less = (member.file_size - 1).to_bytes(4, "little")
        self.refuses("c.mxl", whole.replace(size, less), "x.xml is larger than the archive says")
        more = (member.file_size + 1).to_bytes(4, "little")
        self.refuses("d.mxl", whole.replace(size, more), "x.xml: its compressed data is damaged")

    def test_that_unpack_to_too_much_are_refused(self):
        members = {"META-INF/container.xml": self.container("x.xml"), "x.xml": score() + " " * (3 << 20)}
        path = self.write("bomb.mxl", self.archive(members))
        self.fails(run(HIDE, "--all", path, "--in-place", "--max-size", "2MB"), 2, "x.xml unpacks to more than")
        self.succeeds(run(HIDE, "--all", path, "--in-place", "--max-size", "4MB"))

    def test_that_are_not_there_are_named(self):
        self.fails(run(HIDE, "--all", "--in-place", self.folder / "none.xml"), 2, "none.xml: No such file")
        self.fails(run(HIDE, "--all", "--in-place", self.folder), 2, "is a folder")

    def test_do_not_keep_the_others_from_being_done(self):
        good = self.write("good.xml", score())
        bad = self.write("bad.xml", "<html/>")
        process = self.fails(run(HIDE, "--all", "--in-place", "--jobs", "2", bad, good), 2, "bad.xml:1:1: not MusicXML")
        self.assertEqual(good.read_text(), score(HIDDEN_NOTE))
        self.assertIn("2 scores: 1 changed, 0 unchanged, 1 failed", process.stdout)


class Archives(Case):
    def test_keep_every_other_member(self):
        path = self.folder / "a.mxl"
        with zipfile.ZipFile(path, "w") as archive:
            # Written long ago, as far as it says.
            archive.writestr(zipfile.ZipInfo("old.txt", (1999, 12, 31, 23, 59, 58)), "old")
            archive.writestr("mimetype", "application/vnd.recordare.musicxml", zipfile.ZIP_STORED)
            archive.writestr("META-INF/container.xml", BadScores.container("score.xml"), zipfile.ZIP_DEFLATED)
            archive.writestr("cover.png", os.urandom(5000), zipfile.ZIP_DEFLATED)
            archive.writestr(zipfile.ZipInfo("score.xml", (2001, 2, 3, 4, 5, 6)), score(), zipfile.ZIP_DEFLATED)
        out = self.folder / "out.mxl"
        self.succeeds(run(HIDE, "--all", path, "-o", out))
        with zipfile.ZipFile(path) as before, zipfile.ZipFile(out) as after:
            self.assertIsNone(after.testzip())
            self.assertEqual(before.namelist(), after.namelist())
            for old, new in zip(before.infolist(), after.infolist()):
                self.assertEqual(old.date_time, new.date_time)
                if old.filename == "score.xml":
                    self.assertEqual(after.read(new).decode(), score(HIDDEN_NOTE))
                    continue
                self.assertEqual(before.read(old), after.read(new))
                self.assertEqual((old.compress_type, old.compress_size), (new.compress_type, new.compress_size))

    def test_are_read_and_written_however_they_are_packed(self):
        for method in (zipfile.ZIP_STORED, zipfile.ZIP_DEFLATED, zipfile.ZIP_BZIP2):
            path = self.folder / "a.mxl"
            with zipfile.ZipFile(path, "w") as archive:
                archive.writestr("META-INF/container.xml", BadScores.container("score.xml"), method)
                archive.writestr("score.xml", score(), method)
            self.succeeds(run(HIDE, "--all", path, "--in-place"))
            with zipfile.ZipFile(path) as archive:
                self.assertIsNone(archive.testzip())
                self.assertEqual(archive.read("score.xml").decode(), score(HIDDEN_NOTE))
                stored = archive.getinfo("score.xml").compress_type == zipfile.ZIP_STORED
                self.assertEqual(stored, method == zipfile.ZIP_STORED)

    def test_and_plain_scores_keep_to_their_names(self):
        plain = self.write("a.musicxml", score())
        self.fails(run(HIDE, "--all", plain, "-o", self.folder / "a.mxl"), 1, "name it .musicxml")
        self.assertFalse((self.folder / "a.mxl").exists())


class Failures(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def test_of_the_extension_leave_the_score_whole(self):
        process = run(0, "--all", "--in-place", self.score, bundle=faulty("crashes_when_invoked"))
        self.fails(process, 1, "score.musicxml: the extension crashed", "Aborted")
        self.assertEqual(self.score.read_text(), score())

    def test_of_the_extension_cost_one_score_each(self):
        other = self.write("other.musicxml", score())
        process = run(0, "--all", "--in-place", self.score, other, bundle=faulty("crashes_when_invoked"))
        self.fails(process, 1, "score.musicxml: the extension", "other.musicxml: the extension")
        self.assertIn("2 scores: 0 changed, 0 unchanged, 2 failed", process.stdout)

    def test_to_write_leave_the_old_file_whole(self):
        target = self.folder / "locked"
        target.mkdir()
        old = target / "out.musicxml"
        old.write_text("old")
        process = run(HIDE, "--all", self.score, "-o", self.folder / "none" / "out.musicxml")
        self.fails(process, 1, "none/out.musicxml: cannot write: No such file or directory")
        self.fails(run(HIDE, "--all", self.score, "-o", target), 1, "is not a regular file")
        self.fails(run(HIDE, "--all", self.score, "-o", "/dev/full"), 1, "/dev/full: is not a regular file")
        self.assertEqual(old.read_text(), "old")

    def test_for_want_of_space_leave_the_old_file_whole(self):
        big = self.write("big.musicxml", score(NOTE * 5000))
        before = big.read_bytes()
        limit = "ulimit -f 64; trap '' XFSZ; "
        process = subprocess.run(["bash", "-c", limit + 'exec "$@"', "bash", PROGRAM, "run", LEGER_LINES, "--item", "0",
                                  "--all", "--in-place", str(big)], capture_output=True, text=True, timeout=60)
        self.fails(process, 1, "big.musicxml: cannot write: File too large")
        self.assertEqual(big.read_bytes(), before)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["big.musicxml", "score.musicxml"])


class Interrupts(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def start(self, bundle, *scores):
        command = [PROGRAM, "run", faulty(bundle), "--item", "0", "--all", "--in-place", *map(str, scores)]
        return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def test_end_the_extension_and_write_nothing(self):
        process = self.start("works_until_cancelled", self.score)
        time.sleep(0.5)
        self.assertIsNone(process.poll(), "it waits for the interrupt")
        process.send_signal(signal.SIGINT)
        out, errors = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130, out + errors)
        self.assertEqual(self.score.read_text(), score())

    def test_start_no_further_score(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(5)]
        process = self.start("works_until_cancelled", *others)
        time.sleep(0.5)
        process.send_signal(signal.SIGINT)
        out, _ = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)
        self.assertIn("5 scores: 0 changed, 0 unchanged, 0 failed, 5 not run", out)

    def test_a_second_time_do_not_wait_for_the_extension(self):
        process = self.start("hangs_when_cancelled", self.score)
        process.communicate(timeout=30)
        self.score.write_text(score())
        process = self.start("works_until_cancelled", self.score)
        time.sleep(0.5)
        process.send_signal(signal.SIGINT)
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)


class Terminal(Case):
    """With a terminal: questions, bars, Ctrl-C."""

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def on_terminal(self, arguments, answer_to=b"", answer=b""):
        """Output and exit status; types `answer` when the screen shows `answer_to`."""
        process, screen = pty.fork()
        if process == 0:
            os.environ["LANGUAGE"] = "en"
            os.execv(PROGRAM, [PROGRAM, *map(str, arguments)])
        shown = b""
        answered = False
        while True:
            ready, _, _ = select.select([screen], [], [], 60)
            self.assertTrue(ready, f"nothing happens after {shown!r}")
            try:
                piece = os.read(screen, 4096)
            except OSError:
                piece = b""
            if not piece:
                break
            shown += piece
            if answer and not answered and answer_to in shown:
                os.write(screen, answer)
                answered = True
        _, status = os.waitpid(process, 0)
        os.close(screen)
        return shown.decode(), os.waitstatus_to_exitcode(status)

    def ask(self, answer):
        return self.on_terminal(["run", LEGER_LINES, "--item", HIDE, "--in-place", self.score], b"[y/N]", answer)

    def test_asks_and_takes_yes(self):
        shown, status = self.ask(b"y\n")
        self.assertEqual(status, 0)
        self.assertIn("Nothing is selected. Apply the command to the whole score? [y/N]", shown)
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE))

    def test_asks_and_takes_all_else_for_no(self):
        for answer in (b"n\n", b"\n", b"\x04"):
            _, status = self.ask(answer)
            self.assertEqual(status, 0)
            self.assertEqual(self.score.read_text(), score())

    def test_shows_how_far_the_extension_is_until_ctrl_c(self):
        command = ["run", faulty("works_until_cancelled"), "--item", 0, "--all", "--in-place", self.score]
        shown, status = self.on_terminal(command, b"] 20/1000", b"\x03")
        self.assertEqual(status, 130)
        self.assertRegex(shown, r"\[#* *\] 20/1000")
        self.assertEqual(self.score.read_text(), score())

    def test_shows_how_many_scores_are_done(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(3)]
        shown, status = self.on_terminal(["run", LEGER_LINES, "--item", HIDE, "--all", "--in-place", *others])
        self.assertEqual(status, 0)
        self.assertIn("] 3/3", shown)
        self.assertTrue(re.search(r"3 scores: 3 changed", shown))

    def test_shows_no_bar_elsewhere(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(3)]
        process = run(HIDE, "--all", "--in-place", *others)
        self.assertEqual(process.stderr, "")
        self.assertNotIn("[", process.stdout)


if __name__ == "__main__":
    unittest.main()
