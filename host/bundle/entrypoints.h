// The functions that a host calls in an extension, called one by one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "BrvEDK/Source/convention.h"
#include "host/bundle/loadedbundle.h"

namespace brvhost {

// Their addresses; null where the bundle lacks one, which must not be called then. Of a 16-bit result the low 16 bits
// count, sign-extended.
class EntryPoints {
 public:
  explicit EntryPoints(const LoadedBundle& bundle);

  // The names of those that the bundle lacks, main first.
  const std::vector<std::string_view>& Missing() const { return missing_; }

  // Whether the extension bound itself to its host; `path` is its only argument.
  bool Main(const std::string& path) const;
  std::uint32_t Version() const { return version_(); }
  int Init(std::uint32_t& word) const;
  int Enumerate(int index, MenuItemTexts& texts) const;
  int Invoke(int item, EREGION* region, EREGION* fallback) const;
  int MenuStatus() const;
  void Terminate() const { terminate_(); }

 private:
  decltype(BrevixExtensionMain)* main_ = nullptr;
  decltype(BrevixExtensionVersion)* version_ = nullptr;
  decltype(BrevixExtensionInit)* init_ = nullptr;
  decltype(BrevixExtensionEnumerate_UTF16)* enumerate_ = nullptr;
  decltype(BrevixExtensionInvoke)* invoke_ = nullptr;
  decltype(BrevixExtensionTerminate)* terminate_ = nullptr;
  decltype(BrevixExtensionGetMenuStatus)* menuStatus_ = nullptr;
  std::vector<std::string_view> missing_;
};

}  // namespace brvhost
