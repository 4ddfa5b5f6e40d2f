"""The completions: they hold every option, and shells complete with them."""

import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import time
import unittest

from brvhost import COMMANDS, Case, LEGER_LINES, PROGRAM, brvhost, options_in_help

SHARE = pathlib.Path(os.environ["BRV_SHARE"])
BASH = SHARE / "bash-completion/completions/brvhost"
ZSH = SHARE / "zsh/site-functions/_brvhost"

# What is completed is printed; the completions themselves get an answer.
SHOW = 'brvhost() { if [ "$1" = list ]; then command brvhost list; else printf "<%s>" "$@"; echo "|end"; fi; }'
START = {
    "bash": (["bash", "--norc", "--noprofile", "-i"], f"source {BASH}"),
    "zsh": (["zsh", "-f", "-i"], f"fpath=({ZSH.parent} $fpath); autoload -Uz compinit; compinit -u -D"),
}


class Shell:
    """A shell on a terminal of its own."""

    def __init__(self, name, folder, bundles):
        command, load = START[name]
        programs = folder / "programs"
        programs.mkdir()
        (programs / "brvhost").symlink_to(pathlib.Path(PROGRAM).resolve())
        environment = {"PATH": f"{programs}:{os.environ['PATH']}", "HOME": str(folder), "TERM": "dumb", "LANGUAGE": "en",
                       "BRVHOST_PATH": str(bundles), "PS1": "", "HISTFILE": ""}
        self.controller, terminal = pty.openpty()
        self.process = subprocess.Popen(command, stdin=terminal, stdout=terminal, stderr=terminal, cwd=folder / "work",
                                        env=environment, start_new_session=True)
        os.close(terminal)
        self.text = ""
        self.type(f"{load}; {SHOW}; printf 'rea%s\\n' dy\n")
        self.wait_for("ready")

    def type(self, text):
        os.write(self.controller, text.encode())

    def wait_for(self, wanted):
        deadline = time.monotonic() + 60
        while wanted not in self.text:
            if time.monotonic() > deadline or not select.select([self.controller], [], [], 60)[0]:
                raise AssertionError(f"no {wanted} in {self.text!r}")
            self.text += os.read(self.controller, 10000).decode(errors="replace")
        text, self.text = self.text, ""
        return text

    def complete(self, line):
        """The arguments of brvhost after the line is completed at its end."""
        self.type(f"brvhost {line}\t\n")
        return re.findall(r"<([^>]*)>", self.wait_for("|end").rpartition("\r\n<")[2].join(["<", ""]))

    def close(self):
        self.process.kill()
        self.process.wait()
        os.close(self.controller)


class Completion:
    """What both shells do."""

    def setUp(self):
        super().setUp()
        if not shutil.which(self.SHELL):
            self.skipTest(f"no {self.SHELL}")
        for folder in ("work/with blank", "bundles"):
            (self.folder / folder).mkdir(parents=True)
        for name in ("one score.musicxml", "two.mxl", "twenty.txt", "it's.xml", "with blank/inner one.xml"):
            self.write(f"work/{name}", "")
        shutil.copytree(LEGER_LINES, self.folder / "bundles/LegerLines.bundle")
        shutil.copytree(LEGER_LINES, self.folder / "bundles/My Tool.bundle")
        self.shell = Shell(self.SHELL, self.folder, self.folder / "bundles")
        self.addCleanup(self.shell.close)

    def completes(self, line, *arguments):
        self.assertEqual(self.shell.complete(line), list(arguments), line)

    def test_has_commands_and_options(self):
        self.completes("chec", "check")
        self.completes("help chec", "help", "check")
        self.completes("run --recu", "run", "--recursive")
        self.completes("info --files", "info", "--files-from")

    def test_has_scores_only_where_they_are_taken(self):
        for line in ("calls tw", "new tw", "help tw", "items tw"):
            self.completes(line, *line.split())

    def test_has_names_with_blanks(self):
        self.completes("info one", "info", "one score.musicxml")
        self.completes("info tw", "info", "two.mxl")
        self.completes("info it", "info", "it's.xml")
        self.completes("info one\\ sc", "info", "one score.musicxml")
        self.completes("info with\\ blank/in", "info", "with blank/inner one.xml")
        self.completes("info --files-from twen", "info", "--files-from", "twenty.txt")
        self.completes("run LegerLines --item 0 one", "run", "LegerLines", "--item", "0", "one score.musicxml")

    def test_has_names_of_folders_with_blanks(self):
        self.assertEqual([text.rstrip("/") for text in self.shell.complete("run --out-dir wi")], ["run", "--out-dir", "with blank"])

    def test_has_the_names_of_installed_extensions(self):
        for command in ("items", "run", "check"):
            self.completes(f"{command} Leg", command, "LegerLines")
            self.completes(f"{command} My", command, "My Tool")


class Bash(Completion, Case):
    SHELL = "bash"


class Zsh(Completion, Case):
    SHELL = "zsh"


class BashFunction(Case):
    def complete(self, *words):
        script = f'source {BASH}; COMP_WORDS=({" ".join(words)}); COMP_CWORD={len(words) - 1}; compopt() {{ :; }}; ' \
                 'brvhost() { :; }; _brvhost; printf "%s\\n" "${COMPREPLY[@]}"'
        # Patterns are switched on first: the completion uses them, and bash reads the whole line before it runs any of it.
        process = subprocess.run(["bash", "-O", "extglob", "-c", script], capture_output=True, text=True, cwd=self.folder)
        self.assertEqual(process.stderr, "")
        return set(process.stdout.splitlines())

    def test_completes_commands(self):
        self.assertEqual(self.complete("brvhost", "i"), {"items", "info"})

    def test_completes_options(self):
        self.assertEqual(self.complete("brvhost", "run", "--st"), {"--staves", "--start-at"})
        for command in COMMANDS:
            self.assertLessEqual(options_in_help(command), self.complete("brvhost", command, "--"))

    def test_completes_what_is_explained(self):
        self.assertEqual(self.complete("brvhost", "help", '""'), set(COMMANDS))

    def test_completes_scores_and_folders(self):
        for name in ("a.mxl", "b.musicxml", "c.txt"):
            self.write(name, "")
        (self.folder / "d").mkdir()
        self.assertEqual(self.complete("brvhost", "info", '""'), {"a.mxl", "b.musicxml", "d"})
        self.assertEqual(self.complete("brvhost", "run", "--out-dir", '""'), {"d"})
        for flag in ("--no-confine", "--trace"):
            self.assertEqual(self.complete("brvhost", "check", flag, '""'), {"d"})
        self.assertEqual(self.complete("brvhost", "run", "--item", '""'), {""})


class ZshFunction(Case):
    def test_holds_every_option(self):
        text = ZSH.read_text()
        for command in COMMANDS:
            for option in options_in_help(command):
                self.assertIn(f"'{option}[", text)

    def test_explains_each_command_as_the_help_does(self):
        section = re.search(r"^Commands:\n((?: .*\n)+)", self.succeeds(brvhost("--help")).stdout, re.MULTILINE)[1]
        explained = re.findall(r"^  (\w+) +(.*(?:\n {4}.*)*)", section, re.MULTILINE)
        self.assertEqual([name for name, _ in explained], COMMANDS)
        listed = re.search(r"commands=\(\n(.*?)\n  \)", ZSH.read_text(), re.DOTALL)[1]
        self.assertEqual(listed.split("\n"), [f"    '{name}:{' '.join(text.split())}'" for name, text in explained])

    @unittest.skipUnless(shutil.which("zsh"), "no zsh")
    def test_is_good_zsh(self):
        self.succeeds(subprocess.run(["zsh", "-n", ZSH], capture_output=True, text=True))


if __name__ == "__main__":
    unittest.main()
