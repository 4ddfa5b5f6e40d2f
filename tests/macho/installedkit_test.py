"""What an author builds for macOS on Linux with the installed kit. Its executables run in casings.

The environment also names the program that writes casings, the compiler, and what every casing is linked with.
"""

import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import unittest

import report_test
from brvhost import Case, EXECUTABLE_FOLDER, brvhost
from installed import build_example, install, run

PARTS = os.environ["BRV_CASING_PARTS"].split(":")
PROCESSORS = {0x01000007, 0x0100000C}
ONLY_SINCE_MACOS_13 = """
#include <charconv>
int Digits(char* text, double value) { return static_cast<int>(std::to_chars(text, text + 9, value).ptr - text); }
"""
# What the C++ library itself has a part of: streams, containers, exceptions and the types of objects.
STREAMS_AND_EXCEPTIONS = """
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace {
struct Base { virtual ~Base() = default; };
struct Derived : Base { int value = 7; };
}
__attribute__((used)) static int UseTheLibrary(void* object) {
  std::map<std::string, std::function<int(int)>> functions = {{"next", [](int n) { return n + 1; }}};
  std::ostringstream stream;
  try {
    if (dynamic_cast<Derived*>(static_cast<Base*>(object)) == nullptr) throw std::runtime_error("another");
    stream << functions.at("next")(1) << 1.5;
  } catch (const std::exception& error) {
    std::cerr << error.what() << typeid(error).name() << std::endl;
  } catch (int number) {
    stream << number;
  }
  return std::stoi(stream.str());
}
"""
ONLY_WITH_OPTION = """
if(APPLE AND NOT "${TONIC} ${MODE}" STREQUAL "C major")
  message(FATAL_ERROR "another key")
endif()
"""


def encase(bundle):
    """Puts the executable for macOS in the place of that for Linux."""
    image = bundle / "Contents/MacOS" / bundle.stem
    source = bundle.parent / "casing.S"
    source.write_bytes(subprocess.run([os.environ["BRV_WRITE_CASING"], image], check=True, capture_output=True).stdout)
    run(os.environ["BRV_COMPILER"], "-shared", "-o", bundle / "Contents" / EXECUTABLE_FOLDER / f"{bundle.stem}.so", source, *PARTS,
        f"-Wl,-rpath,{pathlib.Path(PARTS[-1]).parent}", "-Wl,--no-undefined", "-Wl,--exclude-libs,ALL")
    return bundle


class ScoreReport(report_test.Report):
    """All that holds for its executable for Linux."""

    @classmethod
    def build(cls, folder):
        return encase(build_example(folder, "-DBRV_MACOS=ON"))


class NewExtension(Case):
    """In a folder with blanks, with what the system's C++ library has."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        temporary = tempfile.TemporaryDirectory(prefix="an author's folder ")
        cls.addClassCleanup(temporary.cleanup)
        folder = pathlib.Path(temporary.name)
        install(folder / "prefix")
        made = brvhost("new", "Mine", cwd=folder)
        assert made.returncode == 0, made.stderr
        cls.sources, cls.build = folder / "Mine", folder / "Mine/build"
        cls.bundle = cls.build / "Mine.bundle"
        cls.add(cls.sources / "entrypoints.cpp", STREAMS_AND_EXCEPTIONS)
        cls.add(cls.sources / "CMakeLists.txt", ONLY_WITH_OPTION)
        run("cmake", "-S", cls.sources, "-B", cls.build, f"-DCMAKE_PREFIX_PATH={folder / 'prefix'}", "-DBRV_MACOS=ON",
            "-DBRV_MACOS_OPTIONS=-DTONIC=C;-DMODE=major")
        run("cmake", "--build", cls.build)

    @staticmethod
    def add(path, text):
        path.write_text(path.read_text() + text)

    def test_passes_its_tests(self):
        run("ctest", "--test-dir", self.build)

    def test_has_an_image_for_either_processor(self):
        executable = (self.bundle / "Contents/MacOS/Mine").read_bytes()
        magic, count = struct.unpack_from(">2I", executable)
        self.assertEqual(magic, 0xCAFEBABE)
        self.assertEqual({struct.unpack_from(">I", executable, 8 + 20 * i)[0] for i in range(count)}, PROCESSORS)

    def test_keeps_to_the_calling_convention(self):
        self.succeeds(brvhost("check", "--strict", self.bundle))

    def test_writes_what_its_executable_for_linux_writes(self):
        copy = self.folder / "Mine.bundle"
        shutil.copytree(self.bundle, copy)
        result = self.folder / "result.musicxml"
        self.succeeds(brvhost("run", encase(copy), "--item", "0", "--all", self.sources / "tests/score.musicxml", "-o", result))
        self.assertEqual(result.read_text(), (self.sources / "tests/expected.musicxml").read_text())

    def test_is_not_built_for_macos_with_what_macos_11_lacks(self):
        source = self.sources / "chords.cpp"
        text = source.read_text()
        self.addCleanup(source.write_text, text)
        source.write_text(ONLY_SINCE_MACOS_13 + text)
        process = subprocess.run(["cmake", "--build", self.build], capture_output=True, text=True)
        self.assertNotEqual(process.returncode, 0)
        self.assertIn("error: 'to_chars' is unavailable", process.stderr)


if __name__ == "__main__":
    unittest.main()
