"""--trace: the calls between an extension and brvhost, one to a line."""

import os
import re
import unittest

from brvhost import Case, LEGER_LINES, SANITIZED, brvhost, faulty, score

START = """\
main(argc: 1, argv: pointer)
main = 1
BrevixExtensionVersion()
BrevixExtensionVersion = 0x19500000
BrevixExtensionInit(context: null, word: pointer)
BrevixExtensionInit = 1, word: 0x00000000
BrevixExtensionEnumerate_UTF16(context: null, itemIndex: 0, texts: pointer)
BrevixExtensionEnumerate_UTF16 = 1, texts: "item", "item", "item"
BrevixExtensionEnumerate_UTF16(context: null, itemIndex: 1, texts: pointer)
BrevixExtensionEnumerate_UTF16 = 0
BrevixExtensionGetMenuStatus()
BrevixExtensionGetMenuStatus = 1
"""
END = "BrevixExtensionTerminate()\nBrevixExtensionTerminate returned\n"
INVOKE = "BrevixExtensionInvoke(context: null, itemIndex: 0, region: "
WHOLE = "(scope 0, staves 1 to 1, measures 1 to 1, positions 0 to 2147483647)"
MANY_CALLS = f"""\
{INVOKE}{WHOLE}, fallback: pointer)
  BX_StartBrevixEdit_UTF16(name: "G\u00f6\u266d") = 1
  BX_StartMassEdit(parent: null, count: 2) = handle 1
  BX_MassEditProgress(massEdit: handle 1, increment: 2, argument3: 0, argument4: 0, argument5: -1) = 1
  BX_EndMassEdit(massEdit: handle 1, cancelled: 0) = 1
  BX_LoadTGF(regionScope: 0, staff: 1, measure: 1, layer: 0, loadFlag: 1) = (staff 1, measure 1, layer 0, entries 1)
  BX_FreeTGF(frame: (staff 1, measure 1, layer 0, entries 1)) = 1
  BX_FreeTGF(frame: freed (staff 1, measure 1, layer 0)) = 0
  BX_FreeTGF(frame: null) = 0
  BX_LoadEData(tag: SOMS, key: (1, 0), data: null, size: pointer) = 1, size: 30
  BX_NextEData(tag: SOMS, key: (0, 0), data: pointer, size: 4) = 1, key: (1, 0)
  BX_DeleteEData(tag: 0x00000001, key: (1, 0)) = 0
  BX_GetCurERegions(third: pointer, second: null, first: null) = 1, third: {WHOLE}
  BX_CancelBrevixEdit()
  BX_IsCocoaBXDLG: brvhost does not have it, and each call returns its default 0
  BX_ProcessMidiData: brvhost does not have it, and each call returns its default -1
  BX_AlertMessage(parent: null, alertKind: 64, stringID: 0, text: "two lines") = 1
BrevixExtensionInvoke = 0
"""
TIMES = re.compile(r"  \(\d+\.\d us\)$", re.MULTILINE)


class Trace(Case):
    def trace(self, bundle, *arguments, environment=None):
        """The finished run on all of some scores, and what it traced."""
        file = self.folder / "trace"
        process = brvhost("run", bundle, "--item", 0, "--all", "--dry-run", f"--trace={file}", *arguments, environment=environment)
        return process, file.read_text()

    def test_has_the_calls_in_their_order_and_names_their_arguments(self):
        process, text = self.trace(faulty("makes_many_calls"), self.write("a.xml", score()))
        self.succeeds(process)
        self.assertEqual(text, START + MANY_CALLS + END + END)

    def test_is_the_same_each_time(self):
        one, two = (self.trace(LEGER_LINES, self.write("a.xml", score()))[1] for _ in range(2))
        self.assertIn("\n  BX_SaveTGF(frame: (staff 1, measure 1, layer 0, entries 1)) = 1\n", one)
        self.assertEqual(one, two)

    def test_goes_to_the_standard_error_without_a_file(self):
        path = self.write("a.xml", score())
        process = self.succeeds(brvhost("run", faulty("without_fault"), "--item", 0, "--all", "--dry-run", "--trace", path))
        self.assertEqual(process.stdout, f"{path}: 1 of 1 entries would change\n")
        self.assertEqual(process.stderr, START + f"""\
{INVOKE}{WHOLE}, fallback: pointer)
  BX_LoadTGF(regionScope: 0, staff: 1, measure: 1, layer: 0, loadFlag: 1) = (staff 1, measure 1, layer 0, entries 1)
  BX_SaveTGF(frame: (staff 1, measure 1, layer 0, entries 1)) = 1
  BX_FreeTGF(frame: (staff 1, measure 1, layer 0, entries 1)) = 1
BrevixExtensionInvoke = 1
""" + END + END)

    def test_changes_nothing_else_of_a_run(self):
        path = self.write("a.xml", score())
        without = brvhost("run", LEGER_LINES, "--item", 0, "--all", path, "-o", self.folder / "1.xml")
        traced = brvhost("run", LEGER_LINES, "--item", 0, "--all", path, "-o", self.folder / "2.xml", f"--trace={os.devnull}")
        self.assertEqual((traced.returncode, traced.stderr), (0, ""))
        self.assertEqual(traced.stdout, without.stdout.replace("1.xml", "2.xml"))
        self.assertEqual((self.folder / "1.xml").read_bytes(), (self.folder / "2.xml").read_bytes())

    def test_has_the_time_of_each_call_that_returned(self):
        process, text = self.trace(faulty("without_fault"), "--trace-times", self.write("a.xml", score()))
        self.succeeds(process)
        for line in text.splitlines():
            self.assertEqual(TIMES.search(line) is None, line.endswith(")") and not line.endswith("us)"), line)
        self.assertIn(END, TIMES.sub("", text))

    def test_is_there_after_a_crash(self):
        process, text = self.trace(faulty("crashes_when_invoked"), self.write("a.xml", score()))
        self.fails(process, 1, "crashed in BrevixExtensionInvoke")
        self.assertEqual(text, START + f"{INVOKE}{WHOLE}, fallback: pointer)\n" + END)

    def test_reports_an_exception(self):
        process, text = self.trace(faulty("throws_when_invoked"), self.write("a.xml", score()))
        self.assertEqual(process.returncode, 1)
        self.assertRegex(text, r"\nBrevixExtensionInvoke threw an exception: .+\n")

    @unittest.skipIf(SANITIZED, "what looks for leaks cannot be confined")
    def test_is_written_by_an_extension_that_may_write_no_file(self):
        process, text = self.trace(faulty("without_fault"), "--confine", self.write("a.xml", score()))
        self.succeeds(process)
        self.assertIn("BX_SaveTGF", text)

    def test_names_the_score_of_each_line_where_there_are_several(self):
        paths = [self.write(f"{name}.xml", score()) for name in "abc"]
        process, text = self.trace(faulty("without_fault"), "--jobs", 3, *paths)
        self.succeeds(process)
        for path in paths:
            own = [line.removeprefix(f"{path}: ") for line in text.splitlines() if line.startswith(f"{path}: ")]
            self.assertEqual(len(own), 7)
            self.assertEqual((own[1].split("(")[0], own[-1]), ("  BX_LoadTGF", "BrevixExtensionTerminate returned"))

    def test_starts_anew_in_a_file_that_is_there(self):
        self.write("trace", "old\n")
        self.assertTrue(self.trace(faulty("without_fault"), self.write("a.xml", score()))[1].startswith(START))

    def test_needs_a_file_that_can_be_written(self):
        path = self.write("a.xml", score())
        wrong = self.folder / "none" / "trace"
        process = brvhost("run", LEGER_LINES, "--item", 0, "--all", "--dry-run", f"--trace={wrong}", path)
        self.fails(process, 1, f"brvhost: {wrong}: cannot be written: No such file or directory\n")

    @unittest.skipUnless(os.path.exists("/dev/full"), "no full device")
    def test_that_cannot_be_written_fails_the_run(self):
        path = self.write("a.xml", score())
        process = brvhost("run", LEGER_LINES, "--item", 0, "--all", "--in-place", "--trace=/dev/full", path)
        self.fails(process, 1, "the trace cannot be written: No space left on device")
        self.assertEqual(path.read_text(), score())

    def test_has_times_only_if_there_is_one(self):
        process = brvhost("run", LEGER_LINES, "--item", 0, "--all", "--dry-run", "--trace-times", self.write("a.xml", score()))
        self.fails(process, 2, "brvhost: --trace-times: is for --trace\n")

    def test_of_a_check_is_under_the_fact_that_is_checked(self):
        file = self.folder / "trace"
        self.succeeds(brvhost("check", faulty("without_fault"), f"--trace={file}"))
        text = file.read_text()
        facts = [line.split("\t")[0] for line in brvhost("check", "--list").stdout.splitlines()]
        self.assertEqual([line for line in text.splitlines() if not line.startswith(" ")], facts)
        binds = text.partition("binds-to-host\n")[2].partition("is-for-this")[0]
        self.assertEqual(binds, "  main(argc: 1, argv: pointer)\n  main = 1\n")
        self.assertIn('\n    BX_AlertMessage(parent: null, alertKind: 33, stringID: 0, text: "All of it?") = 0\n', text)


if __name__ == "__main__":
    unittest.main()
