#include "host/commands/infolines.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "host/score/measurenumbers.h"
#include "host/score/numberruns.h"
#include "host/score/summary.h"

namespace brvhost {
namespace {

void Append(std::string& list, const std::string& item) { list += (list.empty() ? "" : ", ") + item; }

std::string LayersText(const std::vector<std::string>& voices) {
  if (voices.empty()) return "none";
  std::string text;
  std::vector<NumberRun> plain;  // whose voices have the same numbers
  const auto appendPlain = [&] {
    plain = Merged(std::move(plain));
    if (!plain.empty()) Append(text, TextOf(plain));
    plain.clear();
  };
  int layer = 0;
  for (const std::string& voice : voices) {
    ++layer;
    if (voice == std::to_string(layer)) {
      plain.push_back({layer, layer});
      continue;
    }
    appendPlain();
    Append(text, fmt::format("{} ({})", layer, voice.empty() ? "a voice without a name" : "voice " + voice));
  }
  appendPlain();
  return text;
}

// Whether each measure's printed number is its order.
bool IsPlain(const Score& score) {
  int order = 0;
  const auto isItsOrder = [&order](const MeasureNumber& number) {
    return number.isPrinted && number.text == std::to_string(++order);
  };
  return std::ranges::all_of(score.measureNumbers, isItsOrder) && order == score.measures;
}

bool IsOne(const std::vector<NumberRun>& numbers) { return numbers.size() == 1 && numbers[0].first == numbers[0].last; }

}  // namespace

std::vector<std::string> LayerLines(const Score& score) {
  std::vector<std::string> lines;
  for (const LayersOfStaves& group : LayersOf(score)) {
    const char* const what = IsOne(group.staves) ? "staff" : "staves";
    lines.push_back(fmt::format("{} {}: {}", what, TextOf(group.staves), LayersText(group.voices)));
  }
  return lines;
}

std::vector<std::string> PrintedLines(const Score& score) {
  std::vector<std::string> lines;
  if (IsPlain(score)) return lines;
  for (const NumberSequence& sequence : SequencesOf(score.measureNumbers)) {
    lines.push_back(fmt::format("{}: {}", TextOf({sequence.measures}), fmt::join(sequence.numbers, ", ")));
  }
  return lines;
}

}  // namespace brvhost
