"""The Debian packages: what debian/ lists is what is installed, and it agrees with the library and the version."""

import fnmatch
import json
import pathlib
import platform
import re
import subprocess
import unittest

from brvhost import Case, brvhost
from installed import BUILD, SOURCE, install

DEBIAN = SOURCE / "debian"
PACKAGES = ["brvhost", "libbrvedk-dev", "libbrvplatform1"]
RELEASE = platform.freedesktop_os_release()
IS_DEBIAN = RELEASE["ID"] == "debian" and "VERSION_ID" in RELEASE


def lines(path):
    return [line for line in path.read_text().splitlines() if line and not line.startswith("#")]


def patterns(path):
    """What a list names. Where a package has a folder for its processor, this build may have none."""
    libraries = re.search(r"^CMAKE_INSTALL_LIBDIR:\w+=(.*)$", (BUILD / "CMakeCache.txt").read_text(), re.MULTILINE)[1]
    return [line.split()[0].replace("usr/lib/*/", f"usr/{libraries}/") for line in lines(path)]


def is_listed(file, pattern):
    return fnmatch.fnmatch(file, pattern) or fnmatch.fnmatch(file, pattern + "/*")


class Contents(Case):
    def setUp(self):
        super().setUp()
        install(self.folder / "usr")
        self.files = {path.relative_to(self.folder).as_posix() for path in self.folder.rglob("*") if not path.is_dir()}
        self.lists = {name: patterns(DEBIAN / f"{name}.install") for name in PACKAGES}
        self.lists["none"] = patterns(DEBIAN / "not-installed")

    def test_each_installed_file_is_in_one_package(self):
        listed = {file: [name for name, listed in self.lists.items() if any(is_listed(file, pattern) for pattern in listed)]
                  for file in self.files}
        self.assertEqual({file: names for file, names in listed.items() if len(names) != 1}, {})

    def test_each_line_of_a_list_names_installed_files(self):
        empty = [pattern for listed in self.lists.values() for pattern in listed
                 if not any(is_listed(file, pattern) for file in self.files)]
        self.assertEqual(empty, [])

    def test_each_list_is_that_of_a_package(self):
        described = re.findall(r"^Package: (.*)$", (DEBIAN / "control").read_text(), re.MULTILINE)
        self.assertEqual(sorted(described), PACKAGES)
        self.assertEqual(sorted(path.stem for path in DEBIAN.glob("*.install")), PACKAGES)


class Library(unittest.TestCase):
    def test_has_the_listed_symbols(self):
        library = BUILD / "lib" / "libbrvplatform.so"
        output = subprocess.run(["nm", "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
        head, package, *symbols = lines(DEBIAN / "libbrvplatform1.symbols")
        self.assertEqual((head, package), (f"{library.name}.1 libbrvplatform1 #MINVER#", "* Build-Depends-Package: libbrvedk-dev"))
        self.assertEqual([line.split("@")[0].strip() for line in symbols], sorted(line.split()[-1] for line in output.splitlines()))


def source_version():
    return re.search(r"^project\(LegerLines VERSION ([\d.]+)", (SOURCE / "CMakeLists.txt").read_text(), re.MULTILINE)[1]


def package_version():
    """That of a package which is built here."""
    command = ["make", "-s", "-f", "debian/rules", "--eval", "version: ; @echo $(DEB_VERSION)$(RELEASE)", "version"]
    return subprocess.run(command, cwd=SOURCE, check=True, capture_output=True, text=True).stdout.strip()


class Version(unittest.TestCase):
    def test_is_the_same_everywhere(self):
        version = source_version()
        changelog, *_ = lines(DEBIAN / "changelog")
        self.assertRegex(changelog, rf"^legerlines \({re.escape(version)}\) ")
        self.assertEqual(re.search(r"^## (\S+)", (SOURCE / "CHANGELOG.md").read_text(), re.MULTILINE)[1], version)
        self.assertEqual(brvhost("--version").stdout.strip().partition("+")[0], f"brvhost {version}")
        for name in ("package.json", "package-lock.json"):
            self.assertEqual(json.loads((SOURCE / "preview" / name).read_text())["version"], version)

    @unittest.skipUnless(IS_DEBIAN and pathlib.Path("/usr/share/dpkg/pkg-info.mk").exists(), "no release of Debian with dpkg-dev")
    def test_grows_with_the_release_of_debian_and_with_each_version(self):
        version, release = package_version(), int(RELEASE["VERSION_ID"])
        self.assertEqual(version, f"{source_version()}~deb{release}u1")
        for later in (f"{source_version()}~deb{release + 1}u1", f"{source_version()}.1~deb{release - 1}u1", source_version()):
            subprocess.run(["dpkg", "--compare-versions", version, "lt", later], check=True)


if __name__ == "__main__":
    unittest.main()
