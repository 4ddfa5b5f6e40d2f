// What the program ends with.
#pragma once

namespace brvhost {

enum ExitStatus {
  kDone = 0,
  kFailed = 1,     // a result could not be written, an extension crashed, a check failed
  kBadInput = 2,   // bad usage, or a score that cannot be used
  kBadBundle = 3,  // an extension that cannot be used
  kInterrupted = 130,
};

}  // namespace brvhost
