"""What brvhost prints for programs: lines of JSON that keep to their schemas, whatever becomes of a score."""

import base64
import fcntl
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import unittest

from brvhost import (COMMANDS, EXECUTABLE_FOLDER, HIDDEN_NOTE, HIDE, LEGER_LINES, NOTE, PROGRAM, SAMPLES, SANITIZED, SHOW,
                     brvhost, faulty, hiding, options_in_help, run, score)
from jsoncase import DOCUMENTS, JsonCase
from misbehaviour import MISBEHAVES, misbehaviour

# Of notes that take more than 30 MB.
LARGE = score("<note/>" * 3_000_000)
MEETS_THE_BOUND = unittest.skipIf(SANITIZED, "the sanitizer ends the program when memory runs out")
ONE_HIDDEN = {"counts": {"entries": 1, "notes": 1, "chords": 0, "rests": 0, "changed": 1, "hidden": 1}}
WHOLE = [{"staves": {"first": 1, "last": 1}, "measures": {"first": 1, "last": 1}, "layers": None, "startAt": "0",
          "endAt": None}]


class Run(JsonCase):
    def setUp(self):
        super().setUp()
        self.score = self.write("a.musicxml", score())
        self.out = self.folder / "out.musicxml"

    def line(self, status, retry=False, target=None, **more):
        return {"score": str(self.score), "member": None, "target": str(target or self.score), "status": status,
                "retry": retry, "counts": None, "region": WHOLE, "warnings": [], "missingFunctions": [],
                "error": None, **more}

    def in_place(self, *options, item=HIDE, **more):
        return run(item, "--all", "--in-place", "--json", *options, self.score, **more)

    def test_prints_what_was_written_and_keeps_all_else_off_the_standard_output(self):
        process = self.succeeds(run(HIDE, "--all", "--json", self.score, "-o", self.out))
        self.assertEqual(self.one(process), self.line("written", target=self.out, **ONE_HIDDEN))
        self.assertEqual(process.stderr, f"{self.score}: 1 of 1 entries changed, written to {self.out}\n")

    def test_prints_what_was_left_as_it_was(self):
        process = self.succeeds(self.in_place(item=SHOW))
        counts = {"entries": 1, "notes": 1, "chords": 0, "rests": 0, "changed": 0, "hidden": 0}
        self.assertEqual(self.one(process), self.line("unchanged", counts=counts))
        self.assertIn("No ledger lines were shown", process.stderr)

    def test_prints_what_would_change(self):
        process = self.succeeds(run(HIDE, "--all", "--dry-run", "--json", "--list", self.score))
        changes = [{"line": 1, "staff": 1, "measure": 1, "layer": 1, "position": "0", "hidden": True}]
        self.assertEqual(self.one(process), {**self.line("wouldChange", **ONE_HIDDEN), "target": None, "changes": changes})
        self.assertEqual(process.stderr, f"{self.score}: 1 of 1 entries would change\n")

    def test_prints_what_cannot_be_used(self):
        self.score.write_text("<x/>")
        process = self.in_place("--list")
        error = f"{self.score}:1:1: not MusicXML: the root element is <x>"
        self.assertEqual(self.one(process), self.line("badInput", region=None, error=error, changes=[]))
        self.fails(process, 2, f"brvhost: {error}\n")

    def test_prints_that_a_repetition_may_help_where_another_run_has_the_target(self):
        with open(self.score) as locked:
            fcntl.flock(locked, fcntl.LOCK_EX)
            process = self.in_place()
        error = f"{self.score}: another brvhost is working on it"
        self.assertEqual(self.one(process), self.line("failed", True, region=None, error=error))
        self.fails(process, 1, error)

    def test_prints_that_a_repetition_may_help_after_a_timeout(self):
        process = self.in_place("--timeout", 1, bundle=MISBEHAVES, environment=misbehaviour("BrevixExtensionInvoke", "hang"))
        error = f"{self.score}: the extension misbehaves did not end in BrevixExtensionInvoke within 1 second; nothing was written"
        self.assertEqual(self.one(process), self.line("failed", True, error=error))

    def test_prints_that_no_repetition_helps_where_there_is_no_such_folder(self):
        target = self.folder / "none" / "out.musicxml"
        process = run(HIDE, "--all", "--json", self.score, "-o", target)
        error = f"{target}: cannot write to the folder {target.parent}: No such file or directory"
        self.assertEqual(self.one(process), self.line("failed", target=target, error=error))

    def test_prints_that_no_repetition_helps_where_the_extension_is_at_fault(self):
        process = run(0, "--all", "--in-place", "--json", self.score, bundle=faulty("moves_entries"))
        line = self.one(process)
        self.assertEqual(line, self.line("failed", error=line["error"]))
        self.assertEqual(process.stderr, f"brvhost: {line['error']}\n")
        process = run(0, "--all", "--in-place", "--json", self.score, bundle=faulty("crashes_when_invoked"))
        line = self.one(process)
        self.assertEqual(line, self.line("failed", error=line["error"]))
        self.assertIn("crashed in BrevixExtensionInvoke", line["error"])

    @MEETS_THE_BOUND
    def test_prints_that_no_repetition_helps_where_the_bound_on_memory_is_too_low(self):
        self.score.write_text(LARGE)
        line = self.one(self.in_place("--max-memory", "30MB"))
        error = f"{self.score}: needs more than 30 MB of memory; --max-memory allows more"
        self.assertEqual(line, self.line("failed", region=None, error=error))

    def test_prints_the_warnings_of_a_score(self):
        chord = NOTE.replace("<duration>", "<chord/><duration>")
        self.score.write_text(score(HIDDEN_NOTE + chord))
        process = self.succeeds(self.in_place())
        line = self.one(process)
        self.assertEqual(len(line["warnings"]), 1)
        self.assertIn(f"brvhost: {line['warnings'][0]}\n", process.stderr)

    def test_prints_the_region_as_the_score_has_it(self):
        measures = "</measure><measure>".join([NOTE] * 4)
        self.score.write_text(score(measures))
        process = self.succeeds(run(HIDE, "--staves", "1-9", "--measures", "1,3-7", "--start-at", "1/2", "--layers", 1,
                                    "--dry-run", "--json", self.score))
        block = {"staves": {"first": 1, "last": 1}, "layers": [{"first": 1, "last": 1}], "endAt": None}
        self.assertEqual(self.one(process)["region"], [
            {**block, "measures": {"first": 1, "last": 1}, "startAt": "1/2"},
            {**block, "measures": {"first": 3, "last": 4}, "startAt": "0"}])
        process = self.succeeds(run(HIDE, "--yes", "--dry-run", "--json", self.score))
        self.assertIsNone(self.one(process)["region"])

    def test_names_the_member_of_an_archive(self):
        path = self.compressed_score()
        line = self.one(self.succeeds(run(HIDE, "--all", "--dry-run", "--json", "--list", path)))
        self.assertEqual((line["member"], [change["line"] for change in line["changes"]]), ("x.xml", [1]))

    def test_prints_one_line_for_each_score_even_where_lists_are_long(self):
        many = 3000
        scores = {str(self.write(f"{number}.musicxml", score(NOTE * (many if number % 2 else 1)))): many if number % 2 else 1
                  for number in range(8)}
        process = self.succeeds(run(HIDE, "--all", "--in-place", "--json", "--list", "--jobs", 4, *scores))
        lines = self.lines("run", process.stdout)
        self.assertEqual({line["score"]: len(line["changes"]) for line in lines}, scores)
        self.assertEqual([line["status"] for line in lines], ["written"] * 8)
        for line in lines:
            self.assertEqual([change["position"] for change in line["changes"]],
                             [str(position) for position in range(len(line["changes"]))])

    def test_prints_what_an_interrupt_has_left_undone(self):
        others = [self.write(f"{number}.musicxml", score()) for number in range(3)]
        command = [PROGRAM, "run", faulty("works_until_cancelled"), "--item", "0", "--all", "--in-place", "--json",
                   *map(str, [self.score, *others])]
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.assertIn("working", process.stderr.readline())
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 130)
        states = {line["score"]: (line["status"], line["retry"]) for line in self.lines("run", output)}
        self.assertEqual(states, {str(self.score): ("interrupted", True), **{str(path): ("notRun", True) for path in others}})
        self.assertIn("4 scores: 0 changed, 0 unchanged, 0 failed, 1 interrupted, 3 not run\n", errors)

    def test_names_scores_whose_names_are_not_utf_8(self):
        name = os.fsencode(self.folder) + b"/b\xff.musicxml"
        process = subprocess.run([PROGRAM, "run", LEGER_LINES, "--item", "0", "--all", "--in-place", "--json", name],
                                 capture_output=True, text=True, stdin=subprocess.DEVNULL)
        line = self.one(process)
        self.assertEqual((line["score"], line["status"]), (f"{self.folder}/b\ufffd.musicxml", "badInput"))
        self.assertEqual((base64.b64decode(line["scoreBase64"]), base64.b64decode(line["targetBase64"])), (name, name))

    def test_takes_the_standard_input_for_a_score(self):
        process = brvhost(*hiding("--dry-run", "--json", "-"), stdin=None, input=score())
        self.assertEqual(self.one(process), {**self.line("wouldChange", **ONE_HIDDEN), "score": "-", "target": None})

    def test_does_not_go_where_the_result_goes(self):
        process = brvhost(*hiding("--json", self.score, "-o", "-"))
        self.assertEqual((process.returncode, process.stdout, process.stderr),
                         (2, "", "brvhost: --json and --output -: both are for the standard output\n"))

    def test_prints_nothing_where_no_score_is_begun(self):
        for arguments, status in ((("--item", 7), 2), (("--item", HIDE, "--staves", "x"), 2)):
            process = brvhost("run", LEGER_LINES, "--json", "--all", "--in-place", self.score, *arguments)
            self.assertEqual((process.returncode, process.stdout), (status, ""))
        process = self.in_place(bundle=self.folder / "none.bundle")
        self.assertEqual((process.returncode, process.stdout), (3, ""))


class Info(JsonCase):
    def test_prints_what_a_score_holds(self):
        chord = NOTE.replace("<duration>", "<chord/><duration>")
        path = self.write("a.xml", score(HIDDEN_NOTE + chord + NOTE.replace("<duration>", "<rest/><duration>")))
        process = self.succeeds(brvhost("info", "--json", path))
        line = self.one(process, "info")
        self.assertEqual(line, {
            "score": str(path), "member": None, "status": "read", "retry": False,
            "parts": [{"id": "P1", "name": "", "abbreviation": "", "firstStaff": 1, "lastStaff": 1}], "staves": 1,
            "measures": 1, "layers": [{"staves": [{"first": 1, "last": 1}], "voices": ["1"]}],
            "counts": {"entries": 2, "notes": 0, "chords": 1, "rests": 1, "hidden": 0},
            "mixedChords": [{"staff": 1, "measure": 1, "layer": 1, "position": "0"}], "warnings": line["warnings"],
            "error": None})
        self.assertEqual([f"brvhost: {warning}" for warning in line["warnings"]], process.stderr.splitlines())
        self.assertEqual(len(line["warnings"]), 1)

    @MEETS_THE_BOUND
    def test_prints_which_scores_cannot_be_used(self):
        bad = self.write("bad.xml", "<x/>")
        large = self.write("large.xml", LARGE)
        process = brvhost("info", "--json", "--max-memory", "30MB", bad, large)
        errors = [f"{bad}:1:1: not MusicXML: the root element is <x>",
                  f"{large}: needs more than 30 MB of memory; --max-memory allows more"]
        self.assertEqual(self.lines("info", process.stdout), [
            {"score": str(bad), "status": "badInput", "retry": False, "error": errors[0]},
            {"score": str(large), "status": "failed", "retry": False, "error": errors[1]}])
        self.assertEqual((process.returncode, process.stderr), (2, "".join(f"brvhost: {error}\n" for error in errors)))


class Calls(JsonCase):
    def test_prints_each_function(self):
        lines = self.lines("calls", brvhost("calls", "--json").stdout)
        self.assertEqual(len(lines), len(brvhost("calls").stdout.splitlines()))
        self.assertNotEqual(lines, [])


class List(JsonCase):
    def test_prints_which_extensions_are_installed(self):
        folders = [self.folder / name for name in ("first", "second")]
        for folder in folders:
            shutil.copytree(LEGER_LINES, folder / "LegerLines.bundle")
        (folders[1] / "Broken.bundle").mkdir()
        environment = {"BRVHOST_PATH": ":".join(map(str, folders)), "XDG_DATA_HOME": str(self.folder)}
        process = brvhost("list", "--json", environment=environment)
        lines = {line["path"]: line for line in self.lines("list", process.stdout)}
        hiding, hidden, broken = [str(folder / f"{name}.bundle") for folder, name in
                                  ((folders[0], "LegerLines"), (folders[1], "LegerLines"), (folders[1], "Broken"))]
        self.assertEqual([line["hiddenBy"] for line in (lines[hiding], lines[hidden])], [None, hiding])
        languages = sorted(path.stem for path in pathlib.Path(LEGER_LINES).glob("Contents/Resources/*.lproj"))
        self.assertEqual((lines[hiding]["name"], lines[hiding]["languages"], lines[hiding]["error"]),
                         ("LegerLines", languages, None))
        self.assertIn(EXECUTABLE_FOLDER.replace("-", " on ", 1), lines[hiding]["systems"])
        self.assertEqual(process.stderr, f"brvhost: {lines[broken]['error']}\n")
        self.assertEqual(process.returncode, 3)


TEXT = (DOCUMENTS / "json.md").read_text()
# What the page has of each command.
SECTIONS = dict(re.findall(r"^## (\w+)\n(.*?)(?=^## |\Z)", TEXT, re.MULTILINE | re.DOTALL))


def example(command):
    """The first lines that the page shows of a command."""
    shown = re.search(r"(?:^    .*\n)+", SECTIONS[command], re.MULTILINE)[0]
    return re.sub(r"^    ", "", shown.replace("\n     ", ""), flags=re.MULTILINE)


class Document(JsonCase):
    def test_has_a_section_and_a_schema_for_each_command_that_prints_json(self):
        commands = {command for command in COMMANDS if "--json" in options_in_help(command)}
        self.assertEqual(set(SECTIONS), commands)
        self.assertEqual({path.name for path in (DOCUMENTS / "json").iterdir()}, {f"{command}.schema.json" for command in commands})
        first = TEXT.partition("## ")[0].partition(" print lines")[0]
        self.assertEqual(set(re.findall(r"`(?:brvhost )?(\w+)`", first)), commands)

    def test_shows_what_the_commands_print(self):
        for sample in SAMPLES.glob("*.musicxml"):
            shutil.copy(sample, self.folder)
        (self.folder / "LegerLines.bundle").symlink_to(LEGER_LINES)
        examples = re.findall(r"^    \$ brvhost (.*)\n((?:    .*\n)+)", TEXT, re.MULTILINE)
        self.assertLessEqual({"info", "items", "run"}, {command.split()[0] for command, _ in examples})
        for command, shown in examples:
            with self.subTest(command):
                process = brvhost(*shlex.split(command), cwd=self.folder)
                unfolded = shown.replace("\n     ", "")
                self.assertEqual(process.stdout, re.sub(r"^    ", "", unfolded, flags=re.MULTILINE))
                self.lines(command.split()[0], process.stdout)

    def test_shows_lines_of_a_check(self):
        lines = "".join(line[4:] + "\n" for line in SECTIONS["check"].replace("\n     ", "").splitlines() if line.startswith("    "))
        self.assertEqual([len(line) for line in self.lines("check", lines)], [7, 8, 3])

    def test_shows_lines_of_random_rounds(self):
        self.assertEqual([len(line) for line in self.lines("fuzz", example("fuzz"))], [5, 5])

    def test_shows_lines_of_the_calls(self):
        self.assertEqual(self.lines("calls", example("calls")), self.lines("calls", brvhost("calls", "--json").stdout)[:2])

    def test_shows_a_line_of_the_list(self):
        self.assertEqual([line["name"] for line in self.lines("list", example("list"))], ["LegerLines"])


if __name__ == "__main__":
    unittest.main()
