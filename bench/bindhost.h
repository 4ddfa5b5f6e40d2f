// Binds the kit to a host in a bundle beside the programs.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

#include "hostbundle.h"

inline void BindHost(const std::string& path) {
  const CFURLRef url = CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), true);
  [[maybe_unused]] static const CFBundleRef opened = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  InitializeGlobals();
}
