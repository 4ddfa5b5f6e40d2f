"""What the search of the reference finds, and in which order."""

import json
import os
import pathlib
import shutil
import subprocess
import unittest

SEARCH = pathlib.Path(os.environ["BRV_SOURCE"], "docs/site/search.js")
# Title, page, link and text of each place.
INDEX = [
    ["Frames", "Glossary", "glossary.html#frames", "A frame is loaded with BX_LoadTGF, and freed."],
    ["BX_LoadTGF()", "Frames and entries", "frames.html#load", "Loads the frame of a staff."],
    ["BX_FreeTGF()", "Frames and entries", "frames.html#free", "Releases a frame that BX_LoadTGF returned."],
    ["noteID", "EXNOTE", "exnote.html#id", "Never 0."],
    ["kNoteIDBits", "hostrecords.h", "hostrecords.html#bits", "Repeat the low bits of noteID."],
]


@unittest.skipUnless(shutil.which("node"), "no Node")
class Search(unittest.TestCase):
    def found(self, query, index=INDEX):
        program = "const [path, index, query] = process.argv.slice(1); " \
                  "console.log(JSON.stringify(require(path).find(JSON.parse(index), query)));"
        printed = subprocess.run(["node", "-e", program, SEARCH, json.dumps(index), query], capture_output=True, text=True, check=True)
        return [place[2] for place in json.loads(printed.stdout)]

    def test_finds_a_name_in_titles_before_texts(self):
        self.assertEqual(self.found("BX_LoadTGF"), ["frames.html#load", "glossary.html#frames", "frames.html#free"])

    def test_finds_the_whole_title_before_longer_ones_in_any_case(self):
        self.assertEqual(self.found("noteid"), ["exnote.html#id", "hostrecords.html#bits"])

    def test_finds_the_whole_name_of_a_function_before_a_title_that_has_more_of_the_words(self):
        index = [["Loading a frame", "", "guide", ""], ["Load()", "", "function", "Gets a frame."]]
        self.assertEqual(self.found("load frame", index), ["function", "guide"])

    def test_finds_a_function_with_its_parentheses(self):
        self.assertEqual(self.found("BX_FreeTGF()"), ["frames.html#free"])

    def test_needs_every_word_somewhere(self):
        self.assertEqual(self.found("frame staff"), ["frames.html#load"])
        self.assertEqual(self.found("frame staff EXNOTE"), [])

    def test_takes_a_page_for_a_word_too(self):
        self.assertEqual(self.found("glossary"), ["glossary.html#frames"])

    def test_finds_nothing_for_blanks(self):
        self.assertEqual(self.found("  "), [])

    def test_shows_thirty_places_at_most(self):
        self.assertEqual(self.found("many", [[f"many{number}", "", str(number), ""] for number in range(40)]),
                         [str(number) for number in range(30)])


if __name__ == "__main__":
    unittest.main()
