#include "host/score/shownlayers.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/text/inputerror.h"
#include "host/text/printable.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

using Runs = std::vector<NumberRun>;
using Voices = std::vector<std::string>;

bool Has(const Voices& voices, const std::string& voice) { return std::ranges::find(voices, voice) != voices.end(); }

int LayersOn(const Runs& staves, const Score& score) {
  int layers = 0;
  for (const ScoreFrame& frame : score.frames) {
    if (frame.layer >= layers && Contains(staves, frame.staff)) layers = frame.layer + 1;
  }
  return layers;
}

Runs LayersIn(const std::vector<NumberRange>& ranges, int count) {
  Runs runs;
  for (const NumberRange& range : ranges) {
    if (range.first > count) {
      throw InputError(fmt::format("the region is to show layer {}, but its staves have only {}", range.first, count));
    }
    runs.push_back({range.first, std::min(range.last.value_or(count), count)});
  }
  return Merged(std::move(runs));
}

// The voices of all these staves, in the order in which they come.
Voices VoicesOn(const Runs& staves, const Score& score) {
  Voices all;
  for (const NumberRun& run : staves) {
    for (int staff = run.first; staff <= run.last; ++staff) {
      for (const std::string& voice : score.VoicesOn(staff)) {
        if (!Has(all, voice)) all.push_back(voice);
      }
    }
  }
  return all;
}

void CheckVoices(const Voices& voices, const Runs& staves, const Score& score) {
  const Voices all = VoicesOn(staves, score);
  for (const std::string& voice : voices) {
    if (Has(all, voice)) continue;
    throw InputError(fmt::format("the region is to show voice {}, but its staves have {}", Excerpt(voice),
                                 all.empty() ? "none" : "only " + ShortList(all)));
  }
}

Runs LayersOf(const Voices& voices, int staff, const Score& score) {
  Runs layers;
  int layer = 0;
  for (const std::string& voice : score.VoicesOn(staff)) {
    ++layer;
    if (Has(voices, voice)) layers.push_back({layer, layer});
  }
  return Merged(std::move(layers));
}

}  // namespace

std::vector<ShownStaves> WithLayers(const std::vector<NumberRange>& layers, const std::vector<NumberRun>& staves,
                                    const Score& score) {
  const Runs shown = layers.empty() ? Runs() : LayersIn(layers, LayersOn(staves, score));
  std::vector<ShownStaves> result;
  result.reserve(staves.size());
  for (const NumberRun& run : staves) result.push_back({run, shown});
  return result;
}

std::vector<ShownStaves> WithVoices(const std::vector<std::string>& voices, const std::vector<NumberRun>& staves,
                                    const Score& score) {
  CheckVoices(voices, staves, score);
  std::vector<ShownStaves> result;
  for (const NumberRun& run : staves) {
    for (int staff = run.first; staff <= run.last; ++staff) {
      Runs layers = LayersOf(voices, staff, score);
      if (layers.empty()) continue;
      const bool goesOn = !result.empty() && result.back().staves.last == staff - 1 && result.back().layers == layers;
      if (goesOn) {
        result.back().staves.last = staff;
      } else {
        result.push_back({{staff, staff}, std::move(layers)});
      }
    }
  }
  return result;
}

}  // namespace brvhost
