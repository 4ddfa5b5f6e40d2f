// Who hears of the calls that an extension makes to its host, and may answer in the place of the host.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "host/calls/hostfunctions.h"

namespace brvhost {

// A call of an extension to its host.
struct InterceptedCall {
  const HostFunction& function;
  std::span<const Register> arguments;  // as they came; without the version

  std::int64_t Number(std::size_t index) const { return NumberIn(arguments[index], function.parameters[index].kind); }
  template <class T>
  T* Pointer(std::size_t index) const {
    return reinterpret_cast<T*>(static_cast<std::uintptr_t>(arguments[index]));
  }
};

// Whether the system lets a program hear of the calls of its extensions.
bool CallsCanBeHeard();

class Interceptor {
 public:
  virtual ~Interceptor() = default;
  // Whether extensions find a function that this program does not have. The calls of it that Before does not answer
  // return the default of the function.
  virtual bool Offers(const HostFunction&) { return false; }
  // An extension looks a function up that this program does not have, and does not find it: it does so once.
  virtual void Miss(const HostFunction&) {}
  // An answer makes the call fail to reach the host.
  virtual std::optional<Register> Before(const InterceptedCall&) { return std::nullopt; }
  // May change the result.
  virtual void After(const InterceptedCall&, Register& /*result*/) {}
};

// As long as it lives, the interceptor, which outlives it, hears of all calls of extensions that look functions up from
// then on. An extension looks a function up once, so this has to start before the extension is loaded. There may be
// several: each hears of every call, the oldest first before the call and last after it, and the first answer counts.
// What an interceptor throws ends up in the open session, like what a host function throws.
//
// Where nobody listens, extensions find the host functions themselves.
class Interception {
 public:
  // Throws std::runtime_error where calls cannot be heard.
  explicit Interception(Interceptor& interceptor);
  ~Interception();
  Interception(const Interception&) = delete;
  Interception& operator=(const Interception&) = delete;

 private:
  Interceptor& interceptor_;
};

// For wrappers: a call of the function of that index. `callOwn` calls the program's own function.
Register CallIntercepted(std::size_t index, std::span<const Register> registers,
                         Register (*callOwn)(void* own, const Register* registers)) noexcept;

}  // namespace brvhost
