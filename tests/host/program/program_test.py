"""What brvhost does at the shell: commands, files, exit statuses, messages."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

from brvhost import (Case, EMULATED, EXECUTABLE_FOLDER, HIDDEN_NOTE, HIDE, LEGER_LINES, NOTE, PROGRAM, SAMPLES, SANITIZED, SHOW, brvhost, faulty, run, score)


class Items(Case):
    def test_are_listed_with_their_texts(self):
        lines = self.succeeds(brvhost("items", LEGER_LINES)).stdout.splitlines()
        self.assertEqual([line.split("\t")[:2] for line in lines],
                         [["0", "Hide Ledger Lines"], ["1", "Show Ledger Lines"]])

    def test_need_a_bundle_that_is_there(self):
        self.fails(brvhost("items", self.folder / "none.bundle"), 3, "none.bundle: there is no such bundle")

    def test_need_a_bundle_that_loads(self):
        self.fails(brvhost("items", faulty("needs_missing_library")), 3, "does not load", "DefinedNowhere")

    def test_need_an_executable_for_this_system(self):
        contents = self.folder / "Mine.bundle" / "Contents"
        contents.mkdir(parents=True)
        mine, system = contents.parent, EXECUTABLE_FOLDER.replace("-", " on ", 1)
        self.assertEqual(brvhost("items", mine).stderr, f"brvhost: {mine}: has no executable for {system}\n")
        for folder in ("Linux-m68k", "MacOS", "Resources"):
            (contents / folder).mkdir()
            (contents / folder / "Other").touch()
        for folder in ("Linux-empty", EXECUTABLE_FOLDER):
            (contents / folder).mkdir()
        missing = f"has no executable for {system}; it has one for macOS and one for Linux on m68k\n"
        self.fails(brvhost("items", mine), 3, f"{mine}: {missing}")
        self.fails(run(HIDE, "--all", "--dry-run", SAMPLES / "piano.musicxml", bundle=mine), 3, f"{mine}: {missing}")
        self.assertIn(f"exports the entry points: {missing[:-1]} [", brvhost("check", mine, "--no-confine").stdout)

    def test_are_listed_with_what_is_wrong_with_their_texts(self):
        mine = pathlib.Path(shutil.copytree(LEGER_LINES, self.folder / "Mine.bundle"))
        resources = mine / "Contents/Resources"
        (resources / "de.lproj/Localizable.strings").write_text('"20000,1" = "Eins";\n"20000,2" "Zwei";\n')
        (resources / "fr.lproj/Localizable.strings").write_bytes('"20000,1" = "Un"'.encode("utf-16"))
        process = self.succeeds(brvhost("items", mine))
        self.assertIn("Hide Ledger Lines", process.stdout)
        self.assertEqual(process.stderr, f'brvhost: warning: {resources}/de.lproj/Localizable.strings:2: "20000,2" should be followed '
                                         'by = "its text" and a semicolon\n')

    def test_need_an_executable_of_the_name_in_info_plist(self):
        contents = self.folder / "Mine.bundle" / "Contents"
        (contents / EXECUTABLE_FOLDER).mkdir(parents=True)
        (contents / EXECUTABLE_FOLDER / "Other.so").touch()
        another = f"CFBundleExecutable in Contents/Info.plist is Another, which is not in Contents/{EXECUTABLE_FOLDER}"
        for plist, reason in ((None, "it has no Contents/Info.plist"),
                              ("not a property list", "Contents/Info.plist has no CFBundleExecutable, or cannot be read"),
                              ("{ CFBundleName = Mine; }", "Contents/Info.plist has no CFBundleExecutable, or cannot be read"),
                              ("{ CFBundleExecutable = (Other); }", "Contents/Info.plist has no CFBundleExecutable, or cannot be read"),
                              ("{ CFBundleExecutable = Another; }", another)):
            if plist is not None:
                (contents / "Info.plist").write_text(plist)
            self.assertEqual(brvhost("items", contents.parent).stderr,
                             f"brvhost: {contents.parent}: its code does not load: {reason}\n")
        # A bundle without the folder Contents has the others itself.
        flat = contents.rename(self.folder / "Flat.bundle")
        reason = "its code does not load: " + another.replace("Contents/", "")
        self.assertEqual(brvhost("items", flat).stderr, f"brvhost: {flat}: {reason}\n")

    def test_need_an_executable_for_this_processor(self):
        mine = pathlib.Path(shutil.copytree(LEGER_LINES, self.folder / "Mine.bundle"))
        executable = mine / "Contents" / EXECUTABLE_FOLDER / "LegerLines.so"
        code = bytearray(executable.read_bytes())
        code[18:20] = b"\xF3\0"  # the number of RISC-V
        executable.write_bytes(code)
        self.fails(brvhost("items", mine), 3, f"{mine}: its code does not load: {executable} is for another processor\n")

    @unittest.skipIf(EMULATED, "the compiler is for this processor")
    def test_need_what_their_code_uses(self):
        mine = pathlib.Path(shutil.copytree(LEGER_LINES, self.folder / "Mine.bundle"))
        executable = mine / "Contents" / EXECUTABLE_FOLDER / "LegerLines.so"
        executable.unlink()
        source = self.write("mine.c", "void BrevixExtensionTerminate(void); void Ext_terminate(void) { BrevixExtensionTerminate(); }")
        subprocess.run(["cc", "-shared", "-fPIC", "-o", executable, source], check=True)
        self.fails(brvhost("items", mine), 3, f"{mine}: its code does not load: {executable} uses BrevixExtensionTerminate, which "
                   "neither it nor a library that it needs has\n")

    def test_need_entry_points(self):
        self.fails(brvhost("items", faulty("lacks_entry_points")), 3, "has no BrevixExtensionVersion")

    def test_need_the_same_version(self):
        self.fails(brvhost("items", faulty("wrong_version")), 3, "0x18000000", "0x19500000")

    def test_need_an_end(self):
        self.fails(brvhost("items", faulty("never_ends_its_list")), 3, "more than 1000 menu items")


class Info(Case):
    def test_counts_what_a_score_holds(self):
        text = (SAMPLES / "piano.musicxml").read_text()
        rests, further_notes = text.count("<rest/>"), text.count("<chord/>")
        entries = text.count("<note>") - further_notes
        chords = len(re.findall(r"<note>\s*(?!<chord/>)(?:(?!</note>).)*</note>\s*<note>\s*<chord/>", text, re.DOTALL))
        # One chord has a note on either staff, each of which is an entry of its own.
        entries, chords = entries + 1, chords - 1
        self.assertEqual(self.succeeds(brvhost("info", SAMPLES / "piano.musicxml")).stdout, f"""\
{SAMPLES}/piano.musicxml
  parts     1
            P1  staves 1-2  Piano
  staves    2
  measures  {text.count('<measure ')}
  layers    staff 1: 1-2
            staff 2: 1 (voice 5), 2 (voice 1)
  entries   {entries}: {entries - chords - rests} notes, {chords} chords, {rests} rests
  hidden    0 entries
  mixed     0 chords of which only some notes are hidden
""")

    def test_counts_as_hidden_what_the_attribute_hides(self):
        notes = HIDDEN_NOTE * 2 + NOTE + NOTE.replace("<note", '<note print-object="no"')
        out = self.succeeds(brvhost("info", self.write("a.xml", score(notes)))).stdout
        self.assertRegex(out, r"hidden +2 entries\n")

    def test_lists_every_chord_of_which_only_some_notes_are_hidden(self):
        chord = NOTE.replace("<duration>", "<chord/><duration>")
        second_voice = HIDDEN_NOTE.replace("</note>", "<voice>2</voice></note>") + chord
        notes = (HIDDEN_NOTE + chord + NOTE * 2 + '<forward><duration>1</duration></forward>'
                 '<attributes><divisions>2</divisions></attributes><forward><duration>1</duration></forward>' + second_voice)
        path = self.write("a.xml", score(HIDDEN_NOTE + HIDDEN_NOTE.replace("<duration>", "<chord/><duration>") + notes))
        process = self.succeeds(brvhost("info", path))
        self.assertTrue(process.stdout.endswith("""
  hidden    1 entries
  mixed     2 chords of which only some notes are hidden
            staff 1, measure 1, layer 1, position 1
            staff 1, measure 1, layer 2, position 11/2
"""), process.stdout)
        self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)

    def test_goes_on_after_a_score_that_cannot_be_read(self):
        bad = self.write("bad.xml", "<nothing/>")
        process = brvhost("info", bad, SAMPLES / "winds.musicxml")
        self.fails(process, 2, f"{bad}:1:1: not MusicXML")
        self.assertIn("Horn in F", process.stdout)


    def test_keeps_each_part_on_one_line(self):
        content = score().replace('<score-part id="P1"/>', '<score-part id="P1"><part-name>Viola&#10;da&#9;gamba</part-name></score-part>')
        process = self.succeeds(brvhost("info", self.write("a.xml", content)))
        self.assertIn("P1  staff 1  Viola da gamba\n", process.stdout)


class Run(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score(NOTE * 2))
        self.out = self.folder / "out.musicxml"

    def test_hides_the_whole_score(self):
        process = self.succeeds(run(HIDE, "--all", self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE * 2))
        self.assertIn("2 of 2 entries changed", process.stdout)

    def test_gives_every_sample_back(self):
        for sample in sorted(SAMPLES.glob("*.musicxml")):
            if b"print-leger" in sample.read_bytes():
                continue
            with self.subTest(sample.name):
                self.succeeds(run(HIDE, "--all", sample, "-o", self.out))
                self.assertNotEqual(self.out.read_bytes(), sample.read_bytes())
                self.succeeds(run(SHOW, "--all", self.out, "--in-place"))
                self.assertEqual(self.out.read_bytes(), sample.read_bytes())

    def test_writes_an_unchanged_score_to_the_file_that_is_named(self):
        process = self.succeeds(run(SHOW, "--all", self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), self.score.read_text())
        self.assertIn("No ledger lines were shown", process.stdout)

    def test_writes_nothing_in_a_dry_run(self):
        process = self.succeeds(run(HIDE, "--all", self.score, "--dry-run"))
        self.assertEqual(process.stdout, f"{self.score}: 2 of 2 entries would change\n")
        self.assertEqual(self.score.read_text(), score(NOTE * 2))

    def test_touches_no_file_in_place_that_does_not_change(self):
        before = os.stat(self.score)
        self.succeeds(run(SHOW, "--all", "--in-place", self.score))
        after = os.stat(self.score)
        self.assertEqual((before.st_ino, before.st_mtime_ns), (after.st_ino, after.st_mtime_ns))

    def test_keeps_permissions_and_links_in_place(self):
        os.chmod(self.score, 0o640)
        link = self.folder / "link.musicxml"
        link.symlink_to(self.score)
        self.succeeds(run(HIDE, "--all", "--in-place", link))
        self.assertTrue(link.is_symlink())
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE * 2))
        self.assertEqual(os.stat(self.score).st_mode & 0o777, 0o640)

    def test_leaves_nothing_beside_its_result(self):
        self.succeeds(run(HIDE, "--all", self.score, "-o", self.out))
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["out.musicxml", "score.musicxml"])

    def test_writes_to_a_new_folder(self):
        other = self.write("other.musicxml", score())
        process = self.succeeds(run(HIDE, "--all", self.score, other, "--out-dir", self.folder / "a" / "b"))
        self.assertEqual((self.folder / "a/b/score.musicxml").read_text(), score(HIDDEN_NOTE * 2))
        self.assertEqual((self.folder / "a/b/other.musicxml").read_text(), score(HIDDEN_NOTE))
        self.assertIn("2 scores: 2 changed, 0 unchanged, 0 failed", process.stdout)

    def test_cuts_the_region_at_its_ends(self):
        self.score.write_text(score(NOTE * 5))
        self.succeeds(run(HIDE, self.score, "-o", self.out, "--start-at", "1", "--end-at", "6/2"))
        self.assertEqual(self.out.read_text(), score(NOTE + HIDDEN_NOTE * 3 + NOTE))

    def test_leaves_hidden_layers_alone(self):
        voices = [NOTE.replace("</note>", f"<voice>{voice}</voice></note>") for voice in (1, 2, 3)]
        self.score.write_text(score("".join(voices)))
        voices[0] = voices[0].replace("<note", '<note print-leger="no"')
        voices[2] = voices[2].replace("<note", '<note print-leger="no"')
        for whole_score in (["--all"], []):
            with self.subTest(whole_score):
                self.succeeds(run(HIDE, *whole_score, "--layers", "1,3", self.score, "-o", self.out))
                self.assertEqual(self.out.read_text(), score("".join(voices)))
                self.out.unlink()

    def test_ends_with_the_score_whatever_the_last_position_in_a_measure_beyond(self):
        self.score.write_text(score(NOTE * 3))
        self.succeeds(run(HIDE, "--measures", "1-2", "--end-at", "1", self.score, "-o", self.out))
        self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE * 3))

    def test_works_on_the_whole_score_without_a_region_when_the_answer_is_yes(self):
        self.succeeds(run(HIDE, self.score, "-o", self.out, "--yes"))
        self.assertEqual(self.out.read_text(), score(HIDDEN_NOTE * 2))

    def test_warns_of_what_it_guesses(self):
        self.score.write_text(score("\n<backup><duration>1</duration></backup>" + NOTE))
        process = self.succeeds(run(HIDE, "--all", self.score, "-o", self.out))
        self.assertIn("score.musicxml:2:", process.stderr)
        self.assertIn("warning: a backup goes back before the barline", process.stderr)


class MixedChords(Case):
    """Of which only some notes are hidden."""

    CHORD = HIDDEN_NOTE + NOTE.replace("<duration>", "<chord/><duration>")

    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score("\n  " + self.CHORD * 2))

    def test_are_warned_of_once(self):
        process = self.succeeds(run(SHOW, "--all", "--in-place", self.score))
        self.assertEqual(process.stderr, f'brvhost: {self.score}:2:3: warning: chords of which only some notes have '
                         'print-leger="no": 2, the first of them here. They count as shown. Hiding them puts it on all of '
                         'their notes; hiding and then showing them, on none\n')

    def test_count_as_shown_and_become_alike_when_they_are_hidden(self):
        before = self.score.read_text()
        self.succeeds(run(SHOW, "--all", "--in-place", self.score))
        self.assertEqual(self.score.read_text(), before)
        self.succeeds(run(HIDE, "--all", "--in-place", self.score))
        self.assertEqual(self.score.read_text(), before.replace("<note>", '<note print-leger="no">'))
        self.assertEqual(self.succeeds(run(SHOW, "--all", "--in-place", self.score)).stderr, "")
        self.assertEqual(self.score.read_text(), before.replace('<note print-leger="no">', "<note>"))


class Records(Case):
    def test_live_as_long_as_the_document_is_open(self):
        score_path = self.write("score.musicxml", score())
        expected = """create 1
create 1
create 0
next 3 three
next 7 seven
previous 3 three
save 1
legacy 1 slur record
create 1
after cancel 0"""
        for _ in range(2):
            process = self.succeeds(run(0, "--all", score_path, "--dry-run", bundle=faulty("keeps_records")))
            self.assertEqual([line.strip() for line in process.stdout.splitlines()[:10]], expected.splitlines())


class BadUsage(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def refuses(self, message, *arguments):
        before = sorted(self.folder.iterdir())
        process = run(*arguments)
        self.fails(process, 2, message)
        self.assertEqual(len(process.stderr.splitlines()), 1, process.stderr)
        self.assertEqual(sorted(self.folder.iterdir()), before)
        self.assertEqual(self.score.read_text(), score())

    def test_gets_one_line(self):
        score_and_in_place = (self.score, "--in-place")
        self.refuses("--item 2: the extension has 2 items", 2, "--all", *score_and_in_place)
        self.refuses("--item -1", -1, "--all", *score_and_in_place)
        self.refuses("--staves 0", HIDE, "--staves", "0", *score_and_in_place)
        self.refuses("--measures 5-2: starts after its end", HIDE, "--measures", "5-2", *score_and_in_place)
        self.refuses("--staves 2-1: starts after its end", HIDE, "--staves", "2-1", *score_and_in_place)
        self.refuses("--start-at x", HIDE, "--start-at", "x", *score_and_in_place)
        self.refuses("--end-at -1", HIDE, "--end-at=-1", *score_and_in_place)
        self.refuses("--layers 1,x", HIDE, "--all", "--layers", "1,x", *score_and_in_place)
        self.refuses("--jobs", HIDE, "--all", "--jobs", "0", *score_and_in_place)
        self.refuses("exactly one of --output", HIDE, "--all", self.score)
        self.refuses("exactly one of --output", HIDE, "--all", self.score, "--in-place", "-o", self.folder / "x")
        self.refuses("single score", HIDE, "--all", self.score, self.score, "-o", self.folder / "x")
        for name in ("--staves", "--measures", "--start-at", "--end-at", "--layers", "-o", "--out-dir"):
            self.refuses("is empty", HIDE, name, "", *score_and_in_place)
        self.refuses("is empty", "", "--all", *score_and_in_place)
        self.refuses("SCORE: is empty", HIDE, "--all", "--dry-run", "")
        self.refuses("starts at staff 7, but the score has only 1", HIDE, "--staves", "7", *score_and_in_place)

    def test_of_regions_gets_one_line(self):
        parts = {"--staves": "1", "--measures": "1", "--start-at": "0", "--end-at": "1"}
        for name, value in parts.items():
            self.refuses(f"--all and {name} {value}: the whole score or a part of it, not both",
                         HIDE, "--all", name, value, self.score, "--in-place")
        self.refuses("--start-at 1: is after --end-at 1/2 in the same measure, 1", HIDE, "--measures", "1", "--start-at", "1",
                     "--end-at", "1/2", self.score, "--in-place")
        self.refuses("score.musicxml: the region starts at position 1 in measure 1, after its end at position 1/2 (in quarter "
                     "notes)", HIDE, "--start-at", "1", "--end-at", "1/2", self.score, "--in-place")
        self.refuses("score.musicxml: the region ends at position 3/2 in measure 1, whose length is only 1 (in quarter "
                     "notes)", HIDE, "--end-at", "1.5", self.score, "--in-place")
        self.refuses("score.musicxml: the region is to show layer 2, but its staves have only 1", HIDE, "--layers", "2",
                     self.score, "--in-place")

    def test_with_nothing_selected_and_nobody_to_ask_loads_nothing(self):
        for path in (self.score, self.folder / "none.musicxml"):
            self.refuses("brvhost: nothing is selected, and there is no terminal to ask on: name a region (--staves, --parts, "
                         "--measures, --start-at, --end-at, --layers, --voices), take the whole score (--all), or agree to every question (--yes)\n",
                         HIDE, path, "--out-dir", self.folder / "new")
    def test_writes_to_no_score_without_being_asked_to(self):
        other = self.write("other.musicxml", score())
        folder = self.folder / "results"
        folder.mkdir()
        link = self.folder / "link.musicxml"
        link.symlink_to(self.score)
        hard_link = self.folder / "hard link.musicxml"
        os.link(self.score, hard_link)
        here = self.folder / "here"
        here.symlink_to(self.folder)
        self.refuses(f"{self.score}: is one of the scores; only --in-place writes to a score\n", HIDE, "--all", self.score,
                     "-o", self.score)
        for name in (link, hard_link, here / "score.musicxml", f"{self.folder}/./score.musicxml"):
            self.refuses(f"{name}: is the score {self.score}; only --in-place writes to a score\n", HIDE, "--all",
                         self.score, "-o", name)
        self.refuses(f"{here}/score.musicxml: is the score {self.score}; ", HIDE, "--all", self.score, "--out-dir", here)
        (folder / "score.musicxml").symlink_to(other)
        self.refuses(f"{folder}/score.musicxml: is the score {other}; ", HIDE, "--all", self.score, other, "--out-dir",
                     folder)
        none = self.folder / "none.musicxml"
        self.refuses(f"{none}: is one of the scores; ", HIDE, "--all", none, "-o", none)

    def test_has_two_results_for_one_file(self):
        hard_link = self.folder / "hard link.musicxml"
        os.link(self.score, hard_link)
        self.refuses(f"{self.score}: two of the results would be this file\n", HIDE, "--all", self.score, self.score,
                     "--in-place")
        for name in (hard_link, f"{self.folder}/./score.musicxml"):
            self.refuses(f"{name}: two of the results would be this file, which is also named {self.score}\n", HIDE, "--all",
                         self.score, name, "--in-place")
        folders = [self.folder / "a", self.folder / "b"]
        for folder in folders:
            folder.mkdir()
        self.refuses(f"{self.folder}/score.musicxml: two of the results would be this file\n", HIDE, "--all",
                     *(folder / "score.musicxml" for folder in folders), "--out-dir", self.folder)



class WrongCommandLines(Case):
    """The same words with every release of the library that parses command lines."""

    def refuses(self, message, *arguments):
        process = brvhost(*arguments)
        self.assertEqual((process.returncode, process.stdout, process.stderr), (2, "", f"brvhost: {message}\n"), arguments)

    def refuses_run(self, message, *options):
        self.refuses(message, "run", LEGER_LINES, SAMPLES / "piano.musicxml", "--dry-run", *options)

    def test_lack_a_command(self):
        for arguments in ([], [""], ["", "run"]):
            self.refuses("a command is missing, one of list, items, info, run, check, fuzz, calls, new, help; --help explains them",
                         *arguments)

    def test_name_a_command_that_there_is_not(self):
        self.refuses("there is no command fly; --help lists them", "fly")

    def test_mistype_a_command(self):
        for mistyped, meant in (("rnu", "run"), ("item", "items"), ("chekc", "check"), ("Info", "info")):
            self.refuses(f"there is no command {mistyped}; did you mean {meant}?", mistyped)

    def test_mistype_an_option_before_the_command(self):
        self.refuses("there is no option --verison before a command; did you mean --version?", "--verison")
        self.refuses("there is no option --item=0 before a command; it comes after a command, such as run", "--item=0", "run")

    def test_have_before_the_command_what_is_no_option(self):
        for argument in ("--fly", "--fly=1", "--version=3", "--help=run", "--run.all", "-hx", "--"):
            self.refuses(f"there is no option {argument} before a command; --help lists what there is", argument, "run")

    def test_lack_an_argument(self):
        for command, argument in (("items", "BUNDLE"), ("info", "SCORE"), ("run", "BUNDLE"), ("check", "BUNDLE")):
            self.refuses(f"{command} needs {argument}; `brvhost {command} --help` explains what it takes", command)
        self.refuses("run needs SCORE; `brvhost run --help` explains what it takes", "run", "a", "--item", "0")

    def test_lack_an_option(self):
        self.refuses("run needs --item ITEM; `brvhost run --help` explains what it takes", "run", "a", "b")

    def test_have_an_option_that_there_is_not(self):
        for option in ("--fly", "--fly=1", "-z", "-za"):
            self.refuses(f"there is no option {option}; `brvhost info --help` explains what it takes", "info", "a", option)
        for option, meant in (("--itme", "--item"), ("--mesures=3", "--measures"), ("-staves", "--staves"), ("--rec", "--recursive")):
            self.refuses(f"there is no option {option}; did you mean {meant}?", "run", "a", "b", option, "0")

    def test_have_too_many_arguments(self):
        for arguments in (("a", "b"), ("a", "b", "c"), ("a", "--", "b")):
            self.refuses("b: is one argument too many; `brvhost items --help` explains what it takes", "items", *arguments)
        self.refuses("info: is one argument too many; `brvhost items --help` explains what it takes", "items", "a", "info", "b")

    def test_end_before_the_value_of_an_option(self):
        for option, value in (("--item", "ITEM"), ("--staves", "LIST"), ("--jobs", "N"), ("--timeout", "SECONDS"),
                              ("--max-size", "SIZE"), ("--layers", "LIST"), ("--out-dir", "DIR"), ("--output", "FILE")):
            self.refuses_run(f"{option}: needs a value, {option} {value}", option)
        self.refuses_run("-o: needs a value, --output FILE", "-o")

    def test_have_nothing_where_a_value_should_be(self):
        for option, value in (("--item", "ITEM"), ("--staves", "LIST"), ("--output", "FILE")):
            self.refuses_run(f"{option}: is empty", option, "")
            # The next argument is not the value, either.
            self.refuses_run(f"{option}=: needs a value, {option} {value}", f"{option}=", "0")

    def test_have_a_value_where_there_is_none(self):
        for value in ("", "3", "false", "maybe"):
            self.refuses_run(f"--all={value}: --all takes no value", f"--all={value}")
        self.refuses("--no-confine=3: --no-confine takes no value", "check", "a", "--no-confine=3")

    def test_repeat_an_option(self):
        self.refuses_run("--staves: is given 3 times; give it once", "--item", "0", *("--staves", "1") * 3)

    def test_may_repeat_scores_and_what_takes_no_value(self):
        self.refuses("run needs --item ITEM; `brvhost run --help` explains what it takes", "run", "a", "b", "c", "--all", "--all")

    def test_have_only_arguments_after_two_dashes(self):
        self.refuses("--max-size=: No such file or directory", "info", "--", "--max-size=")

    def test_have_a_number_that_is_none_or_out_of_range(self):
        self.refuses_run("--item 99999999999: is not a whole number from 0 on", "--item", "99999999999")
        ranges = {"--jobs": ("257", "1 to 256"), "--timeout": ("0", "1 to 1000000")}
        for option, (outside, limits) in ranges.items():
            for value in (outside, "x", "1.5", "1x", "0x1", "99999999999", "--all"):
                self.refuses_run(f"{option} {value}: is not a whole number from {limits}", option, value)

    def test_have_a_size_that_is_none_or_out_of_range(self):
        for option in ("--max-size", "--max-memory"):
            for value in ("-1", "0", "x", "KB", "1.5GB", "10XB", "5iB", "0x10", "1025TB", "2P", "99999999999999999999"):
                self.refuses(f"{option} {value}: is not a size such as 500000, 20MB or 2GB, from 1 byte to 1024 TB",
                             "info", "a", option, value)


class Streams(Case):
    def test_that_lose_a_result_are_reported(self):
        for command in (["info", SAMPLES / "winds.musicxml"], ["items", LEGER_LINES], ["--help"]):
            with open("/dev/full", "w") as full:
                process = subprocess.run([PROGRAM, *map(str, command)], stdin=subprocess.DEVNULL, stdout=full,
                                         stderr=subprocess.PIPE, text=True, timeout=60)
            self.assertEqual((process.returncode, process.stderr),
                             (1, "brvhost: the standard output cannot be written\n"))

    def test_that_are_closed_do_not_stop_the_work(self):
        for streams in ("<&-", ">&-", "2>&-", "<&- >&- 2>&-"):
            for count in (1, 3):
                with self.subTest(streams=streams, count=count):
                    scores = [self.write(f"{number}.musicxml", score()) for number in range(count)]
                    process = subprocess.run(["bash", "-c", f'exec "$@" {streams}', "bash", PROGRAM, "run", LEGER_LINES,
                                              "--item", "0", "--all", "--in-place", *map(str, scores)],
                                             stdin=subprocess.DEVNULL, capture_output=True, timeout=60)
                    self.assertEqual(process.returncode, 1 if ">&-" in streams.split() else 0)
                    self.assertEqual([path.read_text() for path in scores], [score(HIDDEN_NOTE)] * count)

    def test_that_nobody_reads_any_more_do_not_stop_the_work(self):
        scores = [self.write(f"{number}.musicxml", score()) for number in range(20)]
        process = subprocess.run(["bash", "-c", '"$@" | true; exit ${PIPESTATUS[0]}', "bash", PROGRAM, "run",
                                  faulty("shows_terminal_controls"), "--item", "0", "--all", "--in-place", *map(str, scores)],
                                 stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60)
        self.assertEqual((process.returncode, process.stderr), (1, "brvhost: the standard output cannot be written\n"))

    def test_that_lose_messages_do_not_stop_the_work(self):
        bad = self.write("bad.musicxml", "<nothing/>")
        good = self.write("good.musicxml", score())
        with open("/dev/full", "w") as full:
            process = subprocess.run([PROGRAM, "run", LEGER_LINES, "--item", "0", "--all", "--in-place", str(bad), str(good)],
                                     stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=full, timeout=60)
        self.assertEqual(process.returncode, 2)
        self.assertEqual(good.read_text(), score(HIDDEN_NOTE))

    @unittest.skipIf(SANITIZED, "the sanitizer needs descriptors of its own")
    def test_have_too_few_descriptors_for_all_jobs(self):
        scores = [self.write(f"{number}.musicxml", score()) for number in range(8)]
        process = subprocess.run(["bash", "-c", 'ulimit -n 13; exec "$@"', "bash", PROGRAM, "run", LEGER_LINES, "--item", "0",
                                  "--all", "--in-place", "--jobs", "8", *map(str, scores)],
                                 stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60)
        self.succeeds(process)
        self.assertIn("8 scores: 8 changed", process.stdout)


if __name__ == "__main__":
    unittest.main()
