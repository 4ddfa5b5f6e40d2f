"""The help and the manual pages: both explain the same in the same words, and programs that show manual pages take them."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest
from email.utils import parsedate_to_datetime

from brvhost import COMMANDS, Case, brvhost, options_in_help

SHARE = pathlib.Path(os.environ["BRV_SHARE"])
MANUAL = SHARE / "man/man1"
DOCUMENTS = os.environ["BRVHOST_DOCS"]
PAGES = ["brvhost", *(f"brvhost-{command}" for command in COMMANDS)]

# The line that `apropos` shows of the program, and of each command; its exit statuses, and the commands that its page refers to.
LINE = "runs extensions of the Brevix music-notation application on MusicXML scores"
DOCUMENTED = {
    "list": ("lists the extensions that are installed", "0 1 2 3 130", []),
    "items": ("lists the menu items of an extension", "0 1 2 3 130", ["list"]),
    "info": ("reports what each score holds", "0 1 2 130", []),
    "run": ("runs one menu item of an extension on each score", "0 1 2 3 130", ["list", "items", "info", "calls"]),
    "check": ("checks extensions against the calling convention", "0 1 2 3 130", ["list", "run"]),
    "fuzz": ("plays random rounds with an extension", "0 1 2 3 130", ["list", "run"]),
    "calls": ("lists the functions that an extension can ask its host for", "0 1 2 130", []),
    "new": ("makes the folder of a new extension in the working folder", "0 1 2 130", ["check"]),
    "help": ("explains a command", "0 1 2 130", []),
}


class Table(Case):
    def test_has_each_command(self):
        self.assertEqual(list(DOCUMENTED), COMMANDS, "DOCUMENTED has a line for each command of brvhost.py's COMMANDS")


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

    def test_of_the_program_has_the_first_clause_about_each_command(self):
        section = re.search(r"^Commands:\n((?: .*\n)+)", self.succeeds(brvhost("--help")).stdout, re.MULTILINE)[1]
        self.assertEqual(section.split(), [word for command, (line, _, _) in DOCUMENTED.items()
                                           for word in (command, *line.capitalize().split())])

    def test_names_the_other_ways_to_it(self):
        for way in ("`brvhost help run`", "`brvhost run --help`", "`man brvhost-run`"):
            self.assertIn(way, brvhost("--help").stdout)

    def test_fits_into_80_columns(self):
        for command in ([], *([command] for command in COMMANDS)):
            text = self.succeeds(brvhost(*command, "--help")).stdout
            self.assertEqual([line for line in text.splitlines() if len(line) > 80], [])
            self.assertNotRegex(text, r" \n|\n\n\n|^\n|\n\n$")

    def test_lists_the_statuses_of_each_command(self):
        for command, (_, listed, _) in DOCUMENTED.items():
            text = brvhost(command, "--help").stdout
            section = re.search(r"^EXIT STATUS\n((?: .*\n)+)", text, re.MULTILINE)[1]
            self.assertEqual(" ".join(re.findall(r"^  (\d+)  ", section, re.MULTILINE)), listed)

    def test_names_the_version(self):
        build = r"\d+\.g[0-9a-f]{7,}(\.dirty)?|unknown"
        self.assertRegex(self.succeeds(brvhost("--version")).stdout, rf"^brvhost \d+\.\d+\.\d+(\+({build}))?\n$")


class Documents(Case):
    def write_documents(self, *arguments):
        process = subprocess.run([DOCUMENTS, *arguments], capture_output=True, text=True)
        return process.returncode, process.stdout, process.stderr

    def test_are_those_of_the_build(self):
        share = self.folder / "share"
        self.assertEqual(self.write_documents(share), (0, "", ""))
        documents, built = ({path.relative_to(folder).as_posix(): path.read_text() for path in folder.rglob("*") if path.is_file()}
                            for folder in (share, SHARE))
        self.assertEqual(documents, built)
        self.assertEqual(sorted(documents), sorted(["bash-completion/completions/brvhost", "zsh/site-functions/_brvhost",
                                                    *(f"man/man1/{page}.1" for page in PAGES)]))

    def test_go_only_into_a_new_folder(self):
        kept = self.write("kept", "")
        self.assertEqual(self.write_documents(self.folder), (1, "", f"brvhost-docs: {self.folder}: is there already, and stays as it is\n"))
        self.assertEqual(list(self.folder.iterdir()), [kept])
        self.assertEqual(self.write_documents(kept / "share"),
                         (1, "", f"brvhost-docs: {kept}/share: cannot make the folder: Not a directory\n"))

    def test_need_one_folder(self):
        for names in ((), ("a", "b")):
            self.assertEqual(self.write_documents(*names), (2, "", "usage: brvhost-docs FOLDER\n"))


def formatted(page, width):
    """The lines of a page as a terminal of that many columns shows it, without the first and the last, which name the page."""
    process = subprocess.run(["groff", "-man", "-Tascii", "-P-cbou", f"-rLL={width}n", MANUAL / f"{page}.1"], capture_output=True, text=True,
                             check=True)
    return [line for line in process.stdout.splitlines() if line][1:-1]


def words_of(lines):
    return " ".join(lines).replace("`", "").split()


def explained_in_help(*command):
    """The words of a manual page, as far as the help has them: all from its SYNOPSIS on, but for SEE ALSO."""
    lines = brvhost(*command, "--help").stdout.splitlines()
    usage = next(i for i, line in enumerate(lines) if line.startswith("Usage: "))
    rest = [line.removesuffix(":").replace("Arguments", "ARGUMENTS").replace("Options", "OPTIONS") if line[-1:] == ":" and line[0] != " "
            else line for line in lines[usage + 1:]]
    return words_of(["SYNOPSIS", lines[usage].removeprefix("Usage: "), "DESCRIPTION", *lines[:usage], *rest])


@unittest.skipUnless(shutil.which("groff"), "no groff")
class FormattedManual(Case):
    # No line of a page is that long, so that no word is broken.
    WIDTH = 5000

    def test_of_a_command_has_the_words_of_its_help(self):
        for command, (line, _, others) in DOCUMENTED.items():
            with self.subTest(command):
                page = f"brvhost-{command}"
                references = ["brvhost", *(f"brvhost-{other}" for other in others)]
                expected = ["NAME", page, "-", *line.split(), *explained_in_help(command), "SEE", "ALSO",
                            *", ".join(f"{reference}(1)" for reference in references).split()]
                self.assertEqual(words_of(formatted(page, self.WIDTH)), expected)

    def test_of_the_program_names_those_of_the_commands(self):
        lines = formatted("brvhost", self.WIDTH)
        commands = lines[lines.index("COMMANDS") + 1:lines.index("MORE HELP")]
        expected = []
        for command, (line, _, _) in DOCUMENTED.items():
            expected += [f"brvhost-{command}(1)", line.capitalize() + "."]
        self.assertEqual([line.strip() for line in commands], expected)
        self.assertEqual(words_of(lines[lines.index("SEE ALSO") + 1:]), ", ".join(f"{page}(1)" for page in PAGES[1:]).split())

    def test_of_the_program_has_the_words_of_the_help(self):
        """But for what it says of the commands, and where the bundle is."""
        lines = formatted("brvhost", self.WIDTH)
        words = words_of([*lines[:lines.index("COMMANDS")], *lines[lines.index("MORE HELP"):lines.index("FILES")]])
        help_words = explained_in_help()
        commands, more = help_words.index("Commands"), help_words.index("MORE")
        self.assertEqual(words, ["NAME", "brvhost", "-", *LINE.split(), *help_words[:commands], *help_words[more:]])

    def test_fills_its_paragraphs(self):
        for width in (60, 100):
            lines = formatted("brvhost-run", width)
            longest = max(len(line) for line in lines if "brvhost" not in line)
            self.assertIn(longest, range(width - 8, width + 1))


class Manual(Case):
    def accepts(self, *command):
        """A program that shows manual pages has nothing to report on any."""
        if not shutil.which(command[0]):
            self.skipTest(f"no {command[0]}")
        for page in PAGES:
            process = subprocess.run([*command, MANUAL / f"{page}.1"], capture_output=True, text=True, env={**os.environ, "MANWIDTH": "80"})
            self.assertEqual((process.returncode, process.stderr), (0, ""), page)
            yield process.stdout

    def test_has_no_warning_from_groff(self):
        self.assertEqual(len(list(self.accepts("groff", "-man", "-Tutf8", "-ww"))), len(PAGES))

    def test_has_no_warning_from_man(self):
        self.assertEqual(len(list(self.accepts("man", "--warnings", "-E", "UTF-8", "-Tutf8", "-Z", "-l"))), len(PAGES))

    def test_has_no_warning_from_mandoc(self):
        self.assertEqual(list(self.accepts("mandoc", "-T", "lint")), [""] * len(PAGES))

    @unittest.skipUnless(shutil.which("man"), "no man")
    def test_is_found_by_the_words_of_a_command_line(self):
        for command in COMMANDS:
            found = subprocess.run(["man", "-M", SHARE / "man", "-w", "brvhost", command], capture_output=True, text=True)
            self.assertEqual(found.stdout, f"{MANUAL}/brvhost-{command}.1\n")

    def test_keeps_what_a_shell_is_given(self):
        """Neither quotation marks nor dashes are those of typographers, which a shell would not understand."""
        text = (MANUAL / "brvhost-run.1").read_text()
        self.assertIn(r"find scores \-name \(aq*.mxl\(aq \-mtime \-1 \-print0 |", text)
        for page in PAGES:
            _, after_title = (MANUAL / f"{page}.1").read_text().split("\n", 1)
            self.assertNotRegex(after_title, r"(?<!\\)-|['`^~]")

    def test_names_the_day_of_the_release_and_the_version(self):
        changelog = (pathlib.Path(os.environ["BRV_SOURCE"]) / "debian/changelog").read_text()
        day = parsedate_to_datetime(re.search(r"^ -- .*>  (.*)$", changelog, re.MULTILINE)[1]).date()
        version = brvhost("--version").stdout.strip()
        for page in PAGES:
            title, *_ = (MANUAL / f"{page}.1").read_text().splitlines()
            self.assertEqual(title, f'.TH {page.upper()} 1 {day} "{version}" "User commands"')


if __name__ == "__main__":
    unittest.main()
