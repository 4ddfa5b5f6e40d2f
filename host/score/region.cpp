#include "host/score/region.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/score/namedparts.h"
#include "host/score/shownlayers.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

using Ranges = std::vector<NumberRange>;
using Runs = std::vector<NumberRun>;

// The numbers of the ranges that a score has, which counts them up to `count`.
Runs RunsIn(const Ranges& ranges, int count, const char* what) {
  if (ranges.empty()) return {{1, count}};
  Ranges inOrder = ranges;
  std::ranges::sort(inOrder, {}, &NumberRange::first);
  Runs runs;
  for (const NumberRange& range : inOrder) {
    if (range.first > count) {
      throw InputError(fmt::format("the region {} at {} {}, but the score has only {}",
                                   runs.empty() ? "starts" : "goes on", what, range.first, count));
    }
    runs.push_back({range.first, std::min(range.last.value_or(count), count)});
  }
  return Merged(std::move(runs));
}

std::string QuartersAt(std::int32_t position) { return TextOf({position, kTicksPerQuarter}); }

// `does` is what the region does there, in a sentence.
std::int32_t PositionIn(int measure, const Fraction& quarters, const char* does, const Score& score) {
  if (score.measures == 0) throw InputError(fmt::format("the region {} in a measure, but the score has none", does));
  const std::int32_t position = PositionAt(quarters);
  const std::int32_t length = score.LengthOf(measure);
  if (position <= length) return position;
  throw InputError(fmt::format("the region {} at position {} in measure {}, whose length is only {} (in quarter notes)",
                               does, TextOf(quarters), measure, QuartersAt(length)));
}

Ranges RangesByOrder(const std::vector<MeasureRange>& measures, const Score& score) {
  Ranges ranges;
  for (const MeasureRange& range : measures) ranges.push_back(ByOrder(range, score));
  return ranges;
}

// Whether the measure that --end-at is for is one of the score's.
bool HasLast(const Ranges& measures, const Score& score) {
  return std::ranges::all_of(
      measures, [&score](const NumberRange& range) { return range.last.value_or(score.measures) <= score.measures; });
}

void CheckOrder(const EREGION& region) {
  if (region.startMeasure != region.endMeasure || region.startPosition <= region.endPosition) return;
  throw InputError(
      fmt::format("the region starts at position {} in measure {}, after its end at position {} (in quarter notes)",
                  QuartersAt(region.startPosition), +region.startMeasure, QuartersAt(region.endPosition)));
}

std::vector<ShownStaves> ShownStavesOf(const RegionRequest& request, const Score& score) {
  const Runs staves =
      request.parts.empty() ? RunsIn(request.staves, score.staves, "staff") : StavesOfParts(request.parts, score);
  return request.voices.empty() ? WithLayers(request.layers, staves, score) : WithVoices(request.voices, staves, score);
}

EREGION RegionAt(const NumberRun& staves, const NumberRun& measures) {
  EREGION region{};
  region.startStaff = static_cast<std::int16_t>(staves.first);
  region.startMeasure = static_cast<std::int16_t>(measures.first);
  region.endStaff = static_cast<std::int16_t>(staves.last);
  region.endMeasure = static_cast<std::int16_t>(measures.last);
  region.endPosition = INT32_MAX;
  return region;
}

// A region for each run of measures, on all staves.
std::vector<EREGION> RegionsOf(const RegionRequest& request, const Score& score) {
  const Ranges measures = RangesByOrder(request.measures, score);
  std::vector<EREGION> regions;
  for (const NumberRun& run : RunsIn(measures, score.measures, "measure")) {
    regions.push_back(RegionAt({1, score.staves}, run));
  }
  EREGION& first = regions.front();
  EREGION& last = regions.back();
  if (request.startAt) first.startPosition = PositionIn(first.startMeasure, *request.startAt, "starts", score);
  if (request.endAt && HasLast(measures, score)) {
    last.endPosition = PositionIn(last.endMeasure, *request.endAt, "ends", score);
  }
  std::ranges::for_each(regions, CheckOrder);
  return regions;
}

}  // namespace

std::int32_t PositionAt(const Fraction& quarters) { return quarters.Rounded(kTicksPerQuarter).value_or(INT32_MAX); }

EREGION WholeScore(const Score& score) { return RegionAt({1, score.staves}, {1, score.measures}); }

std::vector<Block> BlocksOf(const RegionRequest& request, const Score& score) {
  if (request.IsEmpty()) return {};
  const std::vector<ShownStaves> staves = ShownStavesOf(request, score);
  const std::vector<EREGION> regions = RegionsOf(request, score);
  std::vector<Block> blocks;
  for (const auto& [run, layers] : staves) {
    for (const EREGION& region : regions) {
      blocks.push_back({region, layers});
      blocks.back().region.startStaff = static_cast<std::int16_t>(run.first);
      blocks.back().region.endStaff = static_cast<std::int16_t>(run.last);
    }
  }
  return blocks;
}

}  // namespace brvhost
