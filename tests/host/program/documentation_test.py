"""The manual page and the completions: they hold every option, and the shells take them."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

from brvhost import COMMANDS, Case, brvhost, options_in_help

SHARE = pathlib.Path(os.environ["BRV_SHARE"])
MANUAL = SHARE / "man/man1/brvhost.1"
BASH = SHARE / "bash-completion/completions/brvhost"
ZSH = SHARE / "zsh/site-functions/_brvhost"
DOCUMENTS = os.environ["BRVHOST_DOCS"]


class Help(Case):
    def test_is_there_for_every_command(self):
        for command in COMMANDS:
            text = self.succeeds(brvhost(command, "--help")).stdout
            self.assertIn(f"Usage: brvhost {command}", text)
            self.assertIn("EXIT STATUS", text)
        self.assertEqual(len(options_in_help("run")), 29)

    def test_is_shown_by_the_command_help_too(self):
        for command in ([], *([command] for command in COMMANDS)):
            with self.subTest(command):
                process = self.succeeds(brvhost("help", *command))
                self.assertEqual((process.stdout, process.stderr), (brvhost(*command, "--help").stdout, ""))

    def test_on_a_command_that_there_is_not_is_refused_as_that_command_is(self):
        for name in ("rnu", "fly", "Info"):
            refused = self.fails(brvhost("help", name), 2)
            self.assertEqual((refused.stdout, refused.stderr), ("", brvhost(name).stderr))

    def test_on_several_commands_is_refused(self):
        refused = self.fails(brvhost("help", "run", "check"), 2)
        self.assertEqual(refused.stderr, "brvhost: check: is one argument too many; `brvhost help --help` explains what it takes\n")

    def test_names_the_other_ways_to_it(self):
        for way in ("`brvhost help run`", "`brvhost run --help`", "`man brvhost-run`"):
            self.assertIn(way, brvhost("--help").stdout)

    def test_fits_into_80_columns(self):
        for command in ([], *([command] for command in COMMANDS)):
            text = self.succeeds(brvhost(*command, "--help")).stdout
            self.assertEqual([line for line in text.splitlines() if len(line) > 80], [])
            self.assertNotRegex(text, r" \n|\n\n\n|^\n|\n\n$")

    def test_lists_the_statuses_of_each_command(self):
        statuses = {"list": "0 1 2 3 130", "items": "0 1 2 3 130", "info": "0 1 2 130", "run": "0 1 2 3 130", "check": "0 1 2 3 130",
                    "fuzz": "0 1 2 3 130", "calls": "0 1 2 130", "new": "0 1 2 130", "help": "0 1 2 130"}
        self.assertEqual(list(statuses), COMMANDS)
        for command, listed in statuses.items():
            text = brvhost(command, "--help").stdout
            section = re.search(r"^EXIT STATUS\n((?: .*\n)+)", text, re.MULTILINE)[1]
            self.assertEqual(" ".join(re.findall(r"^  (\d+)  ", section, re.MULTILINE)), listed)

    def test_names_the_version(self):
        build = r"\d+\.g[0-9a-f]{7,}(\.dirty)?|unknown"
        self.assertRegex(self.succeeds(brvhost("--version")).stdout, rf"^brvhost \d+\.\d+\.\d+(\+({build}))?\n$")


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

    @unittest.skipUnless(shutil.which("groff"), "no groff")
    def test_fills_its_paragraphs(self):
        for width in (60, 100):
            process = subprocess.run(["groff", "-man", "-Tascii", "-P-cbou", f"-rLL={width}n", MANUAL], capture_output=True, text=True)
            words = [line.split() for line in process.stdout.splitlines()]
            longest = max(len(line) for line in process.stdout.splitlines() if "brvhost" not in line)
            self.assertIn(longest, range(width - 8, width + 1))
            self.assertIn(["THE", "REGION"], words)
            self.assertNotIn("EXIT STATUS 0", process.stdout)


if __name__ == "__main__":
    unittest.main()
