"""The manual page and the completions: they hold every option, and the shells take them."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

from brvhost import Case, brvhost

SHARE = pathlib.Path(os.environ["BRV_SHARE"])
MANUAL = SHARE / "man/man1/brvhost.1"
BASH = SHARE / "bash-completion/completions/brvhost"
ZSH = SHARE / "zsh/site-functions/_brvhost"
DOCUMENTS = os.environ["BRVHOST_DOCS"]
COMMANDS = ["list", "items", "info", "run", "check"]


def options_in_help(command):
    """All long options that the help of a command mentions at the start of a line."""
    text = brvhost(command, "--help").stdout
    return set(re.findall(r"^ +(?:-\w, ?)?(--[\w-]+)", text, re.MULTILINE))


class Help(Case):
    def test_is_there_for_every_command(self):
        for command in COMMANDS:
            text = self.succeeds(brvhost(command, "--help")).stdout
            self.assertIn(f"Usage: brvhost {command}", text)
            self.assertIn("EXIT STATUS", text)
        self.assertEqual(len(options_in_help("run")), 27)

    def test_names_the_version(self):
        self.assertRegex(self.succeeds(brvhost("--version")).stdout, r"^brvhost \d+\.\d+\.\d+\n$")


class Documents(Case):
    def print(self, *names):
        process = subprocess.run([DOCUMENTS, *names], capture_output=True, text=True)
        return process.returncode, process.stdout, process.stderr

    def test_are_printed_each_by_its_name(self):
        for name, file in (("man", MANUAL), ("bash", BASH), ("zsh", ZSH)):
            self.assertEqual(self.print(name), (0, file.read_text(), ""))

    def test_need_one_name_that_is_known(self):
        for names in ((), ("fish",), ("man", "bash")):
            self.assertEqual(self.print(*names), (2, "", "usage: brvhost-docs man|bash|zsh\n"))


class Manual(Case):
    def test_holds_every_option(self):
        text = MANUAL.read_text().replace("\\-", "-")
        for command in COMMANDS:
            for option in options_in_help(command):
                self.assertIn(f"\\fB{option}\\fR", text)

    @unittest.skipUnless(shutil.which("groff"), "no groff")
    def test_is_good_roff(self):
        process = subprocess.run(["groff", "-man", "-Tascii", "-ww", MANUAL], capture_output=True, text=True)
        self.assertEqual((process.returncode, process.stderr), (0, ""))


class BashCompletion(Case):
    def complete(self, *words):
        script = f'source {BASH}; COMP_WORDS=({" ".join(words)}); COMP_CWORD={len(words) - 1}; compopt() {{ :; }}; ' \
                 '_brvhost; printf "%s\\n" "${COMPREPLY[@]}"'
        # Patterns are switched on first: the completion uses them, and bash reads the whole line before it runs any of it.
        process = subprocess.run(["bash", "-O", "extglob", "-c", script], capture_output=True, text=True, cwd=self.folder)
        self.assertEqual(process.stderr, "")
        return set(process.stdout.split())

    def test_completes_commands(self):
        self.assertEqual(self.complete("brvhost", "i"), {"items", "info"})

    def test_completes_options(self):
        self.assertEqual(self.complete("brvhost", "run", "--st"), {"--staves", "--start-at"})
        for command in COMMANDS:
            self.assertLessEqual(options_in_help(command), self.complete("brvhost", command, "--"))

    def test_completes_scores_and_folders(self):
        for name in ("a.mxl", "b.musicxml", "c.txt"):
            self.write(name, "")
        (self.folder / "d").mkdir()
        self.assertEqual(self.complete("brvhost", "info", '""'), {"a.mxl", "b.musicxml", "d"})
        self.assertEqual(self.complete("brvhost", "run", "--out-dir", '""'), {"d"})


class ZshCompletion(Case):
    def test_holds_every_option(self):
        text = ZSH.read_text()
        for command in COMMANDS:
            for option in options_in_help(command):
                self.assertIn(f"'{option}[", text)

    @unittest.skipUnless(shutil.which("zsh"), "no zsh")
    def test_is_good_zsh(self):
        self.succeeds(subprocess.run(["zsh", "-n", ZSH], capture_output=True, text=True))


if __name__ == "__main__":
    unittest.main()
