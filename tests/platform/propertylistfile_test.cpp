#include <brvplatform.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Texts = std::vector<std::pair<std::string, std::string>>;

std::string Utf8(CFStringRef string) {
  char buffer[64] = "null";
  if (string != nullptr) CFStringGetCString(string, buffer, sizeof(buffer), kCFStringEncodingUTF8);
  return buffer;
}

class PropertyListFile : public testing::Test {
 protected:
  ~PropertyListFile() override { std::filesystem::remove(path_); }

  // Whether it was read.
  bool Read(const std::string& content) {
    std::ofstream(path_) << content;
    const auto keep = [](void* context, CFStringRef key, CFStringRef text) {
      static_cast<Texts*>(context)->emplace_back(Utf8(key), Utf8(text));
    };
    return BrvPlatformReadPropertyList(path_.c_str(), keep, &texts_);
  }

  Texts texts_;

 private:
  const std::string path_ = testing::TempDir() + "propertylistfile.strings";
};

TEST_F(PropertyListFile, HandsOutItsTextsInTheOrderOfTheirKeys) {
  EXPECT_TRUE(Read("\"b\" = \"2\"; /* and */ \"a\" = \"1\";"));
  EXPECT_EQ(texts_, (Texts{{"a", "1"}, {"b", "2"}}));
}

TEST_F(PropertyListFile, HandsOutNullForWhatIsNoText) {
  EXPECT_TRUE(Read("{ a = (1, 2); b = c; }"));
  EXPECT_EQ(texts_, (Texts{{"a", "null"}, {"b", "c"}}));
}

TEST_F(PropertyListFile, HandsOutNothingOfABrokenList) {
  EXPECT_FALSE(Read("\"a\" = \"1\"; \"b\" \"2\";"));
  EXPECT_EQ(texts_, Texts());
}

TEST(NoPropertyListFile, IsNotRead) {
  const auto ignore = [](void*, CFStringRef, CFStringRef) {};
  EXPECT_FALSE(BrvPlatformReadPropertyList("/nowhere/a.strings", ignore, nullptr));
  EXPECT_FALSE(BrvPlatformReadPropertyList(testing::TempDir().c_str(), ignore, nullptr));
}

}  // namespace
