#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/files/bytes.h"
#include "host/files/outputerror.h"
#include "host/files/safefile.h"
#include "host/files/scorefile.h"
#include "scores.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

class SafeFiles : public testing::Test {
 protected:
  SafeFiles() {
    std::string pattern = (fs::temp_directory_path() / "files-test-XXXXXX").string();
    folder = mkdtemp(pattern.data());
  }
  ~SafeFiles() override { fs::remove_all(folder); }

  fs::path Old(const std::string& name) const {
    std::ofstream(folder / name) << "old";
    return folder / name;
  }
  static void Replace(const fs::path& path) {
    SafeFile file(path.string());
    file.Write("new");
    file.Commit();
  }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  fs::path folder;
};

TEST_F(SafeFiles, KeepTheOldContentUntilTheyAreCommitted) {
  const fs::path path = Old("score");
  {
    SafeFile file(path.string());
    file.Write("new");
    EXPECT_EQ(ContentOf(path), "old");
  }
  EXPECT_EQ(ContentOf(path), "old");
  EXPECT_EQ(FileCount(), 1u);
  Replace(path);
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(SafeFiles, PassThePermissionsOn) {
  const fs::path path = Old("score");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
  Replace(path);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
}

TEST_F(SafeFiles, ReplaceWhatASymbolicLinkLeadsTo) {
  const fs::path path = Old("score");
  fs::create_symlink("score", folder / "link");
  fs::create_symlink(folder / "link", folder / "second");
  Replace(folder / "second");
  EXPECT_TRUE(fs::is_symlink(folder / "second"));
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(ContentOf(path), "new");
}

TEST_F(SafeFiles, AreMadeWhereALinkLeadsThatLeadsNowhereYet) {
  fs::create_symlink("score", folder / "link");
  Replace(folder / "link");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(ContentOf(folder / "score"), "new");
}

TEST_F(SafeFiles, RefuseLinksThatLeadToOneAnother) {
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  EXPECT_THROW(SafeFile((folder / "a").string()), OutputError);
}

TEST_F(SafeFiles, TakeTheLongestNameThatThereIs) {
  const std::string name(255, 'n');
  Replace(folder / name);
  EXPECT_EQ(ContentOf(folder / name), "new");
}

TEST_F(SafeFiles, LeaveNothingWhenASignalRemovesTheUnfinishedOne) {
  SafeFile file(Old("score").string());
  EXPECT_EQ(FileCount(), 2u);
  RemoveUnfinishedFile();
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(SafeFiles, AreNotCommittedOfAScoreWhenTheUserCancelsLast) {
  const fs::path path = folder / "score.musicxml";
  const std::string document = Partwise(Measure(Note()));
  std::ofstream(path) << document;
  ScoreFile file(path.string());
  file.GetScore().entries[0].hidden = true;
  EXPECT_FALSE(file.Save(path.string(), [] { return true; }));
  EXPECT_EQ(ContentOf(path), document);
  EXPECT_EQ(FileCount(), 1u);
  EXPECT_TRUE(file.Save(path.string(), [] { return false; }));
  EXPECT_NE(ContentOf(path), document);
}

TEST(Bytes, AreNotMoreThanMemoryHas) {
  EXPECT_THROW(Bytes(SIZE_MAX), std::bad_alloc);
  EXPECT_THROW(Bytes(std::size_t{1} << 63), std::bad_alloc);
}

TEST(Bytes, GrowBehindWhatIsThere) {
  Bytes bytes(3);
  std::ranges::copy(std::string_view("abc"), bytes.Data());
  bytes.Grow(2);
  EXPECT_EQ(bytes.Size(), 5u);
  EXPECT_EQ(bytes.View().substr(0, 3), "abc");
}

TEST(Bytes, AreNoneOnceTheyAreMovedAway) {
  Bytes bytes(3);
  const Bytes taken = std::move(bytes);
  EXPECT_TRUE(bytes.IsEmpty());
  EXPECT_EQ(taken.Size(), 3u);
}

}  // namespace
}  // namespace brvhost
