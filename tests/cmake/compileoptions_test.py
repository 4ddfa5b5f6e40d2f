"""What sources are compiled with: ours with warnings that are errors only where that is asked for, an author's as he says.

The environment names the sources, a build that is complete, and the options that say which parts it has.
"""

import json
import os
import pathlib
import shlex
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
BUILD = pathlib.Path(os.environ["BRV_BUILD"])
WARNINGS = {"-Wall", "-Wextra", "-Wpedantic", "-Wshadow"}
SANITIZERS = "-fsanitize=address,undefined"
COUNTING = {"--coverage", "-fprofile-update=atomic"}
# Presets for those who change the sources, and for those who only build them.
CHECKING = {"release", "asan", "tsan", "fuzz", "coverage", "clang", "arm64"}
LENIENT = {"macos"}


def run(*command):
    process = subprocess.run(list(map(str, command)), capture_output=True, text=True)
    assert process.returncode == 0, process.stdout + process.stderr


def commands_in(build):
    """The file and the words of each command that compiles."""
    commands = json.loads((build / "compile_commands.json").read_text())
    return [(entry["file"], shlex.split(entry["command"])) for entry in commands]


class OurOptions(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.plain = cls.configured()
        cls.asked = cls.configured("-DBRV_WERROR=ON", "-DBRV_SANITIZE=address,undefined", "-DBRV_COVERAGE=ON")

    @classmethod
    def configured(cls, *options):
        """The commands of a build of the same parts as that of the environment."""
        with tempfile.TemporaryDirectory() as folder:
            run("cmake", "-G", "Ninja", "-S", SOURCE, "-B", folder, *os.environ["BRV_PARTS"].split(), *options)
            return commands_in(pathlib.Path(folder))

    def assert_each_has(self, option, commands):
        self.assertGreater(len(commands), 200)
        self.assertEqual([file for file, words in commands if option not in words], [])

    def test_each_source_is_compiled_with_the_warnings(self):
        for warning in WARNINGS:
            self.assert_each_has(warning, self.plain)

    def test_no_warning_is_an_error_unless_asked_for(self):
        self.assertEqual([file for file, words in self.plain if any(word.startswith("-Werror") for word in words)], [])

    @unittest.skipUnless(os.environ["BRV_COMPILER_IS_TRIED"] == "ON", "a compiler that has not been tried")
    def test_each_warning_is_an_error_where_asked_for(self):
        self.assert_each_has("-Werror", self.asked)

    def test_sources_are_sanitized_only_where_asked_for(self):
        self.assert_each_has(SANITIZERS, self.asked)
        self.assertEqual([file for file, words in self.plain if SANITIZERS in words], [])

    def test_sources_count_what_is_run_only_where_asked_for(self):
        for option in COUNTING:
            self.assert_each_has(option, self.asked)
            self.assertEqual([file for file, words in self.plain if option in words], [])

    def test_developers_presets_ask_for_errors_and_no_others_do(self):
        presets = json.loads((SOURCE / "CMakePresets.json").read_text())["configurePresets"]
        strict = {preset["name"] for preset in presets if preset.get("cacheVariables", {}).get("BRV_WERROR") == "ON"}
        self.assertEqual(strict, CHECKING)
        self.assertEqual({preset["name"] for preset in presets if not preset.get("hidden")}, CHECKING | LENIENT)


class Compilers(unittest.TestCase):
    """Warnings are errors with the compilers that have been tried, and with no others."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "one.cpp").touch()
        (self.folder / "CMakeLists.txt").write_text(
            f"cmake_minimum_required(VERSION 3.22)\nproject(One CXX)\ninclude({SOURCE}/cmake/BrvCompile.cmake)\n"
            "add_library(One one.cpp)\nbrv_compile(One)\n")

    def errs_with(self, compiler, macro, version):
        """Whether warnings are errors with a compiler that takes itself for one of that version."""
        build, pretender = self.folder / f"build-{version}", self.folder / f"c++-{version}"
        pretender.write_text(f'#!/bin/sh\nexec {compiler} -U{macro} -D{macro}={version} "$@"\n')
        pretender.chmod(0o755)
        run("cmake", "-G", "Ninja", "-S", self.folder, "-B", build, f"-DCMAKE_CXX_COMPILER={pretender}", "-DBRV_WERROR=ON")
        ((_, words),) = commands_in(build)
        self.assertLessEqual(WARNINGS, set(words))
        return "-Werror" in words

    def test_of_gnu_are_tried_from_12_to_14(self):
        self.assertEqual([self.errs_with("g++", "__GNUC__", version) for version in (11, 12, 14, 15)],
                         [False, True, True, False])

    @unittest.skipUnless(shutil.which("clang++"), "no clang++")
    def test_of_clang_are_tried_from_14_to_19(self):
        self.assertEqual([self.errs_with("clang++", "__clang_major__", version) for version in (13, 14, 19, 20)],
                         [False, True, True, False])


class ExecutableFolder(unittest.TestCase):
    def printed_for(self, processor):
        with tempfile.NamedTemporaryFile("w", suffix=".cmake") as script:
            script.write(f'include({SOURCE}/cmake/BrvExecutableFolder.cmake)\nmessage("${{BRV_EXECUTABLE_FOLDER}}")\n')
            script.flush()
            command = ["cmake", f"-DCMAKE_SYSTEM_PROCESSOR={processor}", "-P", script.name]
            return subprocess.run(command, capture_output=True, text=True).stderr

    def test_is_named_after_the_processor(self):
        folders = {"x86_64": "Linux-x86-64", "amd64": "Linux-x86-64", "AMD64": "Linux-x86-64", "aarch64": "Linux-arm64",
                   "arm64": "Linux-arm64", "riscv64": "Linux-riscv64"}
        self.assertEqual({processor: self.printed_for(processor).strip() for processor in folders}, folders)

    def test_has_no_name_without_a_processor(self):
        self.assertIn("a toolchain file has to set CMAKE_SYSTEM_PROCESSOR", " ".join(self.printed_for("").split()))


class AuthorsOptions(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_an_extension_is_compiled_with_its_authors_options_alone(self):
        prefix, build = self.folder / "prefix", self.folder / "build"
        run("cmake", "--install", BUILD, "--prefix", prefix)
        (self.folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.22)\nproject(Mine CXX)\nfind_package(BrvEDK REQUIRED)\n"
            "brv_add_extension(NAME Mine IDENTIFIER org.example.Mine SOURCES mine.cpp)\n"
            "target_compile_options(Mine PRIVATE -Wundef)\n")
        (self.folder / "mine.cpp").touch()
        run("cmake", "-G", "Ninja", "-S", self.folder, "-B", build, f"-DCMAKE_PREFIX_PATH={prefix}",
            "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON")
        ((_, words),) = commands_in(build)
        self.assertEqual([word for word in words if word.startswith(("-W", "-fsan", "-fno-san"))], ["-Wundef"])
        self.assertTrue(any(word.endswith("include/BrvEDK/platform") for word in words))


if __name__ == "__main__":
    unittest.main()
