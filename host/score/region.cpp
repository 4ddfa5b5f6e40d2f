#include "host/score/region.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

struct Span {
  std::int16_t first;
  std::int16_t last;
};

Span SpanOf(const std::optional<NumberRange>& range, int count, const char* what) {
  if (!range) return {1, static_cast<std::int16_t>(count)};
  if (range->first > count) {
    throw InputError(fmt::format("the region starts at {} {}, but the score has only {}", what, range->first, count));
  }
  return {static_cast<std::int16_t>(range->first),
          static_cast<std::int16_t>(std::min(range->last.value_or(count), count))};
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

// Whether the measure that --end-at is for is one of the score's.
bool HasLastMeasure(const RegionRequest& request, const Score& score) {
  return !request.measures || request.measures->last.value_or(score.measures) <= score.measures;
}

void CheckOrder(const EREGION& region) {
  if (region.startMeasure != region.endMeasure || region.startPosition <= region.endPosition) return;
  throw InputError(
      fmt::format("the region starts at position {} in measure {}, after its end at position {} (in quarter notes)",
                  QuartersAt(region.startPosition), +region.startMeasure, QuartersAt(region.endPosition)));
}

int LayersOn(const Span& staves, const Score& score) {
  int layers = 0;
  for (const ScoreFrame& frame : score.frames) {
    if (frame.staff >= staves.first && frame.staff <= staves.last) layers = std::max(layers, frame.layer + 1);
  }
  return layers;
}

void CheckLayers(const std::vector<int>& shown, const Span& staves, const Score& score) {
  if (shown.empty()) return;
  const int layers = LayersOn(staves, score);
  const int last = std::ranges::max(shown);
  if (last < layers) return;
  throw InputError(fmt::format("the region is to show layer {}, but its staves have only {}", last + 1, layers));
}

}  // namespace

std::int32_t PositionAt(const Fraction& quarters) { return quarters.Rounded(kTicksPerQuarter).value_or(INT32_MAX); }

EREGION WholeScore(const Score& score) {
  EREGION region{};
  region.startStaff = 1;
  region.startMeasure = 1;
  region.endStaff = static_cast<std::int16_t>(score.staves);
  region.endMeasure = static_cast<std::int16_t>(score.measures);
  region.endPosition = INT32_MAX;
  return region;
}

std::optional<EREGION> RegionOf(const RegionRequest& request, const Score& score) {
  if (request.IsEmpty()) return std::nullopt;
  EREGION region = WholeScore(score);
  const Span staves = SpanOf(request.staves, score.staves, "staff");
  const Span measures = SpanOf(request.measures, score.measures, "measure");
  region.startStaff = staves.first;
  region.endStaff = staves.last;
  region.startMeasure = measures.first;
  region.endMeasure = measures.last;
  CheckLayers(request.layers, staves, score);
  if (request.startAt) region.startPosition = PositionIn(measures.first, *request.startAt, "starts", score);
  if (request.endAt && HasLastMeasure(request, score)) {
    region.endPosition = PositionIn(measures.last, *request.endAt, "ends", score);
  }
  CheckOrder(region);
  return region;
}

}  // namespace brvhost
