// Instrument slots, as extensions find them by name. An id is a staff; its slots are the instruments that the staff's
// part declares, from 1. Instruments count from 1 through all parts.
#include "BrvEDK/Source/hosttypes.h"
#include "host/services/session.h"

namespace {

using brvhost::ScorePart;
using brvhost::Session;

// The instruments of one part, by their numbers in the score.
struct Instruments {
  int before = 0;
  int count = 0;
};

Instruments InstrumentsOfStaff(int staff) {
  const Session* const session = Session::Current();
  if (session == nullptr) return {};
  const brvhost::Score& score = session->Document().GetScore();
  const ScorePart* const part = score.PartOfStaff(staff);
  if (part == nullptr) return {};
  Instruments found{0, part->instruments};
  for (const ScorePart* earlier = score.parts.data(); earlier != part; ++earlier) found.before += earlier->instruments;
  return found;
}

}  // namespace

extern "C" {

BRV_EXPORT int BX_SlotToInst(int slot, int staff, BrvVersion) {
  const int wanted = static_cast<std::int16_t>(slot);
  const Instruments instruments = InstrumentsOfStaff(static_cast<std::uint16_t>(staff));
  return wanted >= 1 && wanted <= instruments.count ? instruments.before + wanted : 0;
}

BRV_EXPORT int BX_InstToSlot(int instrument, int staff, BrvVersion) {
  const Instruments instruments = InstrumentsOfStaff(static_cast<std::uint16_t>(staff));
  const int slot = static_cast<std::int16_t>(instrument) - instruments.before;
  return slot >= 1 && slot <= instruments.count ? slot : 0;
}

}  // extern "C"
