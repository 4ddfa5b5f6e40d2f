#include "host/batch/regionjson.h"

#include <cstdint>

#include "host/score/fraction.h"
#include "host/score/score.h"
#include "host/text/json.h"

namespace brvhost {
namespace {

std::string JsonOfRange(int first, int last) {
  return JsonObject()
      .AddNumber("first", static_cast<std::uint64_t>(first))
      .AddNumber("last", static_cast<std::uint64_t>(last))
      .Text();
}

// Layers count from 1 here, as on the command line.
std::string JsonOfLayers(const std::vector<int>& layers) {
  if (layers.empty()) return "null";
  std::vector<std::string> numbers;
  for (const int layer : layers) numbers.push_back(std::to_string(layer + 1));
  return JsonArrayOf(numbers);
}

std::string JsonOfPosition(std::int32_t position) {
  return position == INT32_MAX ? "null" : JsonOf(TextOf({position, kTicksPerQuarter}));
}

}  // namespace

std::string JsonOfRegion(const std::optional<EREGION>& region, const std::vector<int>& layers) {
  if (!region) return "null";
  JsonObject block;
  block.AddJson("staves", JsonOfRange(region->startStaff, region->endStaff))
      .AddJson("measures", JsonOfRange(region->startMeasure, region->endMeasure))
      .AddJson("layers", JsonOfLayers(layers))
      .AddJson("startAt", JsonOfPosition(region->startPosition))
      .AddJson("endAt", JsonOfPosition(region->endPosition));
  return JsonArrayOf({block.Text()});
}

}  // namespace brvhost
