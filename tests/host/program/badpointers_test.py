"""Host functions that are called with bad pointers: a message that names the function, and the score as it was, or a call
that fails or is passed over, and the score done."""

import concurrent.futures
import os
import pathlib
import re
import unittest

from brvhost import HIDDEN_NOTE, NOTE, SANITIZED, score
from misbehaviour import TwoScores, misbehaviour

BAD = ("null", "wild", "odd")

# What comes of a call, other than nothing.
CRASHES = "crashes"
NOT_LOADED = "warning: the extension misbehaves {} a frame that is not loaded"
NOT_STARTED = "warning: the extension misbehaves {} that it has not started"
ADDS = "warning: the extension misbehaves added records to the document, which a score cannot hold: 1 in all"
REMOVES_NOTES = ("the extension misbehaves removed notes from entry 1 of staff 1, measure 1, layer 1; "
                 "a score takes changes of ledger lines alone, and nothing was written")

# Each exported function, and calls of it. A "?" is each bad pointer in turn; what comes of a null, a wild and a misaligned
# one follows, or of all of them alike.
CALLS = {
    "BX_IsMachO": [("", None)],
    "BX_LoadTGF": [("0 1 1 0 1", None)],
    "BX_SaveTGF": [("?", NOT_LOADED.format("saves")), ("frame:?", (CRASHES, CRASHES, REMOVES_NOTES))],
    "BX_FreeTGF": [("?", NOT_LOADED.format("frees")), ("frame:?", None)],
    "BX_GetMaxLayers": [("", None)],
    "BX_GetShowLayer": [("0", None)],
    "BX_StartBrevixEdit": [("?", None)],
    "BX_StartBrevixEdit_UTF16": [("?", None)],
    "BX_EndBrevixEdit": [("", NOT_STARTED.format("ends an edit"))],
    "BX_CancelBrevixEdit": [("", NOT_STARTED.format("ends an edit"))],
    "BX_StartMassEdit": [("? 5", None)],
    "BX_MassEditProgress": [("? 1 0 0 -1", NOT_STARTED.format("moves a progress display"))],
    "BX_EndMassEdit": [("? 0", NOT_STARTED.format("ends a progress display"))],
    "BX_GetCurERegions": [(arguments, (None, CRASHES, None)) for arguments in
                          ("? bytes bytes", "bytes ? bytes", "bytes bytes ?")],
    "BX_SlotToInst": [("1 1", None)],
    "BX_InstToSlot": [("1 1", None)],
    "BX_AlertMessage": [("? 64 0 bytes", None), ("null 64 0 ?", (None, CRASHES, None))],
    "BX_AlertMessage_UTF16": [("? 64 0 bytes", None), ("null 64 0 ?", (None, CRASHES, None))],
    "BX_LoadEData": [(arguments, (None, CRASHES, None)) for arguments in
                     ("SOMS ? bytes size", "SOMS first ? size", "SOMS first bytes ?")],
    # Null data is a record of zeros.
    "BX_SaveEData": [("mine ? bytes 4", (None, CRASHES, ADDS)), ("mine first ? 4", (ADDS, CRASHES, ADDS))],
    "BX_CreateEData": [("mine ? bytes 4", (None, CRASHES, ADDS)), ("mine first ? 4", (ADDS, CRASHES, ADDS))],
    "BX_DeleteEData": [("mine ?", (None, CRASHES, None))],
    "BX_PreviousEData": [("SOMS ? bytes 30", (None, CRASHES, None)), ("SOMS after-first ? 30", (None, CRASHES, None))],
    "BX_NextEData": [("SOMS ? bytes 30", (None, CRASHES, None)), ("SOMS before-first ? 30", (None, CRASHES, None))],
}


def exported_functions():
    definition = re.compile(r"^\w[\w ]*[ *]+(BX_\w+)\(", re.M)
    sources = pathlib.Path(os.environ["BRV_SOURCE"], "host", "services").glob("*exports.cpp")
    return {name for source in sources for name in definition.findall(source.read_text())}


def calls():
    """Each call, and what comes of it. A sanitizer ends what would use a null or misaligned pointer itself."""
    for function, rows in CALLS.items():
        for arguments, outcomes in rows:
            if not isinstance(outcomes, tuple):
                outcomes = (outcomes,) * len(BAD)
            if "?" not in arguments:
                yield f"{function} {arguments}", outcomes[0]
                continue
            for pointer, outcome in zip(BAD, outcomes):
                if not (SANITIZED and (pointer == "odd" or (pointer == "null" and outcome == CRASHES))):
                    yield f"{function} {arguments.replace('?', pointer)}", outcome


class BadPointers(TwoScores):
    def call(self, call):
        return self.misbehave(call, misbehaviour(call=call), "--jobs", 1)

    def check(self, call, outcome, process, scores):
        message = outcome
        if outcome == CRASHES:
            message = (f"the extension misbehaves crashed in {call.split()[0]}, called in BrevixExtensionInvoke: "
                       "signal 11 (Segmentation fault); nothing was written")
        fails = outcome in (CRASHES, REMOVES_NOTES)
        errors = "".join(f"brvhost: {path}: {message}\n" for path in scores if message)
        done = f"2 scores: {0 if fails else 2} changed, 0 unchanged, {2 if fails else 0} failed"
        self.assertEqual((process.stderr, process.stdout.splitlines()[-1], process.returncode), (errors, done, int(fails)))
        self.check_content(scores, score(NOTE if fails else HIDDEN_NOTE))

    def test_cost_the_score_where_they_crash_and_no_other(self):
        cells = list(calls())
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as executor:
            results = executor.map(self.call, [call for call, _ in cells])
            for (call, outcome), (process, scores) in zip(cells, results):
                with self.subTest(call):
                    self.check(call, outcome, process, scores)

    def test_are_tried_with_each_function(self):
        self.assertEqual(set(CALLS), exported_functions(), "CALLS has a line for each function that brvhost serves")


if __name__ == "__main__":
    unittest.main()
