"""brvhost check: which facts are checked, of which bundles, and how the results are reported."""

import json
import re
import shutil
import unittest
import xml.etree.ElementTree as ElementTree

from brvhost import EMULATED, LEGER_LINES, brvhost, faulty
from jsoncase import DOCUMENTS, JsonCase

WITHOUT_FAULT, LEAKS_FRAMES, CRASHES = map(faulty, ("without_fault", "leaks_frames", "crashes_when_invoked"))


def check(*arguments):
    return brvhost("check", *arguments)


def list_of(*arguments):
    """Names, severities and sentences."""
    return [tuple(line.split("\t")) for line in brvhost("check", "--list", *arguments).stdout.splitlines()]


class Names(JsonCase):
    def test_are_listed_with_severity_and_sentence(self):
        facts = list_of()
        self.assertIn(("frees-frames", "error", "frees each frame that it loads, once"), facts)
        for name, severity, sentence in facts:
            self.assertRegex(name, "^[a-z0-9]+(-[a-z0-9]+)*$")
            self.assertIn(severity, ("error", "warning", "note"))
            self.assertRegex(sentence, "^[a-z].*[^.]$")

    def test_are_in_no_other_name_so_that_each_chooses_one_fact(self):
        for name, _, _ in list_of():
            self.assertEqual([fact[0] for fact in list_of("--include", name)], [name])

    def test_are_listed_in_json(self):
        process = self.succeeds(check("--list", "--json", "--include", "frees-frames"))
        self.assertEqual(self.one(process, "check"), {"fact": "frees-frames", "severity": "error",
                                                      "sentence": "frees each frame that it loads, once"})

    def test_are_explained_on_the_page_about_them(self):
        text = (DOCUMENTS / "check.md").read_text()
        explained = re.findall(r"^### (\S+)\n\n(\w+): it (.*(?:\n.+)*)\.\n\n[^#\n]", text, re.MULTILINE)
        self.assertEqual([(name, severity.lower(), sentence.replace("\n", " ")) for name, severity, sentence in explained],
                         list_of())

    def test_are_listed_without_a_bundle(self):
        self.fails(check("--list", LEGER_LINES), 2, f"brvhost: {LEGER_LINES}: --list lists the facts, and takes no bundle\n")


class Filters(JsonCase):
    def test_choose_facts_by_what_is_in_their_names(self):
        names = [fact[0] for fact in list_of()]
        for pattern in ("texts", "^ends-", "frames|edits", "s$"):
            self.assertEqual([fact[0] for fact in list_of("--include", pattern)],
                             [name for name in names if re.search(pattern, name)])
            self.assertEqual([fact[0] for fact in list_of("--exclude", pattern)],
                             [name for name in names if not re.search(pattern, name)])
        self.assertEqual([fact[0] for fact in list_of("--include", "^ends-", "--exclude", "texts|edits|threads")],
                         ["ends-item-list", "ends-when-cancelled"])

    def test_leave_the_facts_that_are_checked(self):
        process = self.succeeds(check("--include", "terminates", WITHOUT_FAULT))
        self.assertEqual(process.stdout, "ok      terminates [terminates]\n1 fact: 1 holds, 0 errors, 0 warnings\n")

    def test_are_regular_expressions(self):
        for pattern in ("(", "[a", "*a", "[b-a]"):
            self.fails(check("--include", pattern, LEGER_LINES), 2, f"brvhost: --include {pattern}: is no regular expression\n")
        self.fails(check("--exclude", "(" * 1001, LEGER_LINES), 2, "brvhost: --exclude: is longer than 1000 characters: (((")

    def test_leave_a_fact(self):
        self.fails(check("--include", "fly", LEGER_LINES), 2,
                   "brvhost: --include fly: is in the name of no fact; `brvhost check --list` lists them\n")
        self.fails(check("--exclude", ".", LEGER_LINES), 2, "brvhost: --exclude leaves no fact\n")
        self.fails(check("--exclude", "a", "--include", "a", LEGER_LINES), 2, "brvhost: --include and --exclude leave no fact\n")


class SeveralBundles(JsonCase):
    def test_are_checked_each_under_its_path(self):
        process = check("--include", "frees-frames|terminates", WITHOUT_FAULT, LEAKS_FRAMES)
        self.assertEqual(process.stdout, f"""{WITHOUT_FAULT}
ok      frees each frame that it loads, once [frees-frames]
ok      terminates [terminates]
{LEAKS_FRAMES}
FAILED  frees each frame that it loads, once: item 0 leaves frames loaded: 1 in all, loaded in BrevixExtensionInvoke [frees-frames]
ok      terminates [terminates]
4 facts of 2 bundles: 3 hold, 1 error, 0 warnings
""")
        self.assertEqual(process.returncode, 1)

    def test_show_only_what_failed(self):
        process = check("--include", "frees-frames|terminates", "--only-failed", WITHOUT_FAULT, LEAKS_FRAMES)
        self.assertEqual(process.stdout, f"""{LEAKS_FRAMES}
FAILED  frees each frame that it loads, once: item 0 leaves frames loaded: 1 in all, loaded in BrevixExtensionInvoke [frees-frames]
4 facts of 2 bundles: 3 hold, 1 error, 0 warnings
""")

    def test_have_to_be_there_before_any_is_checked(self):
        process = check(WITHOUT_FAULT, self.folder / "none.bundle")
        self.fails(process, 3, f"brvhost: {self.folder / 'none.bundle'}: there is no such bundle\n")
        self.assertEqual(process.stdout, "")


class Severity(JsonCase):
    BUNDLE = faulty("asks_whether_measures_are_empty")
    WARNING = ("warning calls no function of the kit that leaves frames loaded: item 0 leaves frames loaded: 1 in all, loaded in "
               "BXUtilIsEmptyMeasure [avoids-leaving-calls]")

    def test_decides_the_exit_status(self):
        for options, status in ((), 0), (("--strict",), 1):
            process = check("--only-failed", "--include", "frames|leaving", *options, self.BUNDLE)
            self.assertEqual((process.stdout, process.returncode),
                             (self.WARNING + "\n2 facts: 1 holds, 0 errors, 1 warning\n", status))

    def test_is_a_warning_where_an_item_may_be_meant_so(self):
        process = check("--only-failed", "--include", "changes-nothing", faulty("toggles"))
        self.assertEqual((process.stdout.splitlines()[0], process.returncode), (
            "warning changes nothing the second time: item 0 changes the score again [changes-nothing-twice]", 0))

    def test_decides_what_fails_in_reports(self):
        report = self.folder / "report.xml"
        for options, failures, status, element in ((), "0", "passed", "system-out"), (("--strict",), "1", "failed", "failure"):
            process = check("--json", "--include", "leaving", "--junit", report, *options, self.BUNDLE)
            root = ElementTree.parse(report).getroot()
            self.assertEqual((root.get("failures"), root[0][0][0].tag), (failures, element))
            fact, bundle = self.lines("check", process.stdout)
            self.assertEqual((fact["severity"], fact["outcome"], bundle["status"], bundle["warnings"]),
                             ("warning", "failed", status, 1))


class Skipping(JsonCase):
    def test_is_for_facts_that_need_one_that_failed(self):
        process = check("--include", "^(initialises|has-menu-status|terminates)$", faulty("fails_to_initialise"))
        self.assertEqual(process.stdout, """\
FAILED  initialises, and clears the word: BrevixExtensionInit returns 0 [initialises]
        the facts that need this one are skipped
3 facts: 0 hold, 1 error, 0 warnings, 2 skipped
""")

    def skipped(self, fault):
        lines = map(json.loads, check("--json", faulty(fault)).stdout.splitlines())
        return [line["fact"] for line in lines if line.get("outcome") == "skipped"]

    def test_is_for_what_follows_on_the_page_but_the_files(self):
        text = (DOCUMENTS / "check.md").read_text()
        sections = {section.split("\n")[0]: re.findall("^### (.*)", section, re.MULTILINE) for section in re.split("^## ", text, flags=re.MULTILINE)}
        files, start = sections.pop("Its files"), sections["How it starts"]
        others = [fact for section in sections.values() for fact in section]
        self.assertEqual(others[:len(start)], start)
        faults = ("lacks_entry_points", "does_not_bind", "wrong_version", "fails_to_initialise", "offers_nothing")
        self.assertEqual(len(faults), len(start))
        for number, fault in enumerate(faults, 1):
            with self.subTest(fault):
                self.assertEqual(self.skipped(fault), others[number:])
        self.assertEqual(others + files, [fact[0] for fact in list_of()])

    def test_is_for_no_fact_where_another_failed(self):
        for fault in ("leaves_text_open", "odd_menu_status", "takes_any_index"):
            self.assertEqual(self.skipped(fault), [])


class Json(JsonCase):
    def checked(self, *arguments, status):
        process = check("--json", *arguments)
        self.assertEqual(process.returncode, status, process.stderr)
        lines = self.lines("check", process.stdout)
        for line in lines:
            line.pop("milliseconds", None)
        return lines, process.stderr

    def fact(self, bundle, name, outcome="holds", message=None, reproduce=None):
        return {"bundle": bundle, "fact": name, "severity": "error", "outcome": outcome, "message": message,
                "reproduce": reproduce}

    def end(self, bundle, status, facts, **counts):
        return {"bundle": bundle, "status": status, "facts": facts, "holding": 0, "errors": 0, "warnings": 0, "notes": 0,
                "skipped": 0, **counts}

    def test_has_each_fact_and_each_bundle(self):
        lines, summary = self.checked("--include", "^(initialises|terminates)$", WITHOUT_FAULT, faulty("fails_to_initialise"), status=1)
        other = faulty("fails_to_initialise")
        self.assertEqual(lines, [
            self.fact(WITHOUT_FAULT, "initialises"), self.fact(WITHOUT_FAULT, "terminates"),
            self.end(WITHOUT_FAULT, "passed", 2, holding=2),
            self.fact(other, "initialises", "failed", "BrevixExtensionInit returns 0"),
            self.fact(other, "terminates", "skipped", "needs initialises"), self.end(other, "failed", 2, errors=1, skipped=1)])
        self.assertEqual(summary, "4 facts of 2 bundles: 2 hold, 1 error, 0 warnings, 1 skipped\n")

    def test_leaves_out_what_holds(self):
        lines, _ = self.checked("--only-failed", "--include", "terminates", WITHOUT_FAULT, status=0)
        self.assertEqual(lines, [self.end(WITHOUT_FAULT, "passed", 1, holding=1)])

    def test_keeps_what_is_skipped(self):
        other = faulty("fails_to_initialise")
        lines, _ = self.checked("--only-failed", "--include", "^(initialises|terminates)$", other, status=1)
        self.assertEqual([line.get("outcome") for line in lines], ["failed", "skipped", None])

    @unittest.skipIf(EMULATED, "the emulator names signals otherwise")
    def test_has_the_command_that_runs_what_crashed(self):
        lines, _ = self.checked("--include", "works-without", CRASHES, status=1)
        self.assertEqual(lines[0], self.fact(
            CRASHES, "works-without-functions", "failed", "crashes in BrevixExtensionInvoke: signal 6 (Aborted)",
            f"brvhost check {CRASHES} --in-process --include works-without-functions"))


class JUnit(JsonCase):
    def setUp(self):
        super().setUp()
        self.report = self.folder / "report.xml"

    def suites(self, *arguments):
        check(*arguments, "--junit", self.report)
        root = ElementTree.parse(self.report).getroot()
        for element in root.iter():
            element.attrib.pop("time", None)
        return root

    def test_has_a_suite_for_each_bundle_and_a_test_for_each_fact(self):
        other = faulty("fails_to_initialise")
        root = self.suites("--include", "^(initialises|terminates)$", WITHOUT_FAULT, other)
        self.assertEqual((root.tag, root.attrib), ("testsuites", {"name": "brvhost check", "tests": "4", "failures": "1"}))
        self.assertEqual([suite.attrib for suite in root], [
            {"name": WITHOUT_FAULT, "tests": "2", "failures": "0", "errors": "0", "skipped": "0"},
            {"name": other, "tests": "2", "failures": "1", "errors": "0", "skipped": "1"}])
        self.assertEqual([case.attrib for case in root[0]], [{"classname": "without_fault", "name": "initialises"},
                                                            {"classname": "without_fault", "name": "terminates"}])
        self.assertEqual([len(case) for case in root[0]], [0, 0])
        failure, skipped = (case[0] for case in root[1])
        message = "BrevixExtensionInit returns 0"
        self.assertEqual((failure.tag, failure.attrib, failure.text),
                         ("failure", {"type": "error", "message": message}, f"initialises, and clears the word: {message}"))
        self.assertEqual((skipped.tag, skipped.attrib), ("skipped", {"message": "needs initialises"}))

    def test_is_well_formed_whatever_the_bundle_is_called(self):
        bundle = self.folder / "<a & \"b\" \x07>.bundle"
        shutil.copytree(WITHOUT_FAULT, bundle)
        root = self.suites("--include", "terminates", bundle)
        self.assertEqual(root[0].get("name"), str(bundle).replace("\x07", " "))

    def test_replaces_what_was_there(self):
        self.report.write_text("old")
        self.assertEqual(self.suites("--include", "terminates", WITHOUT_FAULT).get("tests"), "1")

    def test_fails_the_run_where_it_cannot_be_written(self):
        process = check("--include", "terminates", "--junit", self.folder / "none/report.xml", WITHOUT_FAULT)
        self.fails(process, 1, f"brvhost: {self.folder / 'none/report.xml'}: ")
        self.assertEqual(process.stdout, "ok      terminates [terminates]\n")

    def test_goes_to_no_device(self):
        process = check("--include", "terminates", "--junit", "/dev/full", WITHOUT_FAULT)
        self.assertEqual((process.returncode, process.stderr), (1, "brvhost: /dev/full: is not a regular file\n"))


class InProcess(JsonCase):
    def test_checks_in_brvhost_itself(self):
        process = check("--in-process", "--include", "works-without-functions", CRASHES)
        self.assertEqual((process.returncode, process.stdout), (-6, ""))

    def test_shows_what_the_extension_prints(self):
        process = check("--in-process", "--include", "frees-frames", faulty("prints"))
        self.assertIn("and an error\n", process.stderr)

    def test_reports_as_else(self):
        process = check("--in-process", "--include", "frees-frames", LEAKS_FRAMES)
        self.assertEqual((process.returncode, process.stdout.splitlines()[0]), (
            1, "FAILED  frees each frame that it loads, once: item 0 leaves frames loaded: 1 in all, loaded in BrevixExtensionInvoke [frees-frames]"))

    def test_takes_one_fact_and_one_bundle(self):
        self.fails(check("--in-process", "--include", "^frees-frames|^ends-edits", LEGER_LINES), 2,
                   "brvhost: --in-process: takes one fact; --include and --exclude leave 2\n")
        self.fails(check("--in-process", "--include", "terminates", LEGER_LINES, LEGER_LINES), 2,
                   "brvhost: --in-process: takes one bundle\n")

    @unittest.skipIf(EMULATED, "the emulator names signals otherwise")
    def test_is_how_a_crash_says_to_run_it(self):
        bundle = self.folder / "it's.bundle"
        shutil.copytree(CRASHES, bundle)
        lines = check("--include", "works-without", bundle).stdout.splitlines()
        self.assertEqual(lines[1], "        in a debugger: brvhost check '" + str(bundle).replace("'", "'\\''") +
                         "' --in-process --include works-without-functions")


if __name__ == "__main__":
    unittest.main()
