"""The parts of a release: the source archive, from which all else can be made without git, and what is made of the parts."""

import os
import pathlib
import shutil
import subprocess
import tarfile
import tempfile
import unittest

from releaseparts import make_part

SOURCE = pathlib.Path(__file__).parents[2]
IS_CHECKOUT = (SOURCE / ".git").exists() and shutil.which("git") is not None


def write_script(path, commands):
    path.write_text(f"#!/bin/sh\n{commands}\n")
    path.chmod(0o755)


class SourceArchive(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.archive = make_part(SOURCE, "source", cls.folder)
        cls.name = cls.archive.name.removesuffix(".tar.xz")
        with tarfile.open(cls.archive) as archive:
            cls.members = archive.getmembers()
            archive.extractall(cls.folder)
        cls.tree = cls.folder / cls.name

    def test_is_named_after_the_version(self):
        self.assertRegex(self.archive.name, r"^legerlines-\d+\.\d+\.\d+\.tar\.xz$")

    @unittest.skipUnless(IS_CHECKOUT, "these sources are not under git")
    def test_holds_each_tracked_file_and_nothing_else(self):
        output = subprocess.run(["git", "ls-files", "-z"], cwd=SOURCE, check=True, capture_output=True, text=True).stdout
        tracked = [f"{self.name}/{path}" for path in output.split("\0")[:-1]]
        self.assertEqual([member.name for member in self.members], sorted(tracked))

    def test_holds_the_files_as_they_are(self):
        for member in self.members:
            path = pathlib.Path(member.name).relative_to(self.name)
            with self.subTest(str(path)):
                self.assertEqual((self.folder / member.name).read_bytes(), (SOURCE / path).read_bytes())
                self.assertEqual(bool(member.mode & 0o100), os.access(SOURCE / path, os.X_OK))

    def test_names_neither_a_user_nor_the_time_of_its_making(self):
        self.assertEqual({(member.uid, member.gid, member.uname, member.gname) for member in self.members}, {(0, 0, "", "")})
        self.assertEqual(len({member.mtime for member in self.members}), 1)

    def test_is_the_same_when_made_from_what_was_unpacked_and_built_in(self):
        for name in ("build/release", "dist", "preview/node_modules"):
            (self.tree / name).mkdir(parents=True)
            (self.tree / name / "made").touch()
        again = make_part(self.tree, "source", self.folder / "again")
        self.assertEqual(again.read_bytes(), self.archive.read_bytes())

    def test_bears_the_time_that_is_asked_for(self):
        later = make_part(SOURCE, "source", self.folder / "later", SOURCE_DATE_EPOCH="86400")
        with tarfile.open(later) as archive:
            self.assertEqual({member.mtime for member in archive.getmembers()}, {86400})

    def test_is_not_left_where_it_is_not_whole(self):
        tree, made = self.folder / "lacking", self.folder / "made-of-it"
        shutil.copytree(self.tree, tree)
        write_script(tree / "scripts/files.sh", r"printf 'README.md\0none\0'")
        process = subprocess.run([tree / "scripts/package/source.sh", made], capture_output=True, text=True)
        self.assertNotEqual(process.returncode, 0)
        self.assertEqual(process.stdout, "")
        self.assertIn("none: Cannot stat", process.stderr)
        self.assertEqual(list(made.iterdir()), [])


class Release(unittest.TestCase):
    """What scripts/package.sh makes of its parts, which stand-ins make here."""

    def package(self, **statuses):
        """The finished script, and what is in its folder; parts end with these statuses, and make a file if that is 0."""
        with tempfile.TemporaryDirectory() as name:
            tree, folder = pathlib.Path(name, "tree"), pathlib.Path(name, "made")
            (tree / "scripts/package").mkdir(parents=True)
            shutil.copy(SOURCE / "scripts/package.sh", tree / "scripts")
            for part in ("install-dependencies", "install-arm64"):
                write_script(tree / f"scripts/{part}.sh", "exit 1")
            for part in ("source", "bundle", "debs", "preview"):
                status = statuses.get(part, 0)
                write_script(tree / f"scripts/package/{part}.sh", f"echo 'package: no {part}' >&2; exit {status}" if status else
                             f'file="$1/{part}$2"; echo {part} >"$file"; echo "$file"')
            folder.mkdir()
            (folder / "SHA256SUMS").write_text("of an earlier release\n")
            process = subprocess.run([tree / "scripts/package.sh", folder], capture_output=True, text=True)
            sums = folder / "SHA256SUMS"
            checked = sums.exists() and subprocess.run(["sha256sum", "--check", "--quiet", sums], cwd=folder).returncode == 0
            return process, sorted(path.name for path in folder.iterdir()), checked

    def test_has_checksums_of_all_parts(self):
        process, files, checked = self.package()
        self.assertEqual((process.returncode, process.stderr), (0, ""))
        self.assertEqual(files, ["SHA256SUMS", "bundle", "debsamd64", "debsarm64", "preview", "source"])
        self.assertEqual([line.rsplit("/", 1)[-1] for line in process.stdout.splitlines()],
                         ["source", "bundle", "debsamd64", "debsarm64", "preview", "SHA256SUMS"])
        self.assertTrue(checked)

    def test_without_one_part_is_none(self):
        process, files, _ = self.package(bundle=77)
        self.assertEqual(process.returncode, 77)
        self.assertEqual(process.stderr, "package: no bundle\npackage: this is no release: parts of it cannot be made here\n")
        self.assertEqual(files, ["debsamd64", "debsarm64", "preview", "source"])

    def test_ends_with_the_first_part_that_fails(self):
        process, files, _ = self.package(bundle=3)
        self.assertEqual((process.returncode, process.stderr), (3, "package: no bundle\n"))
        self.assertEqual(files, ["source"])


if __name__ == "__main__":
    unittest.main()
