"""Scores from the standard input, from folders and from lists; results on the standard output and in folders."""

import os
import pty
import subprocess
import unittest
import zipfile

from brvhost import (Case, HIDDEN_NOTE, LEGER_LINES, PROGRAM, brvhost, hiding, score)


def would_change(*scores):
    return "".join(f"{name}: 1 of 1 entries would change\n" for name in scores)


class Anywhere(Case):
    def brvhost(self, *arguments, input=b"", stdout=subprocess.PIPE):
        """The finished process, its output as bytes where it goes to a pipe, its errors as text."""
        process = subprocess.run([PROGRAM, *map(str, arguments)], input=input, stdout=stdout, stderr=subprocess.PIPE,
                                 timeout=300, env={**os.environ, "LANGUAGE": "en"}, cwd=self.folder)
        process.stderr = process.stderr.decode()
        return process

    def prints(self, process, out, errors="", status=0):
        self.assertEqual((process.returncode, process.stdout.decode(), process.stderr), (status, out, errors))

    def hides(self, *arguments, **options):
        return self.brvhost(*hiding(*arguments), **options)

    def put(self, *names, content=score()):
        for name in names:
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            self.write(name, content)


class StandardInput(Anywhere):
    def test_is_a_score(self):
        out = self.brvhost("info", "-", input=score().encode()).stdout.decode()
        self.assertTrue(out.startswith("the standard input\n  parts     1\n"), out)

    def test_is_a_compressed_score_by_its_content(self):
        content = self.compressed_score().read_bytes()
        self.prints(self.hides("-", "-o", "out.mxl", input=content),
                    "the standard input: 1 of 1 entries changed, written to out.mxl\n")
        with zipfile.ZipFile(self.folder / "out.mxl") as archive:
            self.assertEqual(archive.read("x.xml").decode(), score(HIDDEN_NOTE))
        self.prints(self.hides("-", "-o", "out.xml", input=content), "",
                    "brvhost: out.xml: the score is compressed, and so is the result: name it .mxl\n", 1)

    def test_is_named_where_something_is_wrong_with_it(self):
        for command in (["info", "-"], hiding("-", "--dry-run")):
            self.prints(self.brvhost(*command, input=b"<html/>"), "",
                        "brvhost: the standard input:1:1: not MusicXML: the root element is <html>\n", 2)
        self.prints(self.brvhost("info", "-", input=b""), "", "brvhost: the standard input: the file is empty\n", 2)

    def test_is_one_of_several_scores(self):
        self.put("a.xml")
        self.prints(self.hides("-", "a.xml", "--dry-run", input=score().encode()),
                    would_change("the standard input", "a.xml") + "2 scores: 2 would change, 0 unchanged, 0 failed\n")
        process = self.hides("-", "a.xml", "--dry-run", input=b"<html/>")
        self.prints(process, would_change("a.xml") + "2 scores: 1 would change, 0 unchanged, 1 failed\n",
                    "brvhost: the standard input:1:1: not MusicXML: the root element is <html>\n", 2)

    def test_may_be_a_file(self):
        self.put("a.xml")
        with open(self.folder / "a.xml") as file:
            process = subprocess.run([PROGRAM, *map(str, hiding("-", "-o", "-"))], stdin=file, capture_output=True, text=True)
        self.assertEqual(process.stdout, score(HIDDEN_NOTE))

    def test_is_not_a_terminal(self):
        _, terminal = pty.openpty()
        process = subprocess.run([PROGRAM, "info", "-"], stdin=terminal, capture_output=True, text=True, timeout=60)
        self.assertEqual((process.returncode, process.stderr), (2, "brvhost: the standard input: is a terminal\n"))

    def test_has_neither_a_place_nor_a_name(self):
        for option in (["--in-place"], ["--out-dir", "out"]):
            self.prints(self.hides("-", *option, input=score().encode()), "",
                        f"brvhost: {option[0]}: is not for the standard input; --output and --dry-run are\n", 2)
        self.assertEqual(os.listdir(self.folder), [])

    def test_is_read_once(self):
        message = "brvhost: -: the standard input is asked for twice; it can be read once\n"
        for arguments in (["-", "-"], ["-", "--files-from", "-"]):
            self.prints(self.brvhost("info", *arguments, input=score().encode()), "", message, 2)

    def test_is_no_file_to_write_to_without_being_asked_to(self):
        self.put("a.xml")
        with open(self.folder / "a.xml") as file:
            process = subprocess.run([PROGRAM, *map(str, hiding("-", "-o", self.folder / "a.xml"))], stdin=file,
                                     capture_output=True, text=True)
        message = f"brvhost: {self.folder}/a.xml: is the score the standard input; only --in-place writes to a score\n"
        self.assertEqual((process.returncode, process.stderr), (2, message))


class StandardOutput(Anywhere):
    WRITTEN = "a.xml: 1 of 1 entries changed, written to the standard output\n"

    def test_has_the_result_alone(self):
        self.put("a.xml")
        self.prints(self.hides("a.xml", "-o", "-"), score(HIDDEN_NOTE), self.WRITTEN)
        self.prints(self.hides("-", "-o", "-", input=score().encode()), score(HIDDEN_NOTE),
                    "the standard input: 1 of 1 entries changed, written to the standard output\n")

    def test_has_a_result_that_is_unchanged(self):
        hidden = score(HIDDEN_NOTE)
        process = self.hides("-", "-o", "-", input=hidden.encode())
        self.assertEqual((process.returncode, process.stdout.decode()), (0, hidden))
        self.assertTrue(process.stderr.endswith("the standard input: 0 of 1 entries changed, written to the standard output\n"))

    def test_has_a_compressed_result(self):
        self.compressed_score()
        self.write("out.mxl", self.hides("score.mxl", "-o", "-").stdout)
        with zipfile.ZipFile(self.folder / "out.mxl") as archive:
            self.assertEqual(archive.read("x.xml").decode(), score(HIDDEN_NOTE))

    def test_has_no_compressed_result_on_a_terminal(self):
        controller, terminal = pty.openpty()
        self.compressed_score()
        process = self.hides("score.mxl", "-o", "-", stdout=terminal)
        self.assertEqual((process.returncode, process.stderr),
                         (1, "brvhost: the standard output: is a terminal; a compressed score goes to a file or a pipe\n"))
        self.put("a.xml")
        self.assertEqual(self.hides("a.xml", "-o", "-", stdout=terminal).stderr, self.WRITTEN)
        self.assertEqual(os.read(controller, 10000).decode(), score(HIDDEN_NOTE))

    def test_may_be_closed_or_full(self):
        self.put("a.xml")
        with open("/dev/full", "w") as full:
            process = self.hides("a.xml", "-o", "-", stdout=full)
        self.assertEqual((process.returncode, process.stderr),
                         (1, "brvhost: the standard output: cannot be written: No space left on device\n"))

    def test_is_no_score(self):
        self.put("a.xml")
        for mode in ("r+", "a"):
            with open(self.folder / "a.xml", mode) as file:
                process = self.hides("a.xml", "-o", "-", stdout=file)
            self.assertEqual((process.returncode, process.stderr),
                             (2, "brvhost: the standard output: is the score a.xml; only --in-place writes to a score\n"))
        self.assertEqual((self.folder / "a.xml").read_text(), score())

    def test_takes_one_result(self):
        self.put("a.xml", "b.xml")
        self.prints(self.hides("a.xml", "b.xml", "-o", "-"), "",
                    "brvhost: --output is for a single score; --in-place and --out-dir take several\n", 2)


class Folders(Anywhere):
    def info(self, *arguments):
        """The names of the scores that are reported."""
        process = self.brvhost("info", *arguments)
        return [line for line in process.stdout.decode().splitlines() if not line.startswith(" ")], process

    def hidden(self, root=""):
        return sorted(str(path.relative_to(self.folder)) for path in (self.folder / root).rglob("*")
                      if path.is_file() and path.read_text() == score(HIDDEN_NOTE))

    def test_need_an_option(self):
        self.put("scores/a.xml", "b.xml")
        names, process = self.info("scores", "b.xml")
        self.assertEqual((names, process.returncode, process.stderr),
                         (["b.xml"], 2, "brvhost: scores: is a folder; --recursive takes the scores in it\n"))

    def test_have_their_scores_taken_in_the_order_of_their_names(self):
        self.put("s/b.musicxml", "s/a/z.MXL", "s/a/y.xml", "s/c.XML", "s/c.txt", "s/d.mxl/e.musicxml", "s/xml")
        names, _ = self.info("-r", "s/")
        self.assertEqual(names, ["s/a/y.xml", "s/a/z.MXL", "s/b.musicxml", "s/c.XML", "s/d.mxl/e.musicxml"])
        os.chdir(self.folder / "s")
        self.addCleanup(os.chdir, "/")
        self.folder = self.folder / "s"
        self.assertEqual(self.info("--recursive", "a", ".", "b.musicxml")[0], ["a/y.xml", "a/z.MXL", "./c.XML", "./d.mxl/e.musicxml", "b.musicxml"])

    def test_have_what_begins_with_a_dot_passed_over(self):
        self.put("s/.git/a.xml", "s/._b.xml", "s/b.xml")
        self.assertEqual(self.info("-r", "s")[0], ["s/b.xml"])
        self.assertEqual(self.info("-r", "s/.git")[0], ["s/.git/a.xml"])

    def test_have_other_documents_passed_over(self):
        self.put("s/a.xml", content=score().encode("utf-16"))
        self.put("s/META-INF/container.xml", content="<?xml version='1.0'?>\n<!-- no score --><container/>")
        self.put("s/b.musicxml", content="<container/>")
        self.put("s/c.xml", content="")
        self.put("s/d.xml", content="<score-timewise")
        names, process = self.info("-r", "s")
        self.assertEqual(names, ["s/a.xml"])
        self.assertEqual([line.split(":")[1] for line in process.stderr.splitlines()], [" s/b.musicxml", " s/c.xml", " s/d.xml"])

    def test_have_links_to_files_followed_and_links_to_folders_not(self):
        self.put("s/a.xml", "other/b.xml")
        (self.folder / "s/link.xml").symlink_to("a.xml")
        (self.folder / "s/other.xml").symlink_to("../other/b.xml")
        (self.folder / "s/folder").symlink_to("../other")
        (self.folder / "s/up").symlink_to("..")
        (self.folder / "s/broken.xml").symlink_to("nowhere")
        os.link(self.folder / "s/a.xml", self.folder / "s/hard.xml")
        os.mkfifo(self.folder / "s/pipe.xml")
        self.assertEqual(self.info("-r", "s")[0], ["s/a.xml", "s/other.xml"])
        self.assertEqual(self.info("-r", "s/folder")[0], ["s/folder/b.xml"])

    def test_keep_their_tree_in_a_folder_for_results(self):
        self.put("s/a.xml", "s/deep/er/a.xml", "s/deep/b.xml", "a.xml")
        self.assertEqual(self.hides("-r", "s", "--out-dir", "out").returncode, 0)
        results = ["out/a.xml", "out/deep/b.xml", "out/deep/er/a.xml"]
        self.assertEqual(self.hidden(), results)
        self.prints(self.hides("-r", "s", "a.xml", "--out-dir", "new"), "",
                    "brvhost: new/a.xml: two of the results would be this file\n", 2)

    def test_for_results_are_not_searched_for_scores(self):
        self.put("a.xml")
        for _ in range(2):
            self.prints(self.hides("-r", ".", "--out-dir", "out"), "./a.xml: 1 of 1 entries changed, written to out/a.xml\n")
        self.prints(self.hides("-r", ".", "--out-dir", "."), "",
                    "brvhost: ./a.xml: is one of the scores; only --in-place writes to a score\n", 2)

    def test_without_scores_are_bad_usage(self):
        for folder in ("s", "t"):
            (self.folder / folder).mkdir()
        self.prints(self.brvhost("info", "-r", "s"), "", "brvhost: s: no file in it is a score named .musicxml, .xml or .mxl\n", 2)
        self.prints(self.hides("-r", "s", "t", "--in-place"), "",
                    "brvhost: s: no file in it, or in the others, is a score named .musicxml, .xml or .mxl\n", 2)

    @unittest.skipIf(os.geteuid() == 0 and not os.path.exists("/usr/bin/setpriv"), "root may read all folders")
    def test_that_cannot_be_read_are_reported(self):
        self.put("s/a/x.xml", "s/b/x.xml")
        for folder in (self.folder, self.folder / "s", self.folder / "s/b"):
            folder.chmod(0o755)
        (self.folder / "s/a").chmod(0)
        user = ["setpriv", "--reuid=65534", "--clear-groups"] if os.geteuid() == 0 else []
        process = subprocess.run([*user, PROGRAM, "info", "-r", "s"], capture_output=True, text=True, cwd=self.folder)
        (self.folder / "s/a").chmod(0o755)
        self.assertEqual((process.returncode, process.stderr), (2, "brvhost: s/a: Permission denied\n"))
        self.assertTrue(process.stdout.startswith("s/b/x.xml\n"))


class Lists(Anywhere):
    def test_name_scores(self):
        self.put("a.xml", "with blank.xml", "-", "-b.xml")
        self.write("list", "a.xml\nwith blank.xml\n\n-\n-b.xml")
        dry = would_change("a.xml", "with blank.xml", "./-", "-b.xml") + "4 scores: 4 would change, 0 unchanged, 0 failed\n"
        self.prints(self.hides("--files-from", "list", "--dry-run"), dry)
        self.prints(self.hides("--files-from", "-", "--dry-run", input=(self.folder / "list").read_bytes()), dry)
        self.prints(self.hides("--files-from", "list", "--in-place"), "4 scores: 4 changed, 0 unchanged, 0 failed\n")
        self.assertEqual((self.folder / "-").read_text(), score(HIDDEN_NOTE))

    def test_name_scores_with_zeros_between_them(self):
        self.put("a\nb.xml", "c.xml")
        for option in ("-0", "--null"):
            for names, shown in ((b"a\nb.xml\0c.xml", ("a b.xml", "c.xml")), (b"c.xml\0a\nb.xml\0", ("c.xml", "a b.xml"))):
                self.prints(self.hides("--files-from", "-", option, "--dry-run", input=names),
                            would_change(*shown) + "2 scores: 2 would change, 0 unchanged, 0 failed\n")

    def test_may_be_written_on_windows(self):
        self.put("a.xml", "b.xml")
        self.prints(self.hides("--files-from", "-", "--dry-run", input=b"\xef\xbb\xbfa.xml\r\n\r\nb.xml\r\n"),
                    would_change("a.xml", "b.xml") + "2 scores: 2 would change, 0 unchanged, 0 failed\n")

    def test_take_each_name_as_it_is_where_zeros_are_between_them(self):
        name = "\ufeffa.xml\r"
        self.put(name)
        process = self.hides("--files-from", "-", "-0", "--in-place", input=name.encode())
        self.assertEqual((process.returncode, (self.folder / name).read_text()), (0, score(HIDDEN_NOTE)))

    def test_with_zeros_between_the_names_are_for_null(self):
        self.put("a.xml", "b.xml")
        message = "has a character 0 in it: --null takes names that end with one; a list in UTF-16 is not read\n"
        for names in (b"a.xml\0b.xml\0", "a.xml\nb.xml\n".encode("utf-16")):
            self.prints(self.hides("--files-from", "-", "--in-place", input=names), "", "brvhost: --files-from -: " + message, 2)
        self.assertEqual((self.folder / "a.xml").read_text(), score())

    def test_may_be_pipes(self):
        self.put("a.xml")
        os.mkfifo(self.folder / "pipe")
        writer = subprocess.Popen(["sh", "-c", "(echo a.xml; sleep 0.1; echo a.xml) > pipe"], cwd=self.folder)
        self.prints(self.hides("--files-from", "pipe", "--dry-run"),
                    would_change("a.xml", "a.xml") + "2 scores: 2 would change, 0 unchanged, 0 failed\n")
        self.assertEqual(writer.wait(), 0)

    def test_name_folders_too(self):
        self.put("s/a.xml", "b.xml", "c.xml")
        self.prints(self.hides("c.xml", "-r", "--files-from", "-", "--dry-run", input=b"s\nb.xml\n"),
                    would_change("c.xml", "s/a.xml", "b.xml") + "3 scores: 3 would change, 0 unchanged, 0 failed\n")

    def test_name_ten_thousand_scores(self):
        names = [f"{number}.xml" for number in range(10_000)]
        self.put(*names)
        for arguments in (["-r", "."], ["--files-from", "-"], names):
            process = self.brvhost("info", *arguments, input="\n".join(names).encode())
            self.assertEqual((process.returncode, process.stdout.count(b".xml\n")), (0, 10_000))

    def test_that_are_no_good_are_bad_usage(self):
        self.prints(self.brvhost("info", "--files-from", "none"), "", "brvhost: --files-from none: No such file or directory\n", 2)
        self.prints(self.brvhost("info", "--files-from", "-", input=b"\n\n"), "", "brvhost: --files-from -: names no score\n", 2)
        self.put("a.xml")
        self.prints(self.brvhost("info", "--files-from", "a.xml"), "", "brvhost: --files-from a.xml: is a score, not a list of scores\n", 2)
        self.prints(self.brvhost("info", "--files-from", "."), "", "brvhost: --files-from .: is a folder, not a list of scores\n", 2)
        self.prints(self.brvhost("info", "-0", "a.xml"), "", "brvhost: --null: is for --files-from\n", 2)

    def test_leave_nothing_undone_that_they_name_besides_what_is_missing(self):
        self.put("a.xml")
        self.prints(self.hides("--files-from", "-", "--in-place", input=b"none.xml\na.xml\n"),
                    "2 scores: 1 changed, 0 unchanged, 1 failed\n", "brvhost: none.xml: No such file or directory\n", 2)


if __name__ == "__main__":
    unittest.main()
