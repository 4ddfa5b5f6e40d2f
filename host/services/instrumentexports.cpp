// Instrument slots, as extensions find them by name. An ID is a staff; its slots are the instruments that the staff's
// part declares, from 1. Instruments count from 1 through all parts.
#include "BrvEDK/Source/brevixpdk.h"
#include "BrvEDK/Source/integerclasses.h"
#include "host/score/score.h"
#include "host/services/serve.h"

namespace {

using brvhost::ScorePart;
using brvhost::Serve;
using brvhost::Session;

// The instruments of one part, by their numbers in the score.
struct Instruments {
  int before = 0;
  int count = 0;
};

Instruments InstrumentsOfStaff(const Session& session, int staff) {
  const brvhost::Score& score = session.Document().GetScore();
  const ScorePart* const part = score.PartOfStaff(staff);
  if (part == nullptr) return {};
  Instruments found{0, part->instruments};
  for (const ScorePart* earlier = score.parts.data(); earlier != part; ++earlier) found.before += earlier->instruments;
  return found;
}

}  // namespace

extern "C" {

short16 BX_SlotToInst(short16 slot, ushort16 staff, BrvVersion) {
  return Serve(0, [&](const Session& session) {
    const int wanted = SignExtend16(slot);
    const Instruments instruments = InstrumentsOfStaff(session, ZeroExtend16(staff));
    return wanted >= 1 && wanted <= instruments.count ? instruments.before + wanted : 0;
  });
}

short16 BX_InstToSlot(short16 instrument, ushort16 staff, BrvVersion) {
  return Serve(0, [&](const Session& session) {
    const Instruments instruments = InstrumentsOfStaff(session, ZeroExtend16(staff));
    const int slot = SignExtend16(instrument) - instruments.before;
    return slot >= 1 && slot <= instruments.count ? slot : 0;
  });
}

}  // extern "C"
