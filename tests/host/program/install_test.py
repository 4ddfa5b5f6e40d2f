"""The installed kit: the tutorial's commands as written, and pkg-config; the installed bundle."""

import os
import re
import subprocess
import unittest

from brvhost import Case, EXECUTABLE_FOLDER, SAMPLES
from installed import SOURCE, install

TUTORIAL = SOURCE / "docs" / "write-an-extension.md"
EXAMPLE = SOURCE / "examples" / "ScoreReport"

# A struct among the declarations, a function that stays inside, and templates of the C++ library in use.
ODD_EXTENSION = """
#include <BrvEDK/brevixpdk.h>
#include <BrvEDK/convention.h>
#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

extern "C" {
struct Pair { int first; int second; };
BRV_EXPORT int SumOfPair(Pair pair);
int StaysInside(Pair pair);
}

int SumOfPair(Pair pair) { return pair.first + pair.second + StaysInside(pair); }
int StaysInside(Pair pair) {
  std::vector<std::string> texts(static_cast<std::size_t>(pair.first), std::to_string(pair.second));
  std::map<std::string, std::vector<Pair>> pairs;
  for (const std::string& text : texts) pairs[text].push_back(pair);
  std::stable_sort(texts.begin(), texts.end());
  if (texts.empty()) throw std::invalid_argument("none");
  return static_cast<int>(pairs.size());
}
uint32 BrevixExtensionVersion() { return kBrvVersion; }
int BrevixExtensionInit(void*, std::uint32_t*) { return 1; }
int BrevixExtensionEnumerate_UTF16(void*, ushort16, MenuItemTexts*) { return 0; }
int BrevixExtensionInvoke(void*, ushort16, EREGION*, EREGION*) { return 0; }
void BrevixExtensionTerminate() {}
int BrevixExtensionGetMenuStatus() { return 1; }
"""


class Installed(Case):
    def setUp(self):
        super().setUp()
        self.prefix = self.folder / "prefix"
        install(self.prefix)

    def sh(self, script, **variables):
        environment = {**os.environ, "LANGUAGE": "en", **{name: str(value) for name, value in variables.items()}}
        process = subprocess.run(["bash", "-e", "-c", script], cwd=self.folder, env=environment, capture_output=True, text=True)
        self.assertEqual(process.returncode, 0, process.stdout + process.stderr)
        return process.stdout

    def test_kit_builds_what_the_tutorial_shows(self):
        text = TUTORIAL.read_text()
        commands = "\n".join(re.findall(r"^```sh\n(.*?)^```$", text, re.MULTILINE | re.DOTALL))
        shown = re.search(r"^```text\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)[1]
        output = self.sh(commands, BREVIX=self.prefix, SCORE=SAMPLES / "winds.musicxml")
        self.assertIn(shown.strip(), output)
        for path in EXAMPLE.rglob("*.*"):
            if path.is_file():
                made = self.folder / "ScoreReport" / path.relative_to(EXAMPLE)
                self.assertEqual(made.read_text(), path.read_text(), "the example is what the tutorial makes")

    def test_kit_builds_what_the_tutorial_starts_with(self):
        commands = "\n".join(re.findall(r"^```bash\n(.*?)^```$", TUTORIAL.read_text(), re.MULTILINE | re.DOTALL))
        output = self.sh(commands, BREVIX=self.prefix, SCORE=SAMPLES / "piano.musicxml")
        self.assertIn("100% tests passed", output)

    def test_kit_is_known_to_pkg_config(self):
        flags = self.sh("pkg-config --cflags --libs brvedk", PKG_CONFIG_PATH=self.prefix / "lib" / "pkgconfig")
        self.assertIn("-lBrvEDK", flags)
        headers = sorted(path.name for path in (self.prefix / "include" / "BrvEDK").glob("*.h"))
        self.assertGreater(len(headers), 15)
        for header in headers:
            self.write(f"include_{header}.cpp", f"#include <BrvEDK/{header}>\n#include <BrvEDK/{header}>\n")
        self.sh(f"c++ -std=c++20 -fsyntax-only -Wall -Wextra -Werror {flags.split(' -L')[0]} include_*.cpp")

    def test_extension_exports_what_its_sources_make_visible(self):
        (self.folder / "Odd").mkdir()
        self.write("Odd/CMakeLists.txt", "cmake_minimum_required(VERSION 3.22)\nproject(Odd CXX)\n"
                                         "set(CMAKE_CXX_STANDARD 20)\nfind_package(BrvEDK REQUIRED)\n"
                                         "brv_add_extension(NAME Odd IDENTIFIER org.example.Odd SOURCES odd.cpp)\n")
        self.write("Odd/odd.cpp", ODD_EXTENSION)
        self.sh("cmake -G Ninja -S Odd -B Odd/build && cmake --build Odd/build", CMAKE_PREFIX_PATH=self.prefix)
        image = self.folder / "Odd/build/Odd.bundle/Contents" / EXECUTABLE_FOLDER / "Odd.so"
        symbols = {line.split()[-1] for line in self.sh(f"nm -D --defined-only {image}").splitlines()}
        listed = (SOURCE / "cmake/kitexports.txt").read_text().splitlines()
        of_every_extension = {line for line in listed if not line.startswith(("#", "_Z", "NewFF", "DisposeFF"))}
        self.assertEqual(of_every_extension - symbols, set())
        self.assertEqual({name for name in symbols - set(listed)}, {"SumOfPair"})

    def test_bundle_is_where_the_manual_page_says(self):
        page = " ".join((self.prefix / "share/man/man1/brvhost.1").read_text().replace("\\-", "-").replace("\\&", "").split())
        path = re.search(r"The bundle of LegerLines, .* From the folder of brvhost it is (\S+)\. ", page)[1]
        program = self.prefix / "bin/brvhost"
        self.assertEqual(self.sh(f"{program} items {program.parent / path} | cut -f 2"), "Hide Ledger Lines\nShow Ledger Lines\n")

    def test_bundle_is_found_by_its_name_wherever_it_is_installed(self):
        moved = self.folder / "moved"
        self.prefix.rename(moved)
        (self.folder / "brvhost").symlink_to(moved / "bin/brvhost")
        for program in (moved / "bin/brvhost", self.folder / "brvhost"):
            self.assertEqual(self.sh(f"cd /; {program} items LegerLines | cut -f 2"), "Hide Ledger Lines\nShow Ledger Lines\n")
        path = moved / "lib/brvhost/LegerLines.bundle"
        self.assertEqual(self.sh(f"{moved}/bin/brvhost list | cut -f 1,5", HOME=self.folder), f"LegerLines\t{path}\n")

    def test_bundle_does_not_look_for_libraries_itself(self):
        image, = (self.prefix / "lib/brvhost/LegerLines.bundle").rglob("*.so")
        self.assertNotRegex(self.sh(f"readelf -d {image}"), r"\b(RPATH|RUNPATH)\b")


if __name__ == "__main__":
    unittest.main()
