// A bundle of a test's own, and what tests ask of bundles and URLs.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

inline CFURLRef MakeURL(const std::string& path, bool isDirectory = true) {
  return CFURLCreateFromFileSystemRepresentation(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
                                                 static_cast<CFIndex>(path.size()), isDirectory);
}

// The path of a URL, which is released; "not found" for none.
inline std::filesystem::path TakePath(CFURLRef url) {
  if (url == nullptr) return "not found";
  UInt8 path[4096];
  EXPECT_TRUE(CFURLGetFileSystemRepresentation(url, true, path, sizeof(path)));
  CFRelease(url);
  return reinterpret_cast<const char*>(path);
}

// The bundle in a folder, which the caller owns; null if there is none.
inline CFBundleRef CreateBundle(const std::string& path, bool isDirectory = true) {
  const CFURLRef url = MakeURL(path, isDirectory);
  if (url == nullptr) return nullptr;
  const CFBundleRef bundle = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  return bundle;
}

// A folder that is gone after the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "brv-platform-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = std::filesystem::canonical(name);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// A bundle of a given Info.plist and table, gone after the test.
class OwnBundle : public testing::Test {
 protected:
  void SetUp() override { setenv("LANGUAGE", "en", 1); }

  void TearDown() override {
    if (bundle_ != nullptr) CFRelease(bundle_);
  }

  std::filesystem::path Folder() const { return top_.Path() / name_; }
  std::filesystem::path Contents() const { return Folder() / "Contents"; }

  void Write(const std::string& infoPlist, const std::string& table = "") const {
    std::filesystem::create_directories(Contents() / "Resources/en.lproj");
    std::ofstream(Contents() / "Info.plist") << infoPlist;
    std::ofstream(Contents() / "Resources/en.lproj/Localizable.strings") << table;
  }

  void Open(const std::string& infoPlist, const std::string& table = "") {
    Write(infoPlist, table);
    bundle_ = CreateBundle(Folder());
    ASSERT_NE(bundle_, nullptr);
  }

  std::string Text(CFStringRef key) const {
    const CFStringRef text = CFBundleCopyLocalizedString(bundle_, key, key, nullptr);
    char buffer[64];
    EXPECT_TRUE(CFStringGetCString(text, buffer, sizeof(buffer), kCFStringEncodingUTF8));
    CFRelease(text);
    return buffer;
  }

  // The place of a resource inside of the bundle.
  std::string Resource(const std::string& name, CFStringRef type, CFStringRef subfolder = nullptr) const {
    const CFStringRef nameText = CFStringCreateWithCString(kCFAllocatorDefault, name.c_str(), kCFStringEncodingUTF8);
    const std::filesystem::path path = TakePath(CFBundleCopyResourceURL(bundle_, nameText, type, subfolder));
    CFRelease(nameText);
    return path.is_absolute() ? std::filesystem::path(path).lexically_relative(Folder()) : path;
  }

  TemporaryFolder top_;
  std::string name_ = "Own.bundle";
  CFBundleRef bundle_ = nullptr;
};
