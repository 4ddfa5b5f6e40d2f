"""brvhost calls: the functions that an extension can ask its host for, and which of them brvhost has."""

import json
import os
import pathlib
import subprocess
import unittest

from brvhost import Case, PROGRAM, brvhost

SOURCE = pathlib.Path(os.environ["BRV_SOURCE"])
LIST = SOURCE / "tests/BrvEDK/bridge/calls.txt"

# That return nothing.
WITHOUT_RESULT = {"BX_CancelBrevixEdit"}


def documented():
    """The default of each function, by its name."""
    lines = [line.split("\t") for line in LIST.read_text().splitlines() if not line.startswith("#")]
    return {name: int(default) for name, _, _, default in lines}


def exported():
    """The functions that extensions find in brvhost."""
    process = subprocess.run(["nm", "--dynamic", "--defined-only", "--just-symbols", PROGRAM], capture_output=True, text=True)
    return {name for name in process.stdout.split() if name.startswith("BX_")}


class Calls(Case):
    def rows(self):
        return [line.split("\t") for line in self.succeeds(brvhost("calls")).stdout.splitlines()]

    def test_lists_every_function_once(self):
        names = [row[0] for row in self.rows()]
        self.assertCountEqual(names, documented())

    def test_knows_what_brvhost_has_and_what_the_others_return(self):
        defaults = documented()
        answers = {name: "served" if name in exported() else f"default {defaults[name]}" for name in defaults}
        self.assertEqual({row[0]: row[1] for row in self.rows()}, answers)

    def test_has_the_functions_of_a_group_together(self):
        groups = [row[2] for row in self.rows()]
        changes = [group for before, group in zip([None, *groups], groups) if group != before]
        self.assertEqual(len(changes), len(set(groups)))
        self.assertEqual((changes[0], changes[-1]), ("Frames and entries", "Document records"))

    def test_lists_the_same_in_json(self):
        lines = [json.loads(line) for line in self.succeeds(brvhost("calls", "--json")).stdout.splitlines()]
        defaults = {**documented(), **dict.fromkeys(WITHOUT_RESULT)}
        self.assertEqual([[line["name"], line["group"]] for line in lines], [[row[0], row[2]] for row in self.rows()])
        self.assertEqual({line["name"]: line["default"] for line in lines}, defaults)
        self.assertEqual({line["name"] for line in lines if line["served"]}, exported())
        self.assertEqual(lines[0]["arguments"], ["regionScope", "staff", "measure", "layer", "loadFlag"])

    def test_takes_no_argument(self):
        self.fails(brvhost("calls", "more"), 2)


if __name__ == "__main__":
    unittest.main()
