// Memory that shows whether it was touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "BrvEDK/Source/hostrecords.h"

namespace brvhost {

// The texts of an item, filled with a pattern, and after them a fence of the same pattern.
class GuardedTexts {
 public:
  GuardedTexts();

  MenuItemTexts& Record() { return *reinterpret_cast<MenuItemTexts*>(bytes_.get()); }
  const MenuItemTexts* operator->() const { return reinterpret_cast<const MenuItemTexts*>(bytes_.get()); }
  bool IsFenceWhole() const { return HasPattern(sizeof(MenuItemTexts)); }
  bool IsUntouched() const { return HasPattern(0); }

 private:
  bool HasPattern(std::size_t from) const;

  std::unique_ptr<std::uint8_t[]> bytes_;
};

// A page that can be neither read nor written.
class InaccessiblePage {
 public:
  InaccessiblePage();
  ~InaccessiblePage();
  InaccessiblePage(const InaccessiblePage&) = delete;
  InaccessiblePage& operator=(const InaccessiblePage&) = delete;

  void* Address() const { return address_; }

 private:
  void* address_;
};

}  // namespace brvhost
