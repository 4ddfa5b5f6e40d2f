// The numbers that are printed at the measures of a score.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/score/numberrange.h"
#include "host/score/numberruns.h"
#include "host/score/score.h"

namespace brvhost {

// A number as it is printed, and which of the measures that have it, from 1.
struct PrintedNumber {
  std::string text;
  std::optional<int> occurrence;
};

// Measures, ends included: by their order, or by printed numbers where it has any. An open end is null.
struct MeasureRange {
  NumberRange byOrder;
  std::optional<PrintedNumber> first;
  std::optional<PrintedNumber> last;

  bool IsPrinted() const { return first || last; }
};

// "m12", "m12/2", "m12-m20/2", "m12-" or "-m20". A backslash before one of "-", "/", "\" and "," makes it a part of the
// number. Null for anything else.
std::optional<MeasureRange> ParsePrintedRange(std::string_view text);

// What stands between the commas that no backslash precedes.
std::vector<std::string> TextsOfPrintedList(std::string_view list);

// The range by the order of the score's measures. A number that measures have whose numbers are printed means none of
// those whose numbers are not. Throws InputError where no measure or several measures have a number, and where the
// range is reversed.
NumberRange ByOrder(const MeasureRange& range, const Score& score);

// Measures next to one another, and their numbers as runs: "(0)", "1-16", "(X1-X4)". Those that are not printed are in
// parentheses.
struct NumberSequence {
  NumberRun measures;
  std::vector<std::string> numbers;
};

// All measures; a sequence ends where numbers start again.
std::vector<NumberSequence> SequencesOf(const std::vector<MeasureNumber>& numbers);

}  // namespace brvhost
