"""What messages name: the kind of a file, the member of an archive, the folder that refuses; and what is lost on the way."""

import os
import shutil
import subprocess
import unittest

from brvhost import (Case, HIDDEN_NOTE, HIDE, LEGER_LINES, NOTE, PROGRAM, SAMPLES, brvhost, hiding, run, score)


class Messages(Case):
    def ends(self, process, status, errors, out=""):
        self.assertEqual((process.returncode, process.stdout, process.stderr), (status, out, errors))


class Kinds(Messages):
    def test_of_scores_in_the_place_of_an_extension_are_named(self):
        files = {"a.musicxml": score(), "b": score(), "c.mxl": b"PK\3\4", "d.musicxml": "damaged"}
        for name, content in files.items():
            path = self.write(name, content)
            for command in (["items", path], ["check", path], ["run", path, path, "--item", 0, "--all", "--dry-run"]):
                self.ends(brvhost(*command), 2, f"brvhost: {path}: is a score, not an extension\n")

    def test_in_the_wrong_order_are_named(self):
        path = self.write("a.musicxml", score())
        self.ends(brvhost("run", path, LEGER_LINES, "--item", 0, "--all", "--dry-run"), 2,
                  f"brvhost: {path}: is a score, and {LEGER_LINES} an extension; the extension comes first\n")

    def test_of_other_files_in_the_place_of_an_extension_are_named(self):
        path = self.write("a.xml", "<html/>")
        for command in ("items", "check"):
            self.ends(brvhost(command, path), 3, f"brvhost: {path}: is a file, not a bundle\n")
            self.ends(brvhost(command, self.folder), 3, f"brvhost: {self.folder}: is a folder, not a bundle\n")

    def test_of_extensions_in_the_place_of_a_score_are_named(self):
        message = f"brvhost: {LEGER_LINES}: is an extension, not a score\n"
        self.ends(brvhost("info", LEGER_LINES), 2, message)
        self.ends(run(HIDE, "--all", "--in-place", LEGER_LINES), 2, message)


class Members(Messages):
    def test_are_named_with_what_is_wrong_in_them(self):
        path = self.compressed("a.mxl", "<score-partwise>\n <part><measure><note><duration>x</duration>")
        for process in (brvhost("info", path), run(HIDE, "--all", "--in-place", path)):
            self.ends(process, 2, f'brvhost: {path}: x.xml:2:34: a duration is "x"\n')

    def test_are_named_in_warnings(self):
        path = self.compressed("a.mxl", score("\n<backup><duration>1</duration></backup>" + NOTE))
        for process in (brvhost("info", path), run(HIDE, "--all", "--in-place", path)):
            self.assertEqual((process.returncode, process.stderr),
                             (0, f"brvhost: {path}: x.xml:2:31: warning: a backup goes back before the barline; "
                                 "it is taken to go back to it\n"))

    def test_are_named_where_a_note_cannot_be_changed(self):
        text = f'<!DOCTYPE s [<!ENTITY n "{NOTE}">]>\n' + score("&n;")
        path = self.compressed("a.mxl", text)
        process = self.fails(run(HIDE, "--all", "--in-place", path), 2)
        self.assertRegex(process.stderr, rf"^brvhost: {path}: x\.xml:\d+:\d+: a note that comes from an entity cannot be changed\n$")


class Texts(Messages):
    def test_from_a_score_are_cut_in_messages(self):
        long, shown = "x" * 100_000, "x" * 60 + "..."
        name = self.write("a.xml", f"<{long}/>")
        self.ends(brvhost("info", name), 2, f"brvhost: {name}:1:1: not MusicXML: the root element is <{shown}>\n")
        number = self.write("b.xml", score(f"<note><duration>{long}</duration></note>"))
        self.assertRegex(brvhost("info", number).stderr, rf'^brvhost: {number}:1:\d+: a duration is "{shown}"\n$')
        member = self.compressed("c.mxl", score(), root=long)
        self.ends(brvhost("info", member), 2, f"brvhost: {member}: the archive has no member {shown}\n")
        bad = self.compressed("d.mxl", "<html/>", root="y" * 200, member="y" * 200)
        self.ends(brvhost("info", bad), 2, f"brvhost: {bad}: {'y' * 60}...:1:1: not MusicXML: the root element is <html>\n")

    def test_from_a_score_stay_on_the_line(self):
        path = self.write("a.xml", score("<note><duration>1\n\n2&#9;3</duration></note>"))
        self.assertRegex(brvhost("info", path).stderr, r'^brvhost: .*: a duration is "1  2 3"\n$')


class Folders(Messages):
    def test_that_refuse_a_result_are_named(self):
        path = self.write("a.musicxml", score())
        for folder, reason in (("none", "No such file or directory"), ("a.musicxml", "Not a directory")):
            out = self.folder / folder / "out.musicxml"
            self.ends(run(HIDE, "--all", path, "-o", out), 1,
                      f"brvhost: {out}: cannot write to the folder {self.folder / folder}: {reason}\n")

    @unittest.skipUnless(os.geteuid() == 0 and shutil.which("setpriv"), "only root can become somebody else")
    def test_without_permission_are_named(self):
        path = self.write("a.musicxml", score())
        for folder, mode in ((self.folder, 0o755), (self.folder / "closed", 0)):
            folder.mkdir(exist_ok=True)
            folder.chmod(mode)
            out = folder / "out.musicxml"
            command = ["setpriv", "--reuid=65534", "--clear-groups", PROGRAM, *hiding(path, "-o", out)]
            process = subprocess.run([*map(str, command)], capture_output=True, text=True, timeout=60)
            self.ends(process, 1, f"brvhost: {out}: cannot write to the folder {folder}: Permission denied\n")


class Outputs(Messages):
    """The standard output is closed, or full."""

    def commands(self):
        path = self.write("a.musicxml", score())
        yield from ([PROGRAM, *map(str, command)] for command in (
            ["info", path], ["items", LEGER_LINES], ["check", LEGER_LINES, "--no-confine"], hiding(path, "--dry-run"),
            hiding(path, SAMPLES / "winds.musicxml", "--dry-run"), ["--help"], ["--version"], ["run", "--help"], ["help", "run"]))

    def test_that_lose_something_give_the_same_status(self):
        for command in self.commands():
            for output in (">&-", ">/dev/full"):
                with self.subTest(command=command, output=output):
                    process = subprocess.run(["bash", "-c", f'exec "$@" {output}', "bash", *command], stdin=subprocess.DEVNULL,
                                             capture_output=True, text=True, timeout=60)
                    name = os.path.basename(command[0])
                    self.assertEqual(process.returncode, 1)
                    self.assertTrue(process.stderr.endswith(f"{name}: the standard output cannot be written\n"), process.stderr)

    def test_do_not_hide_another_status(self):
        bad = self.write("bad.xml", "<html/>")
        for command in (["info", bad, SAMPLES / "winds.musicxml"], hiding(bad, SAMPLES / "winds.musicxml", "--dry-run")):
            for output in (">&-", ">/dev/full"):
                process = subprocess.run(["bash", "-c", f'exec "$@" {output}', "bash", PROGRAM, *map(str, command)],
                                         stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60)
                self.assertEqual(process.returncode, 2, process.stderr)

    def test_have_their_results_written(self):
        path = self.write("a.musicxml", score())
        subprocess.run(["bash", "-c", 'exec "$@" >&-', "bash", PROGRAM, *map(str, hiding(path, "--in-place"))], capture_output=True)
        self.assertEqual(path.read_text(), score(HIDDEN_NOTE))


if __name__ == "__main__":
    unittest.main()
