// What a random round finds.
#pragma once

#include <string>

namespace brvhost {

// In the order of their names (NameOf).
enum class FindingKind {
  kCrash,      // a signal ended the process
  kExit,       // the extension ended the process
  kHang,       // it did not return
  kException,  // it threw
  kFrames,     // it left frames loaded, or made wrong calls
  kEdits,      // it left an edit or a progress display open
  kRegion,     // it changed what is outside of its region
  kDecline,    // it did something though the user declined
  kItem,       // it did something for an item that it does not have
  kMemory,     // it wrote to memory that is the host's
  kShortage,   // it took too much memory
};

struct Finding {
  FindingKind kind = FindingKind::kCrash;
  std::string text;  // a clause about the extension, without its subject
};

// "crash", "exit" and so on: the same in all releases.
const char* NameOf(FindingKind kind);

// Whether both are likely to have one cause: they differ in numbers at most, and in what an endless loop was doing.
bool AreAlike(const Finding& a, const Finding& b);

}  // namespace brvhost
