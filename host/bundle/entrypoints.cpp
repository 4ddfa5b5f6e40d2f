#include "host/bundle/entrypoints.h"

#include <fmt/format.h>

#include <cstddef>
#include <type_traits>

#include "BrvEDK/Source/integerclasses.h"
#include "host/bundle/entrypointlistener.h"
#include "host/bundle/thrown.h"
#include "host/process/whereabouts.h"

namespace brvhost {

namespace {

EntryPointListener* listener = nullptr;

template <class T>
EntryPointValue ValueOf(T value) {
  return value;
}

// The whole score, which nobody may look at where the user declines it.
struct Fallback {
  EREGION* region;
  operator EREGION*() const { return region; }
};

EntryPointValue ValueOf(Fallback fallback) { return static_cast<const void*>(fallback.region); }

EntryPointValue ValueOf(EREGION* region) { return static_cast<const EREGION*>(region); }

EntryPointValue ValueOf(void* address) { return static_cast<const void*>(address); }

EntryPointValue ValueOf(std::nullptr_t) { return static_cast<const void*>(nullptr); }

EntryPointValue ValueOf(MenuItemTexts* texts) { return static_cast<const MenuItemTexts*>(texts); }

EntryPointValue ValueOf(std::uint32_t* word) { return static_cast<const std::uint32_t*>(word); }

// Of a result that is not a version the low 16 bits count.
EntryPointValue ResultOf(int result) { return SignExtend16(result); }

EntryPointValue ResultOf(std::uint32_t result) { return result; }

template <std::size_t count>
std::array<EntryPointArgument, count> Named(const std::array<const char*, 4>& names,
                                            std::array<EntryPointValue, count> values) {
  std::array<EntryPointArgument, count> arguments;
  for (std::size_t i = 0; i < count; ++i) arguments[i] = {names[i], values[i]};
  return arguments;
}

}  // namespace

void ListenToEntryPoints(EntryPointListener* newListener) { listener = newListener; }

template <class Function>
template <class... Arguments>
auto EntryPoints::EntryPoint<Function>::operator()(Arguments... arguments) const {
  if (listener == nullptr) return Call(arguments...);
  const auto named = Named<sizeof...(Arguments)>(parameters, {ValueOf(arguments)...});
  listener->Enter(name, named);
  try {
    if constexpr (std::is_void_v<decltype(Call(arguments...))>) {
      Call(arguments...);
      listener->Leave(name, named, nullptr);
    } else {
      const auto result = Call(arguments...);
      const EntryPointValue shown = ResultOf(result);
      listener->Leave(name, named, &shown);
      return result;
    }
  } catch (const ThrownByExtension& exception) {
    listener->Throw(exception.what());
    throw;
  }
}

template <class Function>
template <class... Arguments>
auto EntryPoints::EntryPoint<Function>::Call(Arguments... arguments) const {
  const InExtension here(name);
  try {
    return address(arguments...);
  } catch (...) {
    throw ThrownByExtension(fmt::format("{} threw an exception: {}", name, ThrownText()));
  }
}

EntryPoints::EntryPoints(const LoadedBundle& bundle) {
  const auto find = [&]<class Function>(EntryPoint<Function>& entryPoint) {
    entryPoint.address = reinterpret_cast<Function*>(bundle.Find(entryPoint.name));
    if (entryPoint.address == nullptr) missing_.push_back(entryPoint.name);
  };
  find(main_);
  find(version_);
  find(init_);
  find(enumerate_);
  find(invoke_);
  find(terminate_);
  find(menuStatus_);
}

bool EntryPoints::Main(const std::string& path) const {
  const char* arguments[] = {path.c_str(), nullptr};
  return main_(1, static_cast<void*>(arguments)) != 0;
}

std::uint32_t EntryPoints::Version() const { return version_(); }

int EntryPoints::Init(std::uint32_t& word) const { return SignExtend16(init_(nullptr, &word)); }

int EntryPoints::Enumerate(int index, MenuItemTexts& texts) const {
  return SignExtend16(enumerate_(nullptr, index, &texts));
}

int EntryPoints::Invoke(int item, EREGION* region, EREGION* fallback) const {
  return SignExtend16(invoke_(nullptr, item, region, Fallback{fallback}));
}

int EntryPoints::MenuStatus() const { return SignExtend16(menuStatus_()); }

void EntryPoints::Terminate() const { terminate_(); }

}  // namespace brvhost
