// Releases a CoreFoundation object with its owner.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

namespace brvhost {

template <class Reference>
class Owned {
 public:
  explicit Owned(Reference object) : object_(object) {}
  ~Owned() {
    if (object_ != nullptr) CFRelease(object_);
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;

  explicit operator bool() const { return object_ != nullptr; }
  Reference Get() const { return object_; }

 private:
  Reference object_;
};

}  // namespace brvhost
