#include "host/files/archiveend.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace brvhost {
namespace {

using namespace std::string_literals;

constexpr std::size_t kDirectory = 10;  // where it is

std::string Number(std::uint64_t number, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, number >>= 8) text += static_cast<char>(number & 0xFF);
  return text;
}

std::string End(std::uint64_t size, std::uint64_t place, const std::string& comment) {
  return "PK\x05\x06" + std::string(8, '\0') + Number(size, 4) + Number(place, 4) + Number(comment.size(), 2) + comment;
}

// What has a directory where the end looks for it.
std::string Archive(const std::string& comment = "") {
  return std::string(kDirectory, 'm') + "PK\x01\x02" + "dir" + End(7, kDirectory, comment);
}

TEST(SizeOfArchive, IsAllWhereNothingFollows) {
  for (const std::string& archive : {Archive(), Archive("a comment"), Archive("PK\x05\x06 in a comment, " + Archive()),
                                     ""s, "PK"s, std::string(100, 'x')}) {
    EXPECT_EQ(SizeOfArchive(archive), archive.size()) << archive;
  }
}

TEST(SizeOfArchive, LeavesOutWhatFollows) {
  for (const std::string& archive : {Archive(), Archive("a comment")}) {
    for (const std::string& rest :
         {"\n"s, "\0"s, std::string(500, '\0'), std::string(60'000, 'x'), "PK\x05\x06"s, End(7, 5, "")}) {
      EXPECT_EQ(SizeOfArchive(archive + rest), archive.size()) << rest.size();
    }
  }
}

TEST(SizeOfArchive, OfALargeArchiveFollowsItsLocator) {
  const std::string locator = "PK\x06\x07" + std::string(16, '\0');
  const std::string archive = std::string(100, 'm') + locator + End(0xFFFFFFFF, 0xFFFFFFFF, "");
  EXPECT_EQ(SizeOfArchive(archive + "\n"), archive.size());
  const std::string without = std::string(120, 'm') + End(0xFFFFFFFF, 0xFFFFFFFF, "");
  EXPECT_EQ(SizeOfArchive(without + "\n"), without.size() + 1);
}

TEST(SizeOfArchive, IsNotLookedForFarFromTheEnd) {
  const std::string bytes = Archive() + std::string(70'000, 'x');
  EXPECT_EQ(SizeOfArchive(bytes), bytes.size());
}

}  // namespace
}  // namespace brvhost
