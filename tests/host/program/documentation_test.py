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
COMMANDS = ["list", "items", "info", "run", "check", "fuzz", "calls", "new"]


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
        self.assertEqual(len(options_in_help("run")), 29)

    def test_fits_into_80_columns(self):
        for command in ([], *([command] for command in COMMANDS)):
            text = self.succeeds(brvhost(*command, "--help")).stdout
            self.assertEqual([line for line in text.splitlines() if len(line) > 80], [])
            self.assertNotRegex(text, r" \n|\n\n\n|^\n|\n\n$")

    def test_lists_the_statuses_of_each_command(self):
        statuses = {"list": "0 1 2 3 130", "items": "0 1 2 3 130", "info": "0 1 2 130", "run": "0 1 2 3 130", "check": "0 1 2 3 130",
                    "fuzz": "0 1 2 3 130", "calls": "0 1 2 130", "new": "0 1 2 130"}
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
