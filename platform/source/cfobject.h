// What all objects of the platform have: a reference count, a type, equality and a description.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <atomic>
#include <string>

namespace brvplatform {

class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  virtual CFTypeID TypeID() const = 0;
  virtual bool Equals(const Object& other) const { return this == &other; }
  // What CFShow prints.
  virtual std::u16string Description() const = 0;

  void Retain() const { ++references_; }
  void Release() const {
    if (--references_ == 0) delete this;
  }

 private:
  mutable std::atomic<long> references_{1};
};

enum TypeIDs : CFTypeID { kStringType = 7, kDictionaryType = 18, kNumberType = 22, kURLType = 29, kBundleType = 30 };

inline const Object& ObjectOf(CFTypeRef object) { return *static_cast<const Object*>(object); }

// A reference that is released when its owner is destroyed.
template <class Ref>
class Owned {
 public:
  explicit Owned(Ref object = nullptr) : object_(object) {}
  Owned(Owned&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
  Owned& operator=(Owned&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Owned() {
    if (object_ != nullptr) CFRelease(object_);
  }
  Ref Get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  Ref object_;
};

}  // namespace brvplatform
