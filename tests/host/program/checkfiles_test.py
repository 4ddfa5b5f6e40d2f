"""brvhost check: faults in the files of a bundle, each found by the fact that is about it, and by no other."""

import shutil
import unittest

from brvhost import brvhost
from bundlefiles import Files


class InfoPlist(Files):
    def test_lacks_keys(self):
        for key in ("CFBundleVersion", "CFBundleName"):
            self.edit(self.info(), rf"\s*<key>{key}</key>\s*<string>.*</string>", "")
        self.finds("has-info-keys", "it lacks CFBundleName, CFBundleVersion")

    def test_has_an_empty_key(self):
        self.edit(self.info(), r"<string>BNDL</string>", "<string></string>")
        self.finds("has-info-keys", "it lacks CFBundlePackageType")

    def test_names_a_region_without_texts(self):
        self.edit(self.info(), r"<string>en</string>", "<string>xx</string>")
        self.finds("has-development-region", "CFBundleDevelopmentRegion is xx, and there is no xx.lproj")


class Texts(Files):
    def test_cannot_be_read(self):
        self.edit(self.strings("it"), r'" = "', '" "')
        line, key = next((number, line.split('"')[1]) for number, line in enumerate(self.strings("it").read_text().splitlines(), 1)
                         if '" "' in line)
        self.finds("has-readable-texts",
                   f'it.lproj/Localizable.strings:{line}: "{key}" should be followed by = "its text" and a semicolon')

    def test_cannot_be_read_in_another_form(self):
        self.strings("it").write_bytes(b"bplist00 and no more")
        self.finds("has-readable-texts", "it.lproj/Localizable.strings is no list of texts")

    def test_of_another_name_cannot_be_read(self):
        (self.strings("it").parent / "InfoPlist.strings").write_text('"a" = "b";\n"c"\n')
        self.assertEqual(self.messages("readable"), [
            'it.lproj/InfoPlist.strings:2: "c" should be followed by = "its text" and a semicolon'])

    def test_lack_a_translation(self):
        for key in ("20100,1", "20100,2"):
            self.edit(self.strings("de"), rf'"{key}" = .*;\n', "")
        [message] = self.messages("has-all")
        self.assertRegex(message, r'^de.lproj/Localizable.strings lacks "20100,1", "20100,2", which \w\w.lproj/Localizable.strings has$')

    def test_lack_a_whole_file(self):
        self.strings("fr").unlink()
        [message] = self.messages("has-all")
        self.assertRegex(message, r'^fr.lproj/Localizable.strings lacks "20000,1", .* and 3 more, which \w\w.lproj/Localizable.strings has$')

    def test_have_other_placeholders(self):
        for language, text in (("en", "%d of %@"), ("de", "%2$@: %1$d"), ("es", "%@ %d"), ("fr", "%d %@"), ("it", "%d %@"), ("ja", "%d %@")):
            self.edit(self.strings(language), r"$", f'"20200,1" = "{text}";\n')
        [message] = self.messages("placeholders")
        self.assertRegex(message, r'^"20200,1" has other placeholders in es.lproj/Localizable.strings than in \w\w.lproj/Localizable.strings$')

    def test_may_be_in_utf_16(self):
        text = self.strings("ja").read_text()
        self.strings("ja").write_bytes(text.encode("utf-16"))
        self.succeeds(brvhost("check", "--strict", "--include", "^has-|placeholders", self.bundle))


class Code(Files):
    def test_that_does_not_load_keeps_no_file_from_being_checked(self):
        shutil.rmtree(next(self.bundle.glob("Contents/*-*")))
        self.edit(self.info(), r"<string>en</string>", "<string>xx</string>")
        process = brvhost("check", "--only-failed", self.bundle)
        failed = [line.rpartition(" ")[2] for line in process.stdout.splitlines() if line.startswith(("FAILED", "warning"))]
        self.assertEqual(failed, ["[exports-entry-points]", "[has-development-region]"])


if __name__ == "__main__":
    unittest.main()
