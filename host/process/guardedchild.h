// A process that runs foreign code: nothing that it does ends this one, and nothing that it starts outlives either.
#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>

#include "host/process/descriptor.h"

namespace brvhost {

// Between this process and the child stands a guard, which runs no foreign code and stays until the child has ended. It
// kills the child and all of its descendants when this process asks for it, or ends, in whatever way. It holds no
// descriptor of this process's.
class GuardedChild {
 public:
  // Starts a process that does the work and ends with the status that the work returns. It is in a session of its
  // own, without a terminal, and has the signals' default actions. Throws std::system_error.
  explicit GuardedChild(const std::function<int()>& work);
  // Kills what is left.
  ~GuardedChild();
  GuardedChild(const GuardedChild&) = delete;
  GuardedChild& operator=(const GuardedChild&) = delete;

  // Waits for its end, that many milliseconds at most, or until a signal comes.
  [[nodiscard]] bool WaitForEnd(int milliseconds) const;
  // Kills the descendants that have lost their parents.
  void KillOrphans() const;
  // Kills the child and all of its descendants.
  void KillAll() const;
  // Waits until nothing is left, and returns the child's status as waitpid gives it; null when somebody killed the
  // guard.
  std::optional<int> Wait();
  // Kills all, and waits.
  std::optional<int> KillAndWait();
  // For another child of this process, which has no part in this one.
  void Forget() { socket_ = {}; }

 private:
  Descriptor socket_;
  pid_t guard_ = 0;
};

}  // namespace brvhost
