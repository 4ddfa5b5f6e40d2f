// A keeper, as the supervisor sees it, with the score that it is at work on.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <optional>

#include "host/batch/channel.h"
#include "host/batch/findings.h"
#include "host/batch/foreignoutput.h"
#include "host/process/deadline.h"
#include "host/process/descriptor.h"

namespace brvhost {

// The work on one score: a keeper and a worker share it.
struct Work {
  std::size_t job = 0;
  Channel worker;                            // its end of the line, and
  Descriptor printed;                        // of the pipe, until it is started
  ForeignOutput output;                      // of the worker
  Deadline deadline;                         // for both
  bool isHandedOut = false;                  // the worker has the score
  bool isLate = false;                       // it has passed, and the worker is killed
  bool isLost = false;                       // the worker has gone without a result
  std::optional<std::int64_t> workerStatus;  // once it is known to have ended
  Findings findings;
};

// A single score has a thread of the supervisor for its keeper, which takes less time to start.
struct KeeperProcess {
  pid_t process = 0;  // 0: none yet, or a thread
  Channel channel;
  std::optional<Work> work;
};

}  // namespace brvhost
