"""brvhost check: faults in the executables of a bundle, for whatever system, each found by the fact that is about it alone."""

import os
import struct
import unittest

from brvhost import EXECUTABLE_FOLDER, brvhost
from bundlefiles import FILES, Files
from machfile import ANYTHING, ARM64, ENTRY_POINTS, PROGRAM, SYSTEM, X86_64, machfile, universal

FRAMEWORKS = "/System/Library/Frameworks"


class CodeFiles(Files):
    def write_code(self, folder, content, name="LegerLines"):
        path = self.bundle / "Contents" / folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(content)

    def write_mac(self, **contents):
        """For both processors; what is given holds for the first one."""
        self.write_code("MacOS", universal(machfile(X86_64, **contents), machfile(ARM64)))

    def finds_nothing(self):
        self.assertEqual(self.found(), [])


class Folders(CodeFiles):
    def test_is_in_the_folder_of_another_processor(self):
        for folder, machine, shown in (("Linux-arm64", 62, "Linux on x86-64"), ("Linux-x86-64", 183, "Linux on arm64"),
                                       ("Linux-arm64", 243, "Linux on another processor"), ("MacOS", 62, "Linux on x86-64"),
                                       ("Linux-riscv64", 183, "Linux on arm64")):
            with self.subTest(folder=folder, machine=machine):
                self.write_code(folder, b"\x7fELF\2\1\1" + bytes(11) + bytes([machine, 0]) + bytes(44))
                self.finds("fits-its-folders", f"{folder}/LegerLines is for {shown}")
                (self.bundle / "Contents" / folder / "LegerLines").unlink()

    def test_for_macos_is_in_a_folder_for_linux(self):
        self.write_code("Linux-m68k", universal(machfile(X86_64), machfile(ARM64)))
        self.finds("fits-its-folders", "Linux-m68k/LegerLines is for macOS")

    def test_for_macos_lacks_a_processor(self):
        for content, lacking in ((machfile(X86_64), "arm64"), (machfile(ARM64), "x86_64"), (universal(machfile(X86_64)), "arm64")):
            self.write_code("MacOS", content)
            process = brvhost("check", "--only-failed", "--strict", self.bundle)
            self.assertEqual((process.stdout.splitlines()[0], process.returncode), (
                f"note    has code for both processors in its executable for macOS: MacOS/LegerLines has no code for {lacking} "
                "[runs-on-every-mac]", 0))

    def test_for_macos_may_be_universal(self):
        self.write_mac()
        process = self.succeeds(brvhost("check", "--only-failed", self.bundle))
        self.assertEqual(len(process.stdout.splitlines()), 1)


class Exports(CodeFiles):
    def test_are_looked_for_where_the_code_cannot_be_loaded(self):
        self.write_mac(exports=[name for name in ENTRY_POINTS if name not in ("main", "BrevixExtensionInvoke")])
        self.finds("exports-for-each-system", "MacOS/LegerLines for x86_64 exports no main, BrevixExtensionInvoke")

    def test_are_looked_for_in_each_part_of_a_universal_file(self):
        self.write_code("MacOS", universal(machfile(X86_64), machfile(ARM64, exports=ENTRY_POINTS[1:])))
        self.finds("exports-for-each-system", "MacOS/LegerLines for arm64 exports no main")

    def test_are_looked_for_in_executables_for_other_processors(self):
        other, number = ("Linux-arm64", 183) if EXECUTABLE_FOLDER != "Linux-arm64" else ("Linux-x86-64", 62)
        content = bytearray((self.bundle / "Contents" / EXECUTABLE_FOLDER / "LegerLines.so").read_bytes())
        content[18:20] = struct.pack("<H", number)
        self.write_code(other, bytes(content), "LegerLines.so")
        self.finds_nothing()
        changed = bytes(content).replace(b"\0BrevixExtensionInvoke\0", b"\0BrevixExtensionInvokf\0")
        self.write_code(other, changed, "LegerLines.so")
        self.assertEqual(self.found("exports-for"), [
            ("exports-for-each-system", f"{other}/LegerLines.so exports no BrevixExtensionInvoke")])

    def test_that_are_foreign(self):
        self.write_mac(exports=[*ENTRY_POINTS, "CountOfCalls", "_ZTISt9exception"])
        self.finds("exports-nothing-else", "MacOS/LegerLines for x86_64 exports CountOfCalls, _ZTISt9exception")

    def test_of_the_kit_are_not_foreign(self):
        self.write_mac(exports=[*ENTRY_POINTS, "Ext_invoke", "BX_LoadTGF", "_ZN10eu16stringD1Ev"])
        self.finds_nothing()

    def test_that_linkers_and_sanitizers_add_are_not_foreign(self):
        self.write_mac(exports=[*ENTRY_POINTS, "_init", "_fini", "_edata", "_end", "__bss_start", "__odr_asan.BrevixEditDepth"])
        self.finds_nothing()

    def test_are_looked_for_in_files_alone(self):
        self.write_mac()
        os.mkfifo(self.bundle / "Contents/MacOS/pipe")
        (self.bundle / "Contents/MacOS/folder").mkdir()
        self.finds_nothing()

    def test_of_other_files_are_not_asked_for(self):
        self.write_mac()
        self.write_code("MacOS", machfile(exports=["Helper"]), "libhelper.dylib")
        self.assertEqual(self.found("^exports-(for|nothing)"), [])

    def test_cannot_be_read_where_the_file_ends_early(self):
        whole = machfile(X86_64)
        for content in (whole[:-1], whole[:100], whole[:40]):
            self.write_code("MacOS", universal(content, machfile(ARM64)))
            self.finds("exports-for-each-system", "MacOS/LegerLines ends early")

    def test_cannot_be_read_where_a_file_for_linux_has_no_sections(self):
        path = self.bundle / "Contents" / EXECUTABLE_FOLDER / "LegerLines.so"
        content = bytearray(path.read_bytes())
        content[0x3C:0x3E] = b"\0\0"
        path.write_bytes(content)
        self.finds("exports-for-each-system", f"{EXECUTABLE_FOLDER}/LegerLines.so has no table of what it exports")


class Imports(CodeFiles):
    def test_from_the_system_are_sound(self):
        self.write_mac(imports=[("free", 1, False), ("GetKeys", 2, False), ("anything", 3, False)],
                       libraries=[SYSTEM, f"{FRAMEWORKS}/Carbon.framework/Versions/A/Carbon",
                                  f"{FRAMEWORKS}/Foundation.framework/Versions/C/Foundation"])
        self.finds_nothing()

    def test_from_another_library(self):
        for path in ("/opt/local/lib/libfoo.dylib", "/usr/library/libfoo.dylib", "libfoo.dylib", "@executable_path/libfoo.dylib"):
            self.write_mac(libraries=[SYSTEM, path])
            self.finds("imports-from-macos", f"MacOS/LegerLines for x86_64 needs {path}, which is neither in macOS nor in the bundle")

    def test_from_a_library_that_may_be_missing(self):
        self.write_mac(weak_libraries=["/opt/local/lib/libfoo.dylib"])
        self.finds_nothing()

    def test_from_a_library_in_the_bundle(self):
        self.write_code("MacOS", machfile(exports=["Helper"]), "libhelper.dylib")
        self.write_code("Frameworks", machfile(exports=["Helper"]), "libother.dylib")
        self.write_mac(libraries=["@loader_path/libhelper.dylib", "@rpath/libother.dylib"],
                       search_folders=["/nowhere", "@loader_path/../Frameworks"])
        self.assertEqual(self.found("^imports-"), [])

    def test_from_a_library_that_is_not_where_it_is_looked_for(self):
        (self.folder / "libother.dylib").write_bytes(machfile())
        self.write_code("Frameworks", machfile(), "libother.dylib")
        for path, folders in (("@loader_path/libhelper.dylib", []), ("@loader_path/../../../libother.dylib", []),
                              ("@loader_path/..", []), ("@rpath/libother.dylib", []),
                              ("@rpath/libother.dylib", ["@loader_path", "@loader_path/../../..", f"{self.bundle}/Contents/Frameworks"])):
            self.write_mac(libraries=[path], search_folders=folders)
            self.finds("imports-from-macos", f"MacOS/LegerLines for x86_64 needs {path}, which is neither in macOS nor in the bundle")

    def test_of_other_files_in_the_folder(self):
        self.write_mac()
        self.write_code("MacOS", machfile(libraries=["libfoo.dylib"]), "libhelper.dylib")
        self.assertEqual(self.found("imports-from"), [
            ("imports-from-macos", "MacOS/libhelper.dylib needs libfoo.dylib, which is neither in macOS nor in the bundle")])

    def test_from_no_library(self):
        self.write_mac(imports=[("BX_LoadTGF", PROGRAM, False), ("BX_FreeTGF", ANYTHING, False), ("BX_SaveTGF", ANYTHING, True)])
        self.finds("imports-from-macos", "MacOS/LegerLines for x86_64 imports BX_FreeTGF, BX_LoadTGF from no library")

    def test_that_are_not_known(self):
        self.write_mac(imports=[("GetKeyz", 1, False), ("CFRelease", 2, False), ("CFRelax", 2, False)],
                       libraries=[f"{FRAMEWORKS}/{name}.framework/Versions/A/{name}" for name in ("Carbon", "CoreFoundation")])
        process = brvhost("check", "--only-failed", "--include", FILES, self.bundle)
        self.assertEqual((process.stdout.splitlines()[0], process.returncode), (
            "note    imports names that are known where it is for macOS: MacOS/LegerLines for x86_64 imports CFRelax from "
            "CoreFoundation, GetKeyz from Carbon, which brvhost cannot vouch for [imports-known-names]", 0))


if __name__ == "__main__":
    unittest.main()
