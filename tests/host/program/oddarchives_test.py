"""Archives that are not quite in order, and that other programs take."""

import unittest
import zipfile

from brvhost import Case, HIDDEN_NOTE, HIDE, brvhost, run, score


class OddArchives(Case):
    def test_have_paths_that_start_at_the_top(self):
        names = ("x.xml", "./x.xml", "/x.xml", "././x.xml")
        for number, (root, member) in enumerate((root, member) for root in names for member in names):
            path = self.compressed(f"{number}.mxl", score(), root, member)
            self.succeeds(run(HIDE, "--all", "--in-place", path))
            with zipfile.ZipFile(path) as archive:
                self.assertEqual(archive.namelist(), ["META-INF/container.xml", member])
                self.assertEqual(archive.read(member).decode(), score(HIDDEN_NOTE))

    def test_have_the_member_of_the_very_name_first(self):
        path = self.compressed("a.mxl", score(), root="x.xml", member="./x.xml")
        with zipfile.ZipFile(path, "a") as archive:
            archive.writestr("x.xml", score(HIDDEN_NOTE))
        self.assertRegex(brvhost("info", path).stdout, r"hidden +1 ")

    def test_keep_the_bytes_after_their_end(self):
        for rest in (b"\n", bytes(1000), b"PK\5\6", b"signed by nobody " * 1000):
            path = self.compressed("a.mxl", score())
            before = path.read_bytes()
            path.write_bytes(before + rest)
            self.succeeds(brvhost("info", path))
            self.succeeds(run(HIDE, "--all", path, "-o", self.folder / "out.mxl"))
            written = (self.folder / "out.mxl").read_bytes()
            self.assertTrue(written.endswith(rest))
            out = self.write("alone.mxl", written.removesuffix(rest))
            with zipfile.ZipFile(out) as archive:
                self.assertIsNone(archive.testzip())
                self.assertEqual(archive.read("x.xml").decode(), score(HIDDEN_NOTE))
            (self.folder / "out.mxl").unlink()


if __name__ == "__main__":
    unittest.main()
