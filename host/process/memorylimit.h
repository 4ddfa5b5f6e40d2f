// A bound on the memory that this process takes.
#pragma once

#include <sys/resource.h>

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>

namespace brvhost {

// There is not enough memory. The message is for people and does not name the file.
class MemoryError : public std::runtime_error {
 public:
  explicit MemoryError(const std::string& message, bool passes = false)
      : std::runtime_error(message), mayPass(passes) {}

  bool mayPass;  // whether there may be more the next time
};

// What the work on an input of that many bytes may take, unless the user allows something else: enough for any real
// score, and no more than the machine has.
std::uint64_t DefaultMemory(std::uint64_t inputSize);

// While it exists, this process and its threads may take that many bytes more than they have.
class MemoryLimit {
 public:
  // The stacks of that many threads, which nearly all stay empty, do not count.
  MemoryLimit(std::uint64_t allowance, int threads);
  ~MemoryLimit();
  MemoryLimit(const MemoryLimit&) = delete;
  MemoryLimit& operator=(const MemoryLimit&) = delete;

  // Does the work and returns its result. Throws MemoryError where the work throws std::bad_alloc.
  template <class Work>
  auto During(const Work& work) const {
    try {
      return work();
    } catch (const std::bad_alloc&) {
      throw MemoryError(error_);  // a copy, which takes no memory
    }
  }

 private:
  rlimit before_ = {};
  MemoryError error_;
};

}  // namespace brvhost
