#include "progress.h"

#include <algorithm>
#include <chrono>

#include "brevixpdk.h"
#include "integerclasses.h"
#include "keyboard.h"

namespace {

constexpr std::int64_t kNanosecondsPerMs = 1'000'000;
constexpr std::int64_t kFirstCheckMs = 667;  // two thirds of a second
constexpr std::int64_t kMaxUnshownMs = 666;
constexpr std::int64_t kBetweenUpdatesMs = 33;  // about thirty times a second

std::int64_t SteadyNanoseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

void ReportUnits(tProgressReport* report, int units) {
  BX_MassEditProgress(report->massEdit, units, 0, 0, -1, kBrvVersion);
}

// Whether the whole job, at the pace so far, will be over before a display is worth opening. The next check is then at
// the time when it should be over.
bool IsTooShortToShow(tProgressReport* report, std::int64_t elapsedMs, int unitsDone) {
  if (unitsDone == 0) return false;
  const std::int64_t wholeJobMs = report->jobSize * elapsedMs / unitsDone;
  if (wholeJobMs > kMaxUnshownMs) return false;
  if (elapsedMs + kBetweenUpdatesMs < wholeJobMs) report->nextCheckMs = wholeJobMs;
  return true;
}

}  // namespace

// Compatibility: the product wraps at 16 bits. BXUtilPRStart takes the size as a 16-bit number, and extensions pass
// this result on to it.
short16 BXUtilPRCalcJobSize(EREGION* region, short16 flags) {
  int size = (flags & kPRLayers) != 0 ? BX_GetMaxLayers(kBrvVersion) : 1;
  if ((flags & kPRMeasures) != 0)
    size = SignExtend16(size * SignExtend16(region->endMeasure + 1 - region->startMeasure));
  if ((flags & kPRStaves) != 0) size = SignExtend16(size * SignExtend16(region->endStaff + 1 - region->startStaff));
  return size;
}

void BXUtilPRStart(tProgressReport* report, ushort16 jobSize) {
  report->massEdit = nullptr;
  report->startTime = SteadyNanoseconds();
  report->nextCheckMs = kFirstCheckMs;
  report->jobSize = static_cast<std::uint16_t>(jobSize);
  report->unitsReported = 0;
}

short16 BXUtilPRUpdate(tProgressReport* report, ushort16 unitsDone) {
  if (EventUtilCancelInQueue()) return 0;
  const std::int64_t elapsedMs = (SteadyNanoseconds() - report->startTime) / kNanosecondsPerMs;
  if (elapsedMs < report->nextCheckMs || report->unitsReported >= ZeroExtend16(unitsDone)) return 1;
  report->nextCheckMs = elapsedMs + kBetweenUpdatesMs;
  const int shown = std::min<int>(report->jobSize, ZeroExtend16(unitsDone));
  if (report->massEdit == nullptr) {
    if (IsTooShortToShow(report, elapsedMs, shown)) return 1;
    report->massEdit = BX_StartMassEdit(nullptr, report->jobSize, kBrvVersion);
    if (report->massEdit == nullptr) return 1;
  }
  ReportUnits(report, SignExtend16(shown - report->unitsReported));
  report->unitsReported = static_cast<std::uint16_t>(shown);
  return 1;
}

void BXUtilPREnd(tProgressReport* report, short16 cancelled) {
  if (report->massEdit == nullptr) return;
  const int rest = SignExtend16(report->jobSize - report->unitsReported);
  if (SignExtend16(cancelled) == 0 && rest > 0) ReportUnits(report, rest);
  BX_EndMassEdit(report->massEdit, cancelled, kBrvVersion);
}
