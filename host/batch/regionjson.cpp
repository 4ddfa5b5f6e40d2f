#include "host/batch/regionjson.h"

#include <cstdint>

#include "host/score/fraction.h"
#include "host/score/score.h"
#include "host/text/json.h"

namespace brvhost {
namespace {

std::string JsonOfLayers(const std::vector<NumberRun>& layers) {
  return layers.empty() ? "null" : JsonArrayOf(layers, JsonOfRun);
}

std::string JsonOfPosition(std::int32_t position) {
  return position == INT32_MAX ? "null" : JsonOf(TextOf({position, kTicksPerQuarter}));
}

std::string JsonOfBlock(const Block& block) {
  const EREGION& region = block.region;
  return JsonObject()
      .AddJson("staves", JsonOfRun({region.startStaff, region.endStaff}))
      .AddJson("measures", JsonOfRun({region.startMeasure, region.endMeasure}))
      .AddJson("layers", JsonOfLayers(block.layers))
      .AddJson("startAt", JsonOfPosition(region.startPosition))
      .AddJson("endAt", JsonOfPosition(region.endPosition))
      .Text();
}

}  // namespace

std::string JsonOfRun(const NumberRun& run) {
  return JsonObject()
      .AddNumber("first", static_cast<std::uint64_t>(run.first))
      .AddNumber("last", static_cast<std::uint64_t>(run.last))
      .Text();
}

std::string JsonOfRegion(const std::vector<Block>& blocks) {
  return blocks.empty() ? "null" : JsonArrayOf(blocks, JsonOfBlock);
}

}  // namespace brvhost
