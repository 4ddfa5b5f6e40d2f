// The bundle calls answer as the macOS library does.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "knowndifferences.h"
#include "ownbundle.h"
#include "tests/support/shared.h"
#include "vectors.h"

namespace {

namespace fs = std::filesystem;

// "-" is English; (de-AT,en) in brackets and quotes a list.
void SetLanguages(std::string list) {
  if (list == "-") list = "en";
  std::erase_if(list, [](char c) { return std::string_view("()\" ").find(c) != std::string_view::npos; });
  std::replace(list.begin(), list.end(), ',', ':');
  setenv("LANGUAGE", list.c_str(), 1);
}

std::string Utf8(CFTypeRef string) {
  if (string == nullptr) return "NULL";
  if (CFGetTypeID(string) != CFStringGetTypeID()) return "(not a string)";
  char buffer[1024];
  EXPECT_TRUE(CFStringGetCString(static_cast<CFStringRef>(string), buffer, sizeof(buffer), kCFStringEncodingUTF8));
  return '"' + std::string(buffer) + '"';
}

CFStringRef MakeUtf8(const std::string& text) {
  return CFStringCreateWithCString(kCFAllocatorDefault, text.c_str(), kCFStringEncodingUTF8);
}

// The symbolic links among the cases, and what they lead to. A copy of the cases may hold plain files in their place.
const std::map<std::string, std::string> kLinks = {{"link.bundle", "full.bundle"},
                                                   {"dangling.bundle", "gone.bundle"},
                                                   {"fw.framework/Versions/Current", "A"},
                                                   {"fw.framework/Resources", "Versions/Current/Resources"},
                                                   {"fw.framework/fw", "Versions/Current/fw"}};

// A copy that can be written to, whatever the rights of the original.
void CopyFolder(const fs::path& from, const fs::path& to) {
  fs::create_directories(to);
  for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
    const fs::path target = to / entry.path().filename();
    if (entry.is_directory() && !entry.is_symlink()) {
      CopyFolder(entry.path(), target);
    } else {
      fs::copy(entry.path(), target, fs::copy_options::copy_symlinks);
    }
  }
}

void MakeCases(const fs::path& folder) {
  CopyFolder(VectorFolder() / "bundle-cases", folder);
  for (const auto& [link, target] : kLinks) {
    ASSERT_TRUE(fs::remove(folder / link)) << link;
    fs::create_symlink(target, folder / link);
  }
}

TEST(BundleVectors, Create) {
  const fs::path table = VectorFolder() / "bundles.tsv";
  SKIP_WITHOUT(table);
  const TemporaryFolder folder;
  MakeCases(folder.Path() / "bundle-cases");
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path() / "bundle-cases");
  for (const VectorRow& row : ReadVectors(table)) {
    SCOPED_TRACE(row.columns[0]);
    const CFBundleRef bundle = CreateBundle(row.columns[2], row.columns[3] == "dir");
    EXPECT_EQ(bundle != nullptr, row.columns[4] == "nonnull");
    if (bundle == nullptr) continue;
    const std::string executable = Utf8(CFBundleGetValueForInfoDictionaryKey(bundle, kCFBundleExecutableKey));
    EXPECT_EQ(executable == "NULL" ? "null" : "nonnull " + executable, row.columns[5]);
    const CFStringRef key = CFSTR("CFBundleIdentifier");
    EXPECT_EQ(Utf8(CFBundleGetValueForInfoDictionaryKey(bundle, key)), row.columns[6]);
    CFRelease(bundle);
  }
  fs::current_path(before);
}

TEST(BundleVectors, CopyLocalizedString) {
  const fs::path table = VectorFolder() / "strings.tsv";
  SKIP_WITHOUT(table);
  const std::set<int> known = KnownDifferences("strings.txt");
  for (const VectorRow& row : ReadVectors(table)) {
    SetLanguages(row.columns[3]);
    const CFBundleRef bundle = CreateBundle(VectorFolder() / "strings-cases" / (row.columns[0] + ".bundle"));
    ASSERT_NE(bundle, nullptr) << row.columns[0];
    const CFStringRef key = MakeString(UnitsFromHex(row.columns[1]));
    const CFStringRef tableName = row.columns[4] == "NULL" ? nullptr : MakeUtf8(row.columns[4]);
    CFStringRef value = nullptr;
    if (row.columns[5] == "value=key") value = static_cast<CFStringRef>(CFRetain(key));
    if (row.columns[5] == "valueEmpty") value = MakeUtf8("");
    if (row.columns[5] == "valueOther") value = MakeUtf8("DEFAULT");
    ExpectRow(known, row, TakeHex(CFBundleCopyLocalizedString(bundle, key, value, tableName)), row.columns[2]);
    for (const CFTypeRef object : {CFTypeRef{key}, CFTypeRef{value}, CFTypeRef{tableName}, CFTypeRef{bundle}}) {
      if (object != nullptr) CFRelease(object);
    }
  }
}

TEST(BundleVectors, CopyResourceURL) {
  const fs::path table = VectorFolder() / "resources.tsv";
  SKIP_WITHOUT(table);
  const std::set<int> known = KnownDifferences("resources.txt");
  const auto optional = [](const std::string& text) { return text == "NULL" ? nullptr : MakeUtf8(text); };
  for (const VectorRow& row : ReadVectors(table)) {
    SetLanguages(row.columns[1]);
    const fs::path folder = VectorFolder() / "strings-cases" / (row.columns[0] + ".bundle");
    const CFBundleRef bundle = CreateBundle(folder);
    ASSERT_NE(bundle, nullptr) << row.columns[0];
    const CFStringRef names[] = {optional(row.columns[2]), optional(row.columns[3]), optional(row.columns[4])};
    const CFURLRef url = CFBundleCopyResourceURL(bundle, names[0], names[1], names[2]);
    const std::string got = url == nullptr ? "not found" : fs::relative(TakePath(url), folder).native();
    ExpectRow(known, row, got, row.columns[5] == "found" ? row.columns[6] : "not found");
    for (const CFStringRef name : names) {
      if (name != nullptr) CFRelease(name);
    }
    CFRelease(bundle);
  }
}

}  // namespace
