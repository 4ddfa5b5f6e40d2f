// Progress of a long job, with a display that the host opens only if the job is going to take some time.
#pragma once

#include <cstdint>

#include "hostrecords.h"
#include "hosttypes.h"

// The state of one report. The caller owns it, usually on its stack; only the functions below use the fields.
struct tProgressReport {
  void* massEdit;               // the host's handle, null until the display is open
  std::uint16_t jobSize;        // units in the whole job
  std::uint16_t unitsReported;  // units reported to the host so far
  std::int64_t startTime;       // by the steady clock, in nanoseconds
  std::int64_t nextCheckMs;     // in milliseconds after startTime; an earlier update does nothing
};
static_assert(sizeof(tProgressReport) == 32);

// Flags of what a job's size is the product of.
inline constexpr int kPRMeasures = 1;
inline constexpr int kPRStaves = 2;
inline constexpr int kPRLayers = 4;

extern "C" {

// Returns the number of units of a job over a region: the product of the numbers that the flags select, those of its
// measures, its staves and the host's layers. The result wraps at 16 bits.
BRV_EXPORT short16 BXUtilPRCalcJobSize(EREGION* region, short16 flags);

// Starts a report on a job of jobSize units, 0 to 65535. Nothing is shown yet.
BRV_EXPORT void BXUtilPRStart(tProgressReport* report, ushort16 jobSize);

// Call this after each unit, with the number of units done so far. Returns 1 to go on, or 0 if the user holds
// Command-period: then end the report and the job.
//
// The display opens once the whole job is expected to take more than two thirds of a second, and is updated at most
// about thirty times a second.
BRV_EXPORT short16 BXUtilPRUpdate(tProgressReport* report, ushort16 unitsDone);

// Ends a report; call it once. cancelled is 1 if the user stopped the job, else 0, and then the display is filled
// first.
BRV_EXPORT void BXUtilPREnd(tProgressReport* report, short16 cancelled);

}  // extern "C"
