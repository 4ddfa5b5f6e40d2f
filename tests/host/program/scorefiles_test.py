"""Scores that brvhost cannot use, and archives."""

import io
import os
import resource
import subprocess
import struct
import unittest
import zipfile
import zlib

from brvhost import (Case, HIDDEN_NOTE, HIDE, PROGRAM, SANITIZED, brvhost, run, score)


class BadScores(Case):
    def refuses(self, name, content, message):
        path = self.write(name, content)
        out = self.folder / ("out" + path.suffix)
        process = self.fails(run(HIDE, "--all", path, "-o", out), 2, f"{path}", message)
        self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)
        self.assertFalse(out.exists())
        self.assertEqual(path.read_bytes(), content if isinstance(content, bytes) else content.encode())
        return process

    def archive(self, members):
        path = self.folder / "made.zip"
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
            for name, content in members.items():
                archive.writestr(name, content)
        return path.read_bytes()

    @staticmethod
    def container(root):
        return f'<container><rootfiles><rootfile full-path="{root}"/></rootfiles></container>'

    def test_are_reported_with_file_line_and_column(self):
        self.refuses("a.xml", "not xml", "a.xml:1:1: not well-formed")
        self.refuses("b.xml", "", "is empty")
        self.refuses("c.xml", "<html></html>", "c.xml:1:1: not MusicXML")
        self.refuses("d.xml", score()[:-9], "d.xml:1:")
        self.refuses("e.musicxml", score("\n  <attributes><divisions>0</divisions></attributes>"), "e.musicxml:2:27:")
        self.refuses("f.musicxml", "\x1f\x8b\x08 packed by another program", "f.musicxml:1:1")

    def test_are_reported_with_what_is_wrong_with_an_archive(self):
        self.refuses("a.mxl", self.archive({"x.xml": score()}), "no member META-INF/container.xml")
        self.refuses("b.mxl", self.archive({"META-INF/container.xml": self.container("y.xml")}), "no member y.xml")
        self.refuses("c.mxl", self.archive({"META-INF/container.xml": "<container/>"}), "names no root file")
        self.refuses("d.mxl", self.archive({"META-INF/container.xml": "<container>"}), "META-INF/container.xml:1:")
        whole = self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": score()})
        large = {"META-INF/container.xml": self.container("x.xml") + " " * (1 << 20), "x.xml": score()}
        refused = self.refuses("h.mxl", self.archive(large), "META-INF/container.xml unpacks to more than 1048576 bytes")
        self.assertNotIn("--max-size", refused.stderr)
        self.refuses("e.mxl", whole[:-30],
                     "e.mxl: not a readable .mxl archive: it has no directory at its end; the file may be cut off\n")
        self.refuses("f.mxl", whole[:100] + b"\0\0\0\0" + whole[104:], "f.mxl: ")
        self.refuses("g.mxl", self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": "<html/>"}),
                     "g.mxl: x.xml:1:1: not MusicXML")

    def test_are_reported_with_the_member_that_is_damaged(self):
        # A directory with the right length, and one with a wrong length, over a stream that was replaced.
        content = score() + "<!-- some more, so that there is something to compress: " + "abc" * 100 + " -->"
        whole = self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": content})
        with zipfile.ZipFile(io.BytesIO(whole)) as archive:
            member = archive.getinfo("x.xml")
        stream = member.header_offset + 30 + len("x.xml")
        broken = whole[:stream] + b"\xff" * 8 + whole[stream + 8:]
        self.refuses("a.mxl", broken, "x.xml: its compressed data is damaged")
        crc = member.CRC.to_bytes(4, "little")
        self.refuses("b.mxl", whole.replace(crc, bytes(4)), "x.xml: its checksum does not match")
        size = member.file_size.to_bytes(4, "little")
        less = (member.file_size - 1).to_bytes(4, "little")
        self.refuses("c.mxl", whole.replace(size, less), "x.xml is larger than the archive states")
        more = (member.file_size + 1).to_bytes(4, "little")
        self.refuses("d.mxl", whole.replace(size, more), "x.xml: its compressed data is damaged")

    @unittest.skipIf(SANITIZED, "the sanitizer wants all addresses")
    def test_take_no_memory_for_what_cannot_be_in_an_archive(self):
        for method in (zipfile.ZIP_DEFLATED, zipfile.ZIP_STORED):
            path = self.folder / "a.mxl"
            with zipfile.ZipFile(path, "w") as archive:
                archive.writestr("META-INF/container.xml", self.container("x.xml"))
                archive.writestr("x.xml", score(), method)
                header = archive.getinfo("x.xml").header_offset
            content = bytearray(path.read_bytes())
            for field in (header + 22, content.rindex(b"PK\x01\x02") + 24):  # of the local header and the directory
                content[field:field + 4] = (1 << 30).to_bytes(4, "little")
            path.write_bytes(content)
            command = ["bash", "-c", 'ulimit -v 600000; exec "$@"', "bash", PROGRAM, "info", str(path)]
            process = subprocess.run(command, capture_output=True, text=True, timeout=60)
            # Some releases of the library for archives compare the sizes of a stored member themselves.
            self.assertRegex(self.fails(process, 2).stderr, "x.xml is smaller than the archive states\n$" if method else
                             "(x.xml is smaller than the archive states|its directory and its members contradict each other)\n$")

    def test_are_reported_with_the_stored_member_that_is_damaged(self):
        path = self.folder / "made.zip"
        with zipfile.ZipFile(path, "w") as archive:
            archive.writestr("META-INF/container.xml", self.container("x.xml"))
            archive.writestr("x.xml", score())
        whole = path.read_bytes()
        self.refuses("a.mxl", whole.replace(b"<score-part ", b"<score-Part "), "x.xml: its checksum does not match")

    def test_are_reported_with_the_member_that_is_damaged_however_it_is_packed(self):
        path = self.folder / "made.zip"
        with zipfile.ZipFile(path, "w") as archive:
            archive.writestr("META-INF/container.xml", self.container("x.xml"))
            archive.writestr("x.xml", score(), zipfile.ZIP_BZIP2)
        whole = path.read_bytes()
        packed = whole.index(b"BZh")
        self.refuses("a.mxl", whole[:packed + 20] + bytes(20) + whole[packed + 40:],
                     "a.mxl: not a readable .mxl archive: x.xml: its compressed data is damaged\n")

    def test_are_reported_when_their_archive_is_in_several_parts(self):
        whole = bytearray(self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": score()}))
        whole[whole.rindex(b"PK\5\6") + 4] = 1  # the number of this part, from 0
        process = self.refuses("a.mxl", bytes(whole), "a.mxl: not a readable .mxl archive: it ")
        # Newer libraries take such a directory for none.
        self.assertRegex(process.stderr, ": it (is one of several parts of an archive|has no directory at its end; the file may be cut off)\n$")

    def test_are_reported_with_the_member_that_is_packed_in_no_known_way(self):
        whole = self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": score()})
        with zipfile.ZipFile(io.BytesIO(whole)) as archive:
            local = archive.getinfo("x.xml").header_offset
        directory = whole.rindex(b"PK\1\2")
        fields = {"encrypted": (6, 8, 1, "it is encrypted"),
                  "packed": (8, 10, 19, "it is compressed by a method that is not known")}
        for name, (in_head, in_directory, value, wrong) in fields.items():
            content = bytearray(whole)
            for field in (local + in_head, directory + in_directory):
                content[field] = value
            self.refuses(f"{name}.mxl", bytes(content), f"{name}.mxl: not a readable .mxl archive: x.xml: {wrong}\n")

    def test_are_reported_when_the_directory_of_their_archive_is_wrong(self):
        whole = self.archive({"META-INF/container.xml": self.container("x.xml"), "x.xml": score()})
        directory = whole.rindex(b"PK\1\2")
        other = whole[:directory] + whole[directory:].replace(b"x.xml", b"y.xml")
        self.refuses("a.mxl", other, "a.mxl: not a readable .mxl archive: its directory and its members contradict each other\n")

    def test_that_unpack_to_too_much_are_refused(self):
        members = {"META-INF/container.xml": self.container("x.xml"), "x.xml": score() + " " * (3 << 20)}
        path = self.write("bomb.mxl", self.archive(members))
        self.fails(run(HIDE, "--all", path, "--in-place", "--max-size", "2MB"), 2, "x.xml unpacks to more than")
        self.succeeds(run(HIDE, "--all", path, "--in-place", "--max-size", "4MB"))

    def test_that_are_not_there_are_named(self):
        self.fails(run(HIDE, "--all", "--in-place", self.folder / "none.xml"), 2, "none.xml: No such file")
        self.fails(run(HIDE, "--all", "--in-place", self.folder), 2, f"brvhost: {self.folder}: is a folder; --recursive takes the scores in it\n")

    def test_that_are_devices_are_refused(self):
        self.fails(brvhost("info", "/dev/zero"), 2, "brvhost: /dev/zero: is a device\n")

    def test_from_a_pipe_are_no_larger_than_is_allowed(self):
        content = score()
        for limit, status in ((len(content), 0), (len(content) - 1, 2)):
            with subprocess.Popen(["echo", "-n", content], stdout=subprocess.PIPE) as writer:
                process = brvhost("info", "/dev/stdin", "--max-size", limit, stdin=writer.stdout)
            message = f"brvhost: /dev/stdin: is larger than {limit} bytes; --max-size allows more\n"
            self.assertEqual((process.returncode, process.stderr), (status, message if status else ""))

    def test_do_not_keep_the_others_from_being_done(self):
        good = self.write("good.xml", score())
        bad = self.write("bad.xml", "<html/>")
        process = self.fails(run(HIDE, "--all", "--in-place", "--jobs", "2", bad, good), 2, "bad.xml:1:1: not MusicXML")
        self.assertEqual(good.read_text(), score(HIDDEN_NOTE))
        self.assertIn("2 scores: 1 changed, 0 unchanged, 1 failed", process.stdout)


class OddScores(Case):
    """Small files that state large numbers."""

    def test_of_more_staves_than_there_can_be_take_no_memory_for_them(self):
        parts = "".join(f"<part id='{number}'><measure><note><staff>32767</staff></note></measure></part>"
                        for number in range(400))
        path = self.write("staves.musicxml", f"<score-partwise>{parts}</score-partwise>")
        self.fails(run(HIDE, "--all", "--in-place", path), 2, "staves.musicxml:1:", "more than 32767 staves")
        largest = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss  # in KB
        self.assertLess(largest, 400 << 10)


class Archives(Case):
    def test_keep_every_other_member(self):
        path = self.folder / "a.mxl"
        with zipfile.ZipFile(path, "w") as archive:
            # Written long ago, by its date.
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

    def archive_with_bare_headers(self, members):
        """An archive whose members have no dates, as some writers leave them, in the bytes of their headers."""
        body = directory = b""
        for name, data in members:
            head = struct.pack("<HHHHIII", 0, 0, 0, 0, zlib.crc32(data), len(data), len(data))
            sizes = struct.pack("<HH", len(name), 0)
            directory += (b"PK\1\2" + struct.pack("<HH", 20, 20) + head + sizes
                          + struct.pack("<HHHII", 0, 0, 0, 0, len(body)) + name)
            body += b"PK\3\4" + struct.pack("<H", 20) + head + sizes + name + data
        end = struct.pack("<HHHHIIH", 0, 0, len(members), len(members), len(directory), len(body), 0)
        return body + directory + b"PK\5\6" + end

    def test_with_odd_heads_can_be_read_again(self):
        container = BadScores.container("s.xml").encode()
        for name in (b"a.png", b"a\0.png"):
            path = self.write("a.mxl", self.archive_with_bare_headers(
                [(name, b"abc" * 4000), (b"META-INF/container.xml", container), (b"s.xml", score().encode())]))
            self.succeeds(run(HIDE, "--all", path, "--in-place"))
            self.succeeds(brvhost("info", path))
            with zipfile.ZipFile(path) as archive:
                self.assertIsNone(archive.testzip())
                self.assertEqual(archive.read("s.xml").decode(), score(HIDDEN_NOTE))
                self.assertEqual(archive.read(archive.namelist()[0]), b"abc" * 4000)

    def test_have_names_in_the_encoding_of_old_archives_too(self):
        name = "Prélude.xml".encode("cp437")
        container = BadScores.container("Prélude.xml").encode()
        path = self.write("a.mxl", self.archive_with_bare_headers(
            [(b"META-INF/container.xml", container), (name, score().encode())]))
        self.succeeds(run(HIDE, "--all", path, "--in-place"))
        with zipfile.ZipFile(path) as archive:
            self.assertIsNone(archive.testzip())
            self.assertEqual(archive.read("Prélude.xml").decode(), score(HIDDEN_NOTE))

    def test_and_plain_scores_keep_to_their_names(self):
        plain = self.write("a.musicxml", score())
        self.fails(run(HIDE, "--all", plain, "-o", self.folder / "a.mxl"), 1, "name it .musicxml")
        self.assertFalse((self.folder / "a.mxl").exists())


if __name__ == "__main__":
    unittest.main()
