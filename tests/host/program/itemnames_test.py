"""Menu items that are chosen by their names."""

import pathlib
import re
import unittest

from brvhost import Case, HIDDEN_NOTE, LEGER_LINES, faulty, run, score

RESOURCES = pathlib.Path(LEGER_LINES) / "Contents/Resources"


class ItemNames(Case):
    def setUp(self):
        super().setUp()
        self.score = self.write("score.musicxml", score())

    def chosen(self, name, **options):
        """0 where the item hides ledger lines, 1 where it shows them."""
        out = self.folder / "out.musicxml"
        self.succeeds(run(name, "--all", self.score, "-o", out, **options))
        hidden = out.read_text() == score(HIDDEN_NOTE)
        out.unlink()
        return 0 if hidden else 1

    def test_choose_in_every_language_whatever_the_users(self):
        files = sorted(RESOURCES.glob("*.lproj/Localizable.strings"))
        self.assertGreater(len(files), 1)
        for file in files:
            for table, item in (("20000", 0), ("20001", 1)):
                name = re.search(rf'"{table},1" = "(.*)";', file.read_text()).group(1)
                for environment in ({"LANGUAGE": "de"}, {"LANGUAGE": "", "LC_ALL": "C"}):
                    self.assertEqual(self.chosen(name.upper(), environment=environment), item, name)

    def test_choose_by_their_start_and_by_a_part(self):
        for name, item in {"hide": 0, "Show": 1, "einblenden": 1, "ocultar las": 0, " hide ": 0, "0": 0, "1": 1}.items():
            self.assertEqual(self.chosen(name), item, name)

    def test_leave_the_extension_in_the_users_language(self):
        for environment, message in (({"LANGUAGE": "de"}, "Es wurden keine Hilfslinien"), ({"LANGUAGE": "en"}, "No ledger lines were shown")):
            process = self.succeeds(run("afficher", "--all", self.score, "--dry-run", environment=environment))
            self.assertIn(message, process.stdout)

    def refuses(self, name, message, bundle=LEGER_LINES):
        process = run(name, "--all", self.score, "--dry-run", bundle=bundle)
        self.assertEqual((process.returncode, process.stdout, process.stderr), (2, "", f"brvhost: --item {name}: {message}\n"))

    def test_are_refused_where_they_fit_several_or_none(self):
        items = "0 Hide Ledger Lines, 1 Show Ledger Lines"
        self.refuses("lines", f"is in the names of 2 items: {items}")
        self.refuses("tagli", f"is in the names of 2 items: {items}")
        self.refuses("fly", f"is in the name of no item: {items}")
        self.refuses("x", "is in the name of no item: there is none", bundle=faulty("offers_nothing"))

    def test_choose_in_a_bundle_without_texts(self):
        self.succeeds(run("ITEM", "--all", self.score, "--in-place", bundle=faulty("without_fault")))
        self.assertEqual(self.score.read_text(), score(HIDDEN_NOTE))


if __name__ == "__main__":
    unittest.main()
