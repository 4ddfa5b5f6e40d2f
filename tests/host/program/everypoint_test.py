"""An extension that misbehaves in each way at each point where its code runs: a message that names both, the scores as they
were or done, and a batch that goes on where the point is one of a score's."""

import concurrent.futures
import itertools
import os
import unittest

from brvhost import HIDDEN_NOTE, NOTE, SANITIZED, brvhost, score
from misbehaviour import MISBEHAVES, TwoScores, misbehaviour

# Where each point is said to be.
LOADING = {"constructors": "its constructors", **{name: name for name in (
    "main", "BrevixExtensionVersion", "BrevixExtensionInit", "BrevixExtensionEnumerate_UTF16",
    "BrevixExtensionGetMenuStatus")}}
WORKING = {name: name for name in ("BrevixExtensionInvoke", "BrevixExtensionTerminate")}
ENDING = {"destructors": "its destructors", "atexit": "its destructors"}
POINTS = {**LOADING, **WORKING, **ENDING}
# At the end of the extension once more than at that of each score.
ENDED = {*ENDING, "BrevixExtensionTerminate"}

# What each way is said to be: after "its code" or "the extension".
CLAUSES = {
    "crash": "crashed in {}: signal 11 (Segmentation fault)",
    "abort": "crashed in {}: signal 6 (Aborted)",
    "overflow the stack": "crashed in {}: signal 11 (Segmentation fault)",
    "exit": "ended the process in {}, with status 0",
    "_exit": "ended the process in {}, with status 7",
    "close descriptors": "closed the connection to brvhost",
}
THROWS = {
    "throw": ("there is no font", ["terminate called after throwing an instance of 'std::runtime_error'",
                                   "  what():  there is no font"]),
    "throw a number": ("of type int", ["terminate called after throwing an instance of 'int'"]),
}
KILLS = "kill the parent"
WAITS = ("hang", "stop", "print")
# Enough for what is loaded beside all the others, also by a slow machine.
SECONDS = 15 if SANITIZED else 5

# At the end, the loader's status of 0 is as it should be, and nothing is left that descriptors would be needed for.
GOOD_AT_THE_END = {"exit", "close descriptors"}


def while_loaded(point, way):
    where = POINTS[point]
    if way in WAITS:
        return f"is not loaded within {SECONDS} seconds, as it hangs in {where}"
    if way == KILLS:
        return f"while it was loaded, its code lost its guard in {where}, and was killed"
    if way in CLAUSES:
        return f"while it was loaded, its code {CLAUSES[way].format(where)}"
    thrown = f"{where} threw an exception: {THROWS[way][0]}"
    return thrown if point != "constructors" else f"its code does not load: {thrown}"


def at_work(point, way):
    if way in WAITS:
        return f"the extension misbehaves did not end in {point} within {SECONDS} seconds"
    if way == KILLS:
        return "the process of the extension misbehaves is gone"
    if way in CLAUSES:
        return f"the extension misbehaves {CLAUSES[way].format(point)}"
    return f"the extension misbehaves failed: {point} threw an exception: {THROWS[way][0]}"


def at_the_end(point, way):
    """The lines about that, which may be none."""
    where = POINTS[point]
    if way in GOOD_AT_THE_END:
        return []
    before = []
    if way in WAITS:
        clause = f"hung in {where} for {SECONDS} seconds"
    elif way == KILLS:
        clause = f"lost its guard in {where}, and was killed"
    elif way in CLAUSES:
        clause = CLAUSES[way].format(where)
    elif point in ENDING:
        before = [f"misbehaves: {line}" for line in THROWS[way][1]]
        clause = CLAUSES["abort"].format(where)
    else:
        clause = f"failed: {where} threw an exception: {THROWS[way][0]}"
    return [*before, f"brvhost: when it was ended, the extension misbehaves {clause}"]


def outcome(point, way, scores):
    """Status, standard output, the lines on standard error in any order, and whether the scores are changed."""
    if point in LOADING:
        return 3, "", [f"brvhost: {MISBEHAVES}: {while_loaded(point, way)}"], False
    if point in ENDING:
        lines = at_the_end(point, way)
        return (1 if lines else 0), "2 scores: 2 changed, 0 unchanged, 0 failed\n", lines, True
    if way == KILLS:
        return (1, "2 scores: 0 changed, 0 unchanged, 1 failed, 1 not run\n", [
            "brvhost: the process that loaded the extension misbehaves crashed: signal 9 (Killed)",
            f"brvhost: {scores[0]}: {at_work(point, way)}; nothing was written"], False)
    lines = [f"brvhost: {path}: {at_work(point, way)}; nothing was written" for path in scores]
    lines += at_the_end(point, way) if point in ENDED else []
    return 1, "2 scores: 0 changed, 0 unchanged, 2 failed\n", lines, False


# All ways at all points; those that take the time that they are given, at a few points where they are much like another.
FEW = ("BrevixExtensionInit", "BrevixExtensionInvoke", "destructors")
CELLS = [*((point, "hang") for point in POINTS), *itertools.product(FEW, ("stop", "print")),
         *itertools.product(POINTS, (*CLAUSES, *THROWS, KILLS))]
# Nobody has to wait for what waits.
PARALLEL = sum(way in WAITS for _, way in CELLS) + os.cpu_count()


class EveryPoint(TwoScores):
    def misbehave_at(self, cell):
        options = ("--jobs", 2, "--timeout", SECONDS) if cell[1] in WAITS else ("--jobs", 1)
        return self.misbehave("-".join(cell), misbehaviour(*cell), *options)

    def check(self, cell, process, scores):
        status, output, errors, is_changed = outcome(*cell, scores)
        lines = process.stderr.splitlines()
        if cell[1] == "print":
            lines = [line for line in lines if not line.endswith("misbehaves: ")]
        self.assertEqual((sorted(lines), process.stdout, process.returncode), (sorted(errors), output, status))
        self.check_content(scores, score(HIDDEN_NOTE if is_changed else NOTE))

    def test_is_named_with_the_way_and_costs_what_it_must(self):
        with concurrent.futures.ThreadPoolExecutor(PARALLEL) as executor:
            for cell, result in zip(CELLS, executor.map(self.misbehave_at, CELLS)):
                with self.subTest(" at ".join(reversed(cell))):
                    self.check(cell, *result)

    def test_is_named_where_items_are_listed(self):
        for point, way in (("constructors", "crash"), ("main", "exit"), ("BrevixExtensionInit", "throw"),
                           ("BrevixExtensionEnumerate_UTF16", "close descriptors"), ("constructors", "throw a number")):
            with self.subTest(f"{way} at {point}"):
                process = brvhost("items", MISBEHAVES, environment=misbehaviour(point, way))
                self.assertEqual((process.stderr, process.stdout, process.returncode),
                                 (f"brvhost: {MISBEHAVES}: {while_loaded(point, way)}\n", "", 3))


if __name__ == "__main__":
    unittest.main()
