"""How much memory a score may take, and what happens when it would take more."""

import os
import random
import subprocess
import unittest
import zipfile

from brvhost import (Case, HIDE, LEGER_LINES, PROGRAM, SANITIZED, SAMPLES, brvhost, run, score)

MEGABYTE = 1 << 20
HEAD, TAIL = score("|").encode().split(b"|")


def peak_of(*command):
    """The finished process and the most memory that it had, in bytes."""
    process = subprocess.Popen([PROGRAM, *map(str, command)], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.PIPE, text=True, env={**os.environ, "LANGUAGE": "en"})
    errors = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    process.stderr.close()
    return subprocess.CompletedProcess(command, process.returncode, "", errors), usage.ru_maxrss << 10


@unittest.skipIf(SANITIZED, "the sanitizer ends the program when memory runs out")
class Memory(Case):
    def archive(self, name, pieces, method=zipfile.ZIP_DEFLATED):
        """A compressed score of these pieces of bytes."""
        path = self.folder / name
        with zipfile.ZipFile(path, "w", method, compresslevel=1) as archive:
            archive.writestr("META-INF/container.xml",
                             '<container><rootfiles><rootfile full-path="x.xml"/></rootfiles></container>')
            with archive.open("x.xml", "w") as member:
                for piece in pieces:
                    member.write(piece)
        return path

    @staticmethod
    def much_of(element, size):
        piece = element * (MEGABYTE // len(element))
        return [piece] * (size // len(piece))

    def test_of_a_small_archive_is_a_gigabyte_at_most(self):
        path = self.archive("notes.mxl", [HEAD, *self.much_of(b"<note/>", 150 * MEGABYTE), TAIL])
        self.assertLess(path.stat().st_size, MEGABYTE)
        for command in (["info", path], ["run", LEGER_LINES, "--item", HIDE, "--all", "--dry-run", path]):
            process, peak = peak_of(*command)
            self.assertEqual((process.returncode, process.stderr),
                             (1, f"brvhost: {path}: needs more than 1 GB of memory; --max-memory allows more\n"))
            self.assertLess(peak, 1200 * MEGABYTE)

    def test_is_what_the_user_allows(self):
        path = self.archive("notes.mxl", [HEAD, *self.much_of(b"<note/>", 20 * MEGABYTE), TAIL])
        process, peak = peak_of("info", "--max-memory", "100MB", path)
        self.assertEqual((process.returncode, process.stderr),
                         (1, f"brvhost: {path}: needs more than 100 MB of memory; --max-memory allows more\n"))
        self.assertLess(peak, 200 * MEGABYTE)

    def test_is_not_taken_by_nested_elements(self):
        path = self.archive("nested.mxl", [HEAD, *self.much_of(b"<a>", 50 * MEGABYTE)])
        process, peak = peak_of("info", path)
        place = len(HEAD) + 3 * (256 - 3) + 1  # three elements are open when the nested ones start
        self.assertEqual((process.returncode, process.stderr),
                         (2, f"brvhost: {path}: x.xml:1:{place}: elements are nested more than 256 deep\n"))
        self.assertLess(peak, 300 * MEGABYTE)

    def test_that_one_score_lacks_is_there_for_the_others(self):
        bomb = self.archive("notes.mxl", [HEAD, *self.much_of(b"<note/>", 20 * MEGABYTE), TAIL])
        good = self.write("good.musicxml", score())
        out = self.folder / "out"
        process = run(HIDE, "--all", "--max-memory", "30MB", bomb, good, "--out-dir", out)
        self.fails(process, 1, f"brvhost: {bomb}: needs more than 30 MB of memory; --max-memory allows more\n")
        self.assertIn("2 scores: 1 changed, 0 unchanged, 1 failed", process.stdout)
        self.assertEqual([path.name for path in out.iterdir()], ["good.musicxml"])
        process = brvhost("info", "--max-memory", "30MB", bomb, SAMPLES / "piano.musicxml")
        self.fails(process, 1, "notes.mxl: needs more than 30 MB of memory")
        self.assertIn("staves 1-2  Piano", process.stdout)

    def ends_with_one_sentence(self, path, most):
        """Runs with more and more memory, until it is enough: whatever fails to get some, it is reported alike."""
        out = self.folder / ("out" + path.suffix)
        refusals = 0
        for kilobytes in range(128, most, 512):
            process = run(HIDE, "--all", "--max-memory", f"{kilobytes}KB", path, "-o", out)
            if process.returncode == 0:
                self.assertGreater(refusals, 5)
                return out.unlink()
            refusals += 1
            size = f"{kilobytes // 1024} MB" if kilobytes % 1024 == 0 else f"{kilobytes} KB"
            self.assertEqual((process.returncode, process.stderr),
                             (1, f"brvhost: {path}: needs more than {size} of memory; --max-memory allows more\n"))
            self.assertFalse(out.exists())
        self.fail(f"{most} KB are not enough")

    def test_that_runs_out_anywhere_ends_the_score_with_one_sentence(self):
        # What can hardly be compressed, so that the archive takes memory too.
        notes = b"<note><duration>1</duration></note>"
        comments = [b"<!--" + random.Random(7).randbytes(1 * MEGABYTE).hex().encode() + b"-->"]
        for method in (zipfile.ZIP_DEFLATED, zipfile.ZIP_STORED, zipfile.ZIP_BZIP2):
            with self.subTest(method=method):
                self.ends_with_one_sentence(self.archive(f"{method}.mxl", [HEAD, notes, *comments, TAIL], method), 40 << 10)
        parts = b"".join(b"<part id='P%d'><measure>%s</measure></part>" % (number, notes * 2000) for number in range(60))
        with self.subTest("parts that are read apart"):
            self.ends_with_one_sentence(self.write("parts.musicxml", b"<score-partwise>" + parts + b"</score-partwise>"),
                                        80 << 10)


if __name__ == "__main__":
    unittest.main()
