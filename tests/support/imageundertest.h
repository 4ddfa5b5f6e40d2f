// The image that a test program drives: the one that was found for it when it started, the bundle's executable for
// Linux or the casing in which that for macOS runs.
#pragma once

#include <dlfcn.h>

#include <filesystem>

#include "hostbundle.h"

// The file of the executable.
inline std::filesystem::path ExecutableUnderTest() {
  Dl_info image = {};
  dladdr(reinterpret_cast<void*>(&InitializeGlobals), &image);
  return std::filesystem::canonical(image.dli_fname);
}

// The folder of its bundle, in which it lies at Contents/BRV_EXECUTABLE_FOLDER.
inline std::filesystem::path BundleUnderTest() {
  return ExecutableUnderTest().parent_path().parent_path().parent_path();
}

// Calls the bundle's own main, which in a test program the name alone does not reach.
inline int BundleMain(int argc, void* argv) {
  void* const image = dlopen(ExecutableUnderTest().c_str(), RTLD_NOW | RTLD_NOLOAD);
  const auto function = reinterpret_cast<int (*)(int, void*)>(dlsym(image, "main"));
  dlclose(image);
  return function(argc, argv);
}
