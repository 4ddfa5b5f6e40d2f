// A copy of the bundle under test in a folder of its own, which a test changes before it is loaded.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/imageundertest.h"

// The folder is gone after the test.
class CopiedBundle : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = std::filesystem::temp_directory_path() / "brv-bundle-XXXXXX";
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
    std::filesystem::copy(BundleUnderTest(), folder_ / "Copy.bundle", std::filesystem::copy_options::recursive);
    setenv("LANGUAGE", "en", 1);
  }

  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path Contents() const { return folder_ / "Copy.bundle" / "Contents"; }

  // The function of the copy: another image than the product's, with globals of its own.
  static void* Load(const std::filesystem::path& executable, const char* function) {
    void* const image = dlopen(executable.c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(image, nullptr) << dlerror();
    return image == nullptr ? nullptr : dlsym(image, function);
  }

  void* LoadCopy(const char* function) const {
    return Load(Contents() / BRV_EXECUTABLE_FOLDER "/LegerLines.so", function);
  }

  void BindCopy() const { ASSERT_EQ(reinterpret_cast<int (*)()>(LoadCopy("InitializeGlobals"))(), 0); }

  void RemoveTable() const { std::filesystem::remove_all(Contents() / "Resources"); }

  void WriteTable(const std::string& text) const {
    RemoveTable();
    std::filesystem::create_directories(Contents() / "Resources/en.lproj");
    std::ofstream(Contents() / "Resources/en.lproj/Localizable.strings") << text;
  }

  std::filesystem::path folder_;
};
