#include "host/files/safefile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "host/files/outputerror.h"
#include "tests/host/files/temporaryfolder.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

class SafeFiles : public TemporaryFolder {
 protected:
  fs::path Old(const std::string& name) const { return Write(name, "old"); }
  static void Replace(const fs::path& path) {
    SafeFile file(path.string());
    file.Write("new");
    file.Commit();
  }
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

}  // namespace
}  // namespace brvhost
