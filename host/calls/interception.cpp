#include "host/calls/interception.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <vector>

#include "host/calls/functionfinder.h"
#include "host/calls/missingfunctions.h"
#include "host/process/whereabouts.h"
#include "host/services/session.h"

namespace brvhost {
namespace {

std::vector<Interceptor*>& Interceptors() {
  static std::vector<Interceptor*> interceptors;
  return interceptors;
}

// Runs what may throw where nothing can be thrown.
template <class Work>
void Guarded(const Work& work) {
  try {
    work();
  } catch (...) {
    if (Session* const session = Session::Current()) session->KeepFailure(std::current_exception());
  }
}

MissingFunctions* missing = nullptr;

void* FindWrapper(const char* name, void* address) {
  if (address != nullptr && Interceptors().empty()) return address;
  const auto index = IndexOfHostFunction(name);
  if (!index) return address;
  const HostFunction& function = HostFunctions()[*index];
  const auto offers = [&](Interceptor* interceptor) { return interceptor->Offers(function); };
  if (address != nullptr || std::ranges::any_of(Interceptors(), offers)) return function.wrapper;
  if (missing != nullptr) missing->isAskedFor[*index] = 1;
  for (Interceptor* const interceptor : Interceptors()) interceptor->Miss(function);
  return nullptr;
}

void* Find(const char* name, void* address) noexcept {
  void* found = address;
  Guarded([&] { found = FindWrapper(name, address); });
  return found;
}

}  // namespace

bool CallsCanBeHeard() { return kFunctionsCanBeChosen; }

Interception::Interception(Interceptor& interceptor) : interceptor_(interceptor) {
  HostFunctions();  // while whoever wants it can still hear that there is no memory
  IndexOfHostFunction("");
  if (!CallsCanBeHeard()) throw std::runtime_error("this system does not let a host hear of an extension's calls");
  SetFunctionFinder(Find);
  Interceptors().push_back(&interceptor);
}

Interception::~Interception() { std::erase(Interceptors(), &interceptor_); }

void MarkMissingFunctionsIn(MissingFunctions& place) {
  SetFunctionFinder(Find);
  missing = &place;
}

Register CallIntercepted(std::size_t index, std::span<const Register> registers,
                         Register (*callOwn)(void* own, const Register* registers)) noexcept {
  const HostFunction& function = HostFunctions()[index];
  const InHostCall here(function.name);
  const InterceptedCall call{function, registers.first(registers.size() - 1)};
  std::optional<Register> result;
  for (Interceptor* const interceptor : Interceptors()) {
    Guarded([&] {
      const auto answer = interceptor->Before(call);
      if (!result) result = answer;
    });
  }
  if (!result && function.own != nullptr) result = callOwn(function.own, registers.data());
  Register answer = result.value_or(static_cast<Register>(std::int64_t{function.defaultResult}));
  const auto& interceptors = Interceptors();
  for (auto interceptor = interceptors.rbegin(); interceptor != interceptors.rend(); ++interceptor) {
    Guarded([&] { (*interceptor)->After(call, answer); });
  }
  return answer;
}

}  // namespace brvhost
