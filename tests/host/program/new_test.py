"""Extensions that `brvhost new` makes: they build with the installed kit, and their tests pass, as they are."""

import os
import pathlib
import plistlib
import re
import subprocess
import tempfile
import unittest

from brvhost import Case, PROGRAM, brvhost
from installed import SOURCE, install

TEMPLATE = SOURCE / "examples" / "template"
NAME_IS_WRONG = "is no name of an extension: these have letters from A to Z, digits, - and _, and begin with a letter or a digit"


class New(Case):
    def new(self, *arguments):
        return brvhost("new", *arguments, cwd=self.folder)

    def names(self):
        return sorted(path.name for path in self.folder.iterdir())


class Built(New):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = pathlib.Path(folder.name) / "prefix"
        install(cls.prefix)

    def build(self, name, *options):
        """The bundle, and the names of the tests that passed."""
        commands = (["cmake", "-S", ".", "-B", "build", *options], ["cmake", "--build", "build"],
                    ["ctest", "--test-dir", "build", "--output-on-failure"])
        for command in commands:
            process = subprocess.run(command, cwd=self.folder / name, capture_output=True, text=True,
                                     env={**os.environ, "CMAKE_PREFIX_PATH": str(self.prefix)})
            self.assertEqual(process.returncode, 0, process.stdout + process.stderr)
        passed = re.findall(r"^ *\d+/\d+ Test +#\d+: (\S+) .* Passed ", process.stdout, re.MULTILINE)
        return self.folder / name / "build" / f"{name}.bundle", passed

    def test_builds_and_passes_its_tests(self):
        self.succeeds(self.new("Mine"))
        bundle, passed = self.build("Mine", "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Werror")
        self.assertEqual(passed, ["chords", "convention", "score", "result"])
        info = plistlib.loads((bundle / "Contents/Info.plist").read_bytes())
        self.assertEqual((info["CFBundleName"], info["CFBundleIdentifier"]), ("Mine", "org.example.Mine"))
        self.assertEqual(brvhost("items", bundle).stdout.split("\t")[1], "Hide Ledger Lines of Chords")

    def test_builds_under_any_name_with_texts_in_any_language(self):
        known = sorted(path.stem for path in (TEMPLATE / "texts").iterdir())
        for name in ("3-voices_X", "x" * 64):
            self.succeeds(self.new(name, "--languages", ",".join([*known, "zh-Hans", "pt-BR"])))
            bundle, passed = self.build(name)
            self.assertEqual(len(passed), 4)
            folders = sorted(path.stem for path in (bundle / "Contents/Resources").iterdir())
            self.assertEqual(folders, sorted([*known, "zh-Hans", "pt-BR"]))
            item = brvhost("items", bundle, environment={"LANGUAGE": "de"}).stdout.split("\t")[1]
            self.assertEqual(item, "Hilfslinien von Akkorden ausblenden")

    def test_builds_without_brvhost(self):
        self.succeeds(self.new("Mine"))
        process = subprocess.run(["cmake", "-S", "Mine", "-B", "build", "-DBRVHOST="], cwd=self.folder, capture_output=True, text=True,
                                 env={**os.environ, "CMAKE_PREFIX_PATH": str(self.prefix)})
        self.assertEqual(process.returncode, 0, process.stderr)
        self.assertIn("brvhost is not installed: the bundle is not checked, and not tried on a score\n", process.stdout)
        listed = subprocess.run(["ctest", "--test-dir", "build", "-N"], cwd=self.folder, capture_output=True, text=True).stdout
        self.assertEqual(re.findall(r"Test +#\d+: (\S+)", listed), ["chords"])


class Made(New):
    def test_is_the_template_with_the_authors_choices(self):
        process = self.succeeds(self.new("A_b", "--identifier", "com.example.a-b", "--languages", " de, xx,de"))
        self.assertEqual(process.stdout.splitlines()[0], "A_b is made. To build it and run its tests:")
        made = self.folder / "A_b"
        expected = {}
        for path in TEMPLATE.rglob("*"):
            if path.is_file() and path.parent.name != "texts":
                text = path.read_text().replace("@NAME@", "A_b").replace("@IDENTIFIER@", "com.example.a-b")
                expected[str(path.relative_to(TEMPLATE))] = text.replace("@LOCALIZATIONS@", "en.lproj de.lproj xx.lproj")
        for language, texts in (("en", "en"), ("de", "de"), ("xx", "en")):
            comment = "/* To be translated: these are the texts in English. */\n\n" if language == "xx" else ""
            expected[f"{language}.lproj/Localizable.strings"] = comment + (TEMPLATE / f"texts/{texts}.strings").read_text()
        self.assertEqual({str(path.relative_to(made)): path.read_text() for path in made.rglob("*") if path.is_file()}, expected)

    def test_has_an_identifier_that_follows_from_its_name(self):
        self.succeeds(self.new("3_V"))
        self.assertIn("IDENTIFIER org.example.3-V\n", (self.folder / "3_V/CMakeLists.txt").read_text())

    def test_takes_the_place_of_nothing(self):
        (self.folder / "Folder").mkdir()
        self.write("File", "mine")
        (self.folder / "Link").symlink_to("nowhere")
        for name in ("Folder", "File", "Link"):
            self.fails(self.new(name), 1, f"brvhost: {name}: is there already, and stays as it is\n")
        self.assertEqual(self.names(), ["File", "Folder", "Link"])
        self.assertEqual(list((self.folder / "Folder").iterdir()), [])

    def test_is_refused_where_no_folder_can_be(self):
        process = subprocess.run([PROGRAM, "new", "Mine"], cwd="/proc", capture_output=True, text=True)
        self.assertEqual((process.returncode, process.stderr),
                         (1, "brvhost: Mine: cannot make the folder: No such file or directory\n"))

    def test_is_gone_where_a_file_cannot_be_written(self):
        script = 'ulimit -f 0; exec "$0" new Mine'
        process = subprocess.run(["bash", "-c", script, PROGRAM], cwd=self.folder, capture_output=True, text=True)
        self.assertEqual(process.returncode, 1)
        self.assertRegex(process.stderr, r"^brvhost: Mine/\S+: cannot write: File too large\n$")
        self.assertEqual(self.names(), [])


class Choices(New):
    def refuses(self, message, *arguments):
        process = self.new(*arguments)
        self.assertEqual((process.returncode, process.stdout, process.stderr), (2, "", f"brvhost: {message}\n"))
        self.assertEqual(self.names(), [])

    def test_of_a_name_that_cannot_be_are_refused(self):
        for name in ("Wide Leaps", "Größe", "a/b", ".", "..", "_x", "a.b", "a;b", "@NAME@", "a\u0301"):
            self.refuses(f"{name}: {NAME_IS_WRONG}", name)
        self.refuses(f"-x: {NAME_IS_WRONG}", "--", "-x")
        self.refuses("NAME: is empty", "")
        self.refuses("x" * 60 + "...: is longer than 64 characters", "x" * 65)
        for name in ("test", "all", "Makefile", "INSTALL"):
            self.refuses(f"{name}: is a name that CMake needs itself", name)

    def test_of_an_identifier_that_cannot_be_are_refused(self):
        wrong = "is no identifier of a bundle: these are words of letters from A to Z, digits and -, with dots between them, " \
                "such as org.example.Mine"
        for identifier in ("Mine", ".a", "a.", "a..b", "org.example.my_own", "org.example.a b", "a." + "b" * 154):
            shown = identifier if len(identifier) < 60 else "a." + "b" * 58 + "..."
            self.refuses(f"{shown}: {wrong}", "Mine", "--identifier", identifier)
        self.refuses("com.brevixmusic.NotationEngine: is the identifier of the application", "Mine", "--identifier",
                     "com.brevixmusic.NotationEngine")
        self.refuses("--identifier: is empty", "Mine", "--identifier", "")

    def test_of_languages_that_cannot_be_are_refused(self):
        for language in ("german", "DE", "d", "de_AT", "../de", "de-", "pt-BR-x"):
            self.refuses(f"--languages {language}: is no code of a language, such as de, pt-BR or zh-Hans", "Mine", "--languages",
                         f"en,{language}")
        for languages in ("en,", ",de", "de,,fr"):
            self.refuses("--languages: is empty between commas", "Mine", "--languages", languages)
        self.refuses("--languages: is empty", "Mine", "--languages", "")


if __name__ == "__main__":
    unittest.main()
