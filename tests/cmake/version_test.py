"""The version of a build, in a repository of its own: with the commit between releases, and found again at each build."""

import datetime
import email.utils
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
TEMPLATE = SOURCE / "host/version/version.cpp.in"
CMAKE = shutil.which("cmake")
USER = {f"GIT_{role}_{field}": "somebody" for role in ("AUTHOR", "COMMITTER") for field in ("NAME", "EMAIL")}
# Neither the user's settings nor the repository of a hook that runs these tests.
ENVIRONMENT = {**{name: value for name, value in os.environ.items() if not name.startswith("GIT_")}, **USER,
               "GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_NOSYSTEM": "1"}

PROJECT = f"""cmake_minimum_required(VERSION 3.22)
project(Small VERSION 1.0.0 LANGUAGES CXX)
include({SOURCE}/cmake/BrvVersion.cmake)
brv_write_version(small-version {TEMPLATE} ${{CMAKE_BINARY_DIR}}/version.cpp)
add_executable(small main.cpp ${{CMAKE_BINARY_DIR}}/version.cpp)
target_include_directories(small PRIVATE {SOURCE})
add_dependencies(small small-version)
"""
MAIN = """#include "host/version/version.h"
#include <cstdio>
int main() { std::puts(brvhost::kVersion); }
"""


class Sources(unittest.TestCase):
    """A folder of sources."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tree = self.folder / "tree"
        (self.tree / "debian").mkdir(parents=True)
        self.write_changelog("Sun, 22 Nov 2026 03:00:00 +0000", "Tue, 01 Sep 2026 03:00:00 +0000")

    def run_here(self, *command, **variables):
        process = subprocess.run([*map(str, command)], cwd=self.tree, env={**ENVIRONMENT, **variables}, capture_output=True, text=True)
        self.assertEqual(process.returncode, 0, process.stdout + process.stderr)
        return process.stdout

    def write_changelog(self, *times):
        entries = (f"small (1.0.0) unstable; urgency=medium\n\n  * Changes.\n\n -- Somebody <s@example.org>  {time}\n" for time in times)
        (self.tree / "debian/changelog").write_text("\n".join(entries))

    def written(self, **variables):
        """The source file of these sources."""
        output = self.folder / "version.cpp"
        self.run_here(CMAKE, "-DVERSION=1.0.0", f"-DSOURCE={self.tree}", f"-DTEMPLATE={TEMPLATE}", f"-DOUTPUT={output}", "-P",
                      SOURCE / "cmake/BrvWriteVersion.cmake", **variables)
        return output.read_text()

    def version(self, **variables):
        return re.search(r'kVersion = "(.*)";', self.written(**variables))[1]


@unittest.skipUnless(shutil.which("git"), "no git")
class Repository(Sources):
    """Sources under git."""

    def setUp(self):
        super().setUp()
        self.git("init", "--quiet")

    def git(self, *arguments):
        return self.run_here("git", *arguments).strip()

    def commit(self, **files):
        for name, text in files.items():
            (self.tree / name).write_text(text)
            self.git("add", name)
        self.git("commit", "--quiet", "--allow-empty", "--message", "Change.")

    def hash(self):
        return self.git("rev-parse", "HEAD")[:7]


class Checkouts(Repository):
    def test_of_the_tag_that_is_the_version_have_the_version_alone(self):
        self.commit(a="1")
        for tag in (["v1.0.0"], ["1.0.0"], ["--annotate", "--message", "Release.", "v1.0.0"]):
            self.git("tag", *tag)
            self.assertEqual(self.version(), "1.0.0")
            self.git("tag", "--delete", tag[-1])
            self.assertEqual(self.version(), f"1.0.0+1.g{self.hash()}")

    def test_of_a_later_commit_count_from_that_tag(self):
        self.commit(a="1")
        self.git("tag", "v1.0.0")
        for count in (1, 2):
            self.commit(a=f"later {count}")
            self.assertEqual(self.version(), f"1.0.0+{count}.g{self.hash()}")

    def test_of_a_commit_before_that_tag_count_from_the_first(self):
        self.commit(a="1")
        self.git("tag", "v0.9.0")
        self.git("tag", "v1.0.0-rc1")
        self.commit(a="2")
        self.assertEqual(self.version(), f"1.0.0+2.g{self.hash()}")

    def test_in_which_files_differ_are_marked(self):
        self.commit(a="1", b="1")
        for tag, count in (("other", 1), ("v1.0.0", 0)):
            self.git("tag", tag)
            marked = f"1.0.0+{count}.g{self.hash()}.dirty"
            (self.tree / "a").write_text("changed")
            self.assertEqual(self.version(), marked)
            self.git("add", "a")
            self.assertEqual(self.version(), marked)
            self.git("reset", "--quiet", "--hard")
            (self.tree / "b").unlink()
            self.assertEqual(self.version(), marked)
            self.git("reset", "--quiet", "--hard")
        self.assertEqual(self.version(), "1.0.0")

    def test_in_which_files_are_only_newer_or_untracked_are_not_marked(self):
        self.commit(a="1")
        self.git("tag", "v1.0.0")
        os.utime(self.tree / "a", (1, 1))
        (self.tree / "untracked").touch()
        self.assertEqual(self.version(), "1.0.0")

    def test_that_nothing_is_known_of_are_no_release(self):
        self.assertEqual(self.version(), "1.0.0+unknown")
        self.commit(a="1")
        self.git("tag", "v1.0.0")
        self.assertEqual(self.version(PATH=str(self.folder)), "1.0.0+unknown")


class SourcesWithoutARepository(Sources):
    def test_have_the_version_alone(self):
        self.assertEqual(self.version(), "1.0.0")

    @unittest.skipUnless(shutil.which("git"), "no git")
    def test_have_the_version_alone_also_in_the_repository_of_others(self):
        subprocess.run(["git", "init", "--quiet", self.folder], env=ENVIRONMENT, check=True)
        self.assertEqual(self.version(), "1.0.0")


class Releases(Sources):
    def test_have_the_day_of_the_first_entry_of_the_changelog(self):
        self.assertIn('kReleaseDate = "2026-11-22";', self.written())
        for month in range(1, 13):
            time = datetime.datetime(2027, month, 3, tzinfo=datetime.timezone.utc)
            self.write_changelog(email.utils.format_datetime(time))
            self.assertIn(f'kReleaseDate = "{time:%Y-%m-%d}";', self.written())

    def test_need_a_date(self):
        for time in ("", "yesterday", "Sun, 22 Now 2026 03:00:00 +0000"):
            self.write_changelog(time)
            with self.assertRaisesRegex(AssertionError, "debian/changelog: the\\s+first\\s+entry\\s+has\\s+no\\s+date"):
                self.written()


@unittest.skipUnless(shutil.which("ninja"), "no ninja")
class Builds(Repository):
    def setUp(self):
        super().setUp()
        self.build = self.folder / "build"
        self.commit(**{"CMakeLists.txt": PROJECT, "main.cpp": MAIN})
        self.run_here(CMAKE, "-G", "Ninja", "-S", ".", "-B", self.build)

    def compiled(self):
        """The sources that a build compiles."""
        output = self.run_here(CMAKE, "--build", self.build, "--verbose")
        return sorted(pathlib.Path(path).name for path in re.findall(r" -c (\S+)", output))

    def printed(self):
        return self.run_here(self.build / "small").strip()

    def test_compile_one_file_for_another_commit_and_none_for_the_same(self):
        self.assertEqual(self.compiled(), ["main.cpp", "version.cpp"])
        for count in (1, 2):
            self.assertEqual(self.compiled(), [])
            self.assertEqual(self.printed(), f"1.0.0+{count}.g{self.hash()}")
            self.commit()
            self.assertEqual(self.compiled(), ["version.cpp"])


if __name__ == "__main__":
    unittest.main()
