// Who hears of the calls that the host makes to an extension.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

#include "BrvEDK/Source/hostrecords.h"

namespace brvhost {

// A number, which is shown as bits where it has no sign; or what an address leads to.
using EntryPointValue =
    std::variant<int, std::uint32_t, const void*, const std::uint32_t*, const MenuItemTexts*, const EREGION*>;

struct EntryPointArgument {
  const char* name;
  EntryPointValue value;
};

class EntryPointListener {
 public:
  virtual ~EntryPointListener() = default;
  virtual void Enter(const char* entryPoint, std::span<const EntryPointArgument> arguments) = 0;
  // After it has returned; `result` is null where it returns nothing.
  virtual void Leave(const char* entryPoint, std::span<const EntryPointArgument> arguments,
                     const EntryPointValue* result) = 0;
  // After it has thrown.
  virtual void Throw(const std::string& what) = 0;
};

// From now on this one hears of them, which stays; null: nobody.
void ListenToEntryPoints(EntryPointListener* listener);

}  // namespace brvhost
