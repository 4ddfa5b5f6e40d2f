"""What brv_add_extension reports of an author's mistakes. The environment names a build of the kit that is complete."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

BUILD = pathlib.Path(os.environ["BRV_BUILD"])
SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
EXAMPLE = SOURCE / "examples" / "template"
CALL = "brv_add_extension(NAME Mine IDENTIFIER org.example.Mine SOURCES entrypoints.cpp chords.cpp LOCALIZATIONS en.lproj)"


class Mistakes(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = pathlib.Path(folder.name)
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, capture_output=True)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "en.lproj").mkdir()
        self.texts = self.folder / "en.lproj/Localizable.strings"
        self.texts.write_text((EXAMPLE / "texts/en.strings").read_text())
        for name in ("entrypoints.cpp", "chords.cpp", "chords.h"):
            (self.folder / name).write_text((EXAMPLE / name).read_text())
        self.call(CALL)

    def call(self, text):
        (self.folder / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.22)\nproject(Mine VERSION 1.0 LANGUAGES CXX)\n"
                                                    f"set(CMAKE_CXX_STANDARD 20)\nfind_package(BrvEDK REQUIRED)\n{text}\n")

    def cmake(self, *arguments):
        """The status, and what is printed on the standard error, on one line."""
        process = subprocess.run(["cmake", *arguments], cwd=self.folder, capture_output=True, text=True,
                                 env={**os.environ, "CMAKE_PREFIX_PATH": str(self.prefix), "XDG_CACHE_HOME": "/nowhere"})
        return process.returncode, " ".join((process.stdout + process.stderr).split())

    def is_refused(self, message, *options):
        status, output = self.cmake("-S", ".", "-B", "build", *options)
        self.assertNotEqual(status, 0)
        self.assertIn(message, output)

    def is_taken(self):
        status, output = self.cmake("-S", ".", "-B", "build")
        self.assertEqual(status, 0, output)

    def test_in_a_call_are_named(self):
        for call, message in (
                (CALL.replace("NAME Mine ", ""), "brv_add_extension: : NAME is missing"),
                (CALL.replace("SOURCES entrypoints.cpp chords.cpp", ""), "brv_add_extension: Mine: SOURCES is missing"),
                (CALL.replace("IDENTIFIER org.example.Mine", ""),
                 "brv_add_extension: Mine: IDENTIFIER is missing, such as org.example.Mine"),
                (CALL.replace("SOURCES", "HEADERS chords.h SOURCES"),
                 "brv_add_extension: there is no list of HEADERS: what the sources mark with BRV_EXPORT is exported"),
                (CALL.replace("en.lproj", "en.lproj de.lproj"),
                 "brv_add_extension: Mine: there is no de.lproj/Localizable.strings")):
            with self.subTest(call):
                self.call(call)
                self.is_refused(message)

    def test_in_an_info_plist_are_named(self):
        self.call(CALL.replace("SOURCES", "INFO_PLIST ${CMAKE_SOURCE_DIR}/own.in SOURCES"))
        own, text = self.folder / "own.in", (SOURCE / "cmake/Info.plist.in").read_text()
        for key in ("CFBundleExecutable", "CFBundleIdentifier"):
            own.write_text(re.sub(rf"\t<key>{key}</key>\n.*\n", "", text))
            self.is_refused(f"{own}: has no text for {key}, which hosts find the bundle by")
        own.write_text(text.replace("<string>@BRV_EXTENSION_NAME@", "<string>Other"))
        self.is_refused(f"{own}: CFBundleExecutable is Other, but the executable is Mine; write @BRV_EXTENSION_NAME@ there")
        own.write_text(text)
        self.is_taken()

    def test_in_texts_are_named_with_their_line(self):
        good = '/* One. */\n"1" = "a; \\" b";\n'
        for bad, line, what in (('"2" = "b"\n"3" = "c";\n', 3, '"2" should be followed by = "its text" and a semicolon'),
                                ('"2" "b";\n', 3, '"2" should be followed by = "its text" and a semicolon'),
                                ('"2" = "b"', 3, '"2" should be followed by = "its text" and a semicolon'),
                                ('"2" = ;\n', 3, '"2" has no text after its ='),
                                ('\n"2" = "b;\n', 4, "the quotation mark has no second one"),
                                ('"2" = "b";;\n', 3, "here should be a key in quotation marks"),
                                ('/* Two.\n"2" = "b";\n', 3, "the comment has no end")):
            with self.subTest(bad):
                self.texts.write_text(good + bad)
                self.is_refused(f"{self.texts}:{line}: {what}")

    def test_are_none_in_texts_of_any_form(self):
        good = '// [One] ;\n/* * ** "x" [ */ "1" = "a\nb"; key = value;\n"2"="\\\\";\t"3";\n"4" = "ü] [ß; ${X} @Y@";\n/***/\n'
        for text in (good.encode(), b"", good.encode("utf-16"), b'"1" = ("a", "b");\n', b'<?xml version="1.0"?><plist/>'):
            self.texts.write_bytes(text)
            self.is_taken()
            copy = self.folder / "build/Mine.bundle/Contents/Resources/en.lproj/Localizable.strings"
            self.assertEqual(copy.read_bytes(), text)

    def test_in_the_tools_for_macos_are_named(self):
        """With what has to be there of the toolchain, so that the next is looked for."""
        zig, system = self.folder / "zig/zig", self.folder / "zig/lib/libc/darwin/libSystem.11.tbd"
        system.parent.mkdir(parents=True)
        fetch = self.prefix / "share/brvedk/cmake/macos/fetch-zig.sh"
        self.assertTrue(os.access(fetch, os.X_OK))
        no_zig = f"BRV_MACOS: there is no Zig 0.11.0: fetch it with {fetch}, or name the program with -DBRV_ZIG=<path>"
        self.is_refused(no_zig, "-DBRV_MACOS=ON")
        self.is_refused(no_zig, f"-DBRV_ZIG={zig}")
        zig.touch()
        self.is_refused(f"BRV_MACOS: {zig} is not in the folder of a Zig 0.11.0, which has lib/libc/darwin/libSystem.11.tbd")
        system.touch()
        for variable, name, package in (("BRV_LD64", "ld64.lld", "lld"), ("BRV_LIPO", "llvm-lipo", "llvm"), ("BRV_NM", "llvm-nm", "llvm")):
            tools = {"BRV_LD64": zig, "BRV_LIPO": zig, "BRV_NM": zig, variable: self.folder / "none"}
            self.is_refused(f"BRV_MACOS: there is no {name}: install the package {package}, or name the program with -D{variable}=<path>",
                            *(f"-D{tool}={path}" for tool, path in tools.items()))

    def test_of_entry_points_are_named(self):
        source = self.folder / "entrypoints.cpp"
        text = source.read_text()
        for change in (text.replace("void BrevixExtensionTerminate() {}\n", ""), text.replace("void BrevixExtensionTerminate", "void BrevixExtensionTerminat")):
            source.write_text(change)
            self.is_taken()
            status, output = self.cmake("--build", "build")
            self.assertNotEqual(status, 0)
            self.assertIn("Mine: exports no BrevixExtensionTerminate: define it in a source that includes <BrvEDK/convention.h>", output)
        source.write_text(text)
        self.assertEqual(self.cmake("--build", "build")[0], 0)


if __name__ == "__main__":
    unittest.main()
