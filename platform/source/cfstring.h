// Strings: immutable runs of UTF-16 units.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <optional>
#include <string>
#include <string_view>

#include "cfobject.h"

namespace brvplatform {

class String final : public Object {
 public:
  explicit String(std::u16string units) : own_(std::move(units)), units_(*own_) {}
  // Of units that live for ever, without memory of its own.
  constexpr explicit String(const char16_t* literal) : units_(literal) {}

  CFTypeID TypeID() const override { return kStringType; }
  bool Equals(const Object& other) const override {
    return other.TypeID() == kStringType && static_cast<const String&>(other).units_ == units_;
  }
  std::u16string Description() const override { return std::u16string(units_); }
  std::u16string_view Units() const { return units_; }

 private:
  std::optional<std::u16string> own_;
  std::u16string_view units_;
};

inline CFStringRef RefOf(const String& string) { return reinterpret_cast<CFStringRef>(&string); }

// A new string, which the caller owns.
CFStringRef NewString(std::u16string units);

std::u16string_view UnitsOf(CFStringRef string);

bool IsString(CFTypeRef object);

}  // namespace brvplatform
