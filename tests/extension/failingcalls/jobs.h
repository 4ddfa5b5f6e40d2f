// What the tests of failing host calls let the bundle do: each job works on a document of its own, in a host of which
// some calls fail.
#pragma once

#include <string>
#include <vector>

#include "recordinghost.h"

struct Outcome {
  std::string text;  // the function's result, and what became of what it works on
  std::vector<HostCall> calls;
};

// Document records

Outcome LoadFretInstrument(FailingCalls failing);
Outcome LoadPlaybackPrefs(FailingCalls failing);
Outcome LoadRowOfThree(FailingCalls failing);
Outcome SavePlaybackPrefs(FailingCalls failing);
Outcome SaveRowOfThree(FailingCalls failing);

// Helpers

Outcome ReportProgress(FailingCalls failing);
Outcome ReportProgressUntilCancelled(FailingCalls failing);
Outcome AskForAnEmptyMeasure(FailingCalls failing);
Outcome NameAStaffOfTwoNames(FailingCalls failing);
Outcome LoadRawText(FailingCalls failing);
Outcome CountThreeSlots(FailingCalls failing);

// The extension

Outcome MakeADialogHandler(FailingCalls failing);
Outcome DisposeOfADialogHandler(FailingCalls failing);
Outcome ListAnItemWithoutTexts(FailingCalls failing);
Outcome HideTwoMeasures(FailingCalls failing);
Outcome ShowTwoMeasures(FailingCalls failing);
Outcome HideInTwoLayers(FailingCalls failing);
Outcome HideWhereNothingIsSelected(FailingCalls failing);
Outcome HideWithTheCancelKeysHeld(FailingCalls failing);
Outcome ShowUntilCancelledInTheSecondMeasure(FailingCalls failing);
