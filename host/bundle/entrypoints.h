// The functions that a host calls in an extension, called one by one.
#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "BrvEDK/Source/convention.h"
#include "host/bundle/loadedbundle.h"

namespace brvhost {

// An extension's function threw an exception. The message names the function, and what it threw.
class ThrownByExtension : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Their addresses; null where the bundle lacks one, which must not be called then. Of a 16-bit result the low 16 bits
// count, sign-extended. All of them throw ThrownByExtension.
class EntryPoints {
 public:
  explicit EntryPoints(const LoadedBundle& bundle);

  // The names of those that the bundle lacks, main first.
  const std::vector<std::string_view>& Missing() const { return missing_; }

  // Whether the extension bound itself to its host; `path` is its only argument.
  bool Main(const std::string& path) const;
  std::uint32_t Version() const;
  int Init(std::uint32_t& word) const;
  int Enumerate(int index, MenuItemTexts& texts) const;
  int Invoke(int item, EREGION* region, EREGION* fallback) const;
  int MenuStatus() const;
  void Terminate() const;

 private:
  template <class Function>
  struct EntryPoint {
    const char* name;
    std::array<const char*, 4> parameters;  // as many as it has
    Function* address = nullptr;

    template <class... Arguments>
    auto operator()(Arguments... arguments) const;
    // Without anybody who hears of it.
    template <class... Arguments>
    auto Call(Arguments... arguments) const;
  };

  EntryPoint<decltype(BrevixExtensionMain)> main_{"main", {"argc", "argv"}};
  EntryPoint<decltype(BrevixExtensionVersion)> version_{"BrevixExtensionVersion", {}};
  EntryPoint<decltype(BrevixExtensionInit)> init_{"BrevixExtensionInit", {"context", "word"}};
  EntryPoint<decltype(BrevixExtensionEnumerate_UTF16)> enumerate_{"BrevixExtensionEnumerate_UTF16",
                                                                  {"context", "itemIndex", "texts"}};
  EntryPoint<decltype(BrevixExtensionInvoke)> invoke_{"BrevixExtensionInvoke",
                                                      {"context", "itemIndex", "region", "fallback"}};
  EntryPoint<decltype(BrevixExtensionTerminate)> terminate_{"BrevixExtensionTerminate", {}};
  EntryPoint<decltype(BrevixExtensionGetMenuStatus)> menuStatus_{"BrevixExtensionGetMenuStatus", {}};
  std::vector<std::string_view> missing_;
};

}  // namespace brvhost
