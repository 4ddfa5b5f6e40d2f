#include <cstdint>
#include <cstring>
#include <string>

#include "extension.h"

namespace {

std::string TextOf(const EREGION& region) {
  const auto number = [](std::int32_t value) { return value == INT32_MAX ? "end" : std::to_string(value); };
  return "staves " + number(region.startStaff) + "-" + number(region.endStaff) + " measures " +
         number(region.startMeasure) + "@" + number(region.startPosition) + "-" + number(region.endMeasure) + "@" +
         number(region.endPosition);
}

std::string ShownLayers() {
  std::string text = " layers";
  for (int layer = 0; layer < BX_GetMaxLayers(kBrvVersion); ++layer) {
    if (BX_GetShowLayer(layer, kBrvVersion) != 0) text += " " + std::to_string(layer + 1);
  }
  return text;
}

int changed = 0;  // by all invocations so far

}  // namespace

// Not a fault: an extension that works on its region, shows it, and spoils its records of it.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION* fallback) {
  if (index != 0 || region == nullptr) return 0;
  changed += HideFirstFrame(*region);
  EREGION selected{};
  BX_GetCurERegions(&selected, nullptr, nullptr, kBrvVersion);
  const std::string text = TextOf(*region) + ShownLayers() + "; of " + TextOf(*fallback) + "; " +
                           (std::memcmp(&selected, region, sizeof(selected)) == 0 ? "selected" : "not selected") +
                           "; changed " + std::to_string(changed);
  BX_AlertMessage(nullptr, kAlertMessage, 0, text.c_str(), kBrvVersion);
  std::memset(region, -1, sizeof(*region));
  std::memset(fallback, -1, sizeof(*fallback));
  return 1;
}
