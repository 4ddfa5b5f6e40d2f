// Progress of a long job: a display that the host opens only when the job promises to take long enough to want one.
#pragma once

#include <cstdint>

#include "hostrecords.h"
#include "hosttypes.h"

// The state of one report. The caller owns it, usually on its stack, and leaves the fields to the functions below.
struct tProgressReport {
  void* massEdit;               // the host's handle, null until the display is open
  std::uint16_t jobSize;        // units of the whole job
  std::uint16_t unitsReported;  // units that the host was told of
  std::int64_t startTime;       // of the steady clock, in nanoseconds
  std::int64_t nextCheckMs;     // milliseconds after startTime before which an update does nothing
};
static_assert(sizeof(tProgressReport) == 32);

// What a job's size is counted in.
inline constexpr int kPRMeasures = 1;
inline constexpr int kPRStaves = 2;
inline constexpr int kPRLayers = 4;

extern "C" {

// The number of units of a job over a region: the product of what the flags name, measures, staves and the host's
// greatest number of layers. The arithmetic is 16-bit and wraps.
BRV_EXPORT short16 BXUtilPRCalcJobSize(EREGION* region, short16 flags);

// Starts a report on a job of so many units, 0 to 65535. Nothing is shown yet.
BRV_EXPORT void BXUtilPRStart(tProgressReport* report, ushort16 jobSize);

// To be called after each unit with the number of units done so far. Returns 1 to go on, or 0 when the user holds
// Command-period: the caller then ends the report and the job.
//
// The display opens when the whole job is projected to take more than two thirds of a second, and is updated at most
// about thirty times a second.
BRV_EXPORT short16 BXUtilPRUpdate(tProgressReport* report, ushort16 unitsDone);

// Ends a report, once; cancelled is 1 if the job was broken off, else 0, and then the display is filled up first.
BRV_EXPORT void BXUtilPREnd(tProgressReport* report, short16 cancelled);

}  // extern "C"
