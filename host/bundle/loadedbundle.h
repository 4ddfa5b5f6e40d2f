// An extension's bundle with its code in memory.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <stdexcept>
#include <string>

namespace brvhost {

// The bundle does not load, lacks an entry point, or was built for another version of the host's interface.
class BundleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A bundle whose code is loaded; nothing of it has run yet but its initialisers.
class LoadedBundle {
 public:
  // Throws BundleError.
  explicit LoadedBundle(const std::string& path);
  // The code stays loaded: it may have left addresses behind.
  ~LoadedBundle();
  LoadedBundle(const LoadedBundle&) = delete;
  LoadedBundle& operator=(const LoadedBundle&) = delete;

  const std::string& Path() const { return path_; }
  CFBundleRef Reference() const { return bundle_; }
  // The exported function of that name, or null.
  void* Find(const char* name) const;

 private:
  // Returns why it does not load, or nothing.
  std::string LoadCode() const;

  std::string path_;
  CFBundleRef bundle_;
};

}  // namespace brvhost
