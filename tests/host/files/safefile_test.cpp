#include "host/files/safefile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "host/files/outputerror.h"
#include "host/files/unnamedfile.h"
#include "tests/host/files/temporaryfolder.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

class SafeFiles : public TemporaryFolder {
 protected:
  fs::path Old(const std::string& name) const { return Write(name, "old"); }
  static struct stat StatusOf(const fs::path& path) {
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status;
  }
  static void Replace(const fs::path& path) {
    const Target target(path.string());
    SafeFile file(target);
    file.Write("new");
    EXPECT_THAT(file.Commit(), testing::IsEmpty());
  }
};

TEST_F(SafeFiles, KeepTheOldContentUntilTheyAreCommitted) {
  const fs::path path = Old("score");
  {
    const Target target(path.string());
    SafeFile file(target);
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
  EXPECT_THROW(Target((folder / "a").string()), OutputError);
}

TEST_F(SafeFiles, TakeTheLongestNameThatThereIs) {
  const std::string name(255, 'n');
  Replace(folder / name);
  EXPECT_EQ(ContentOf(folder / name), "new");
}

TEST_F(SafeFiles, HaveNoNameUntilTheyAreComplete) {
  if (!OpenUnnamedFile(folder.string(), 0600)) GTEST_SKIP() << "the file system has no unnamed files";
  const Target target(Old("score").string());
  SafeFile file(target);
  file.Write("new");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(SafeFiles, GetThePermissionsThatNewFilesGet) {
  const mode_t mask = umask(027);
  Replace(folder / "score");
  umask(mask);
  EXPECT_EQ(StatusOf(folder / "score").st_mode & 07777, 0640u);
}

TEST_F(SafeFiles, DoNotReplaceWhatAppearedOrWasChangedMeanwhile) {
  for (const fs::path& path : {folder / "new", Old("old")}) {
    {
      const Target target(path.string());
      SafeFile file(target);
      file.Write("result");
      Write(path.filename().string(), "of somebody else");
      EXPECT_THROW(static_cast<void>(file.Commit()), OutputError) << path;
    }
    EXPECT_EQ(ContentOf(path), "of somebody else");
  }
  EXPECT_EQ(FileCount(), 2u);
}

TEST_F(SafeFiles, WarnOfNamesThatKeepTheOldContent) {
  const fs::path path = Old("score");
  fs::create_hard_link(path, folder / "second");
  fs::create_hard_link(path, folder / "third");
  const Target target(path.string());
  SafeFile file(target);
  file.Write("new");
  EXPECT_THAT(file.Commit(),
              testing::ElementsAre(path.string() + ": warning: has 3 names; the others keep the old content"));
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(ContentOf(folder / "second"), "old");
}

// An access control list as the system takes it: of the owner, the user with that id, the group, the mask and others.
std::string AccessList(std::uint32_t user) {
  std::string list("\2\0\0\0", 4);
  const auto add = [&list](std::uint16_t kind, std::uint16_t allowed, std::uint32_t who) {
    list.append(reinterpret_cast<const char*>(&kind), sizeof(kind));
    list.append(reinterpret_cast<const char*>(&allowed), sizeof(allowed));
    list.append(reinterpret_cast<const char*>(&who), sizeof(who));
  };
  constexpr std::uint32_t kNobody = 0xFFFFFFFF;
  add(0x01, 6, kNobody);
  add(0x02, 4, user);
  add(0x04, 0, kNobody);
  add(0x10, 4, kNobody);
  add(0x20, 0, kNobody);
  return list;
}

class Attributes : public SafeFiles {
 protected:
  static constexpr const char* kList = "system.posix_acl_access";
  static constexpr const char* kListForNewFiles = "system.posix_acl_default";

  static bool Set(const fs::path& path, const char* name, const std::string& value) {
    return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
  }
  static std::string Get(const fs::path& path, const char* name) {
    char value[1000];
    const ssize_t size = getxattr(path.c_str(), name, value, sizeof(value));
    return size < 0 ? "none" : std::string(value, static_cast<std::size_t>(size));
  }
};

TEST_F(Attributes, OfUsersAreKept) {
  const fs::path path = Old("score");
  if (!Set(path, "user.a", "1")) GTEST_SKIP() << "the file system has no extended attributes";
  ASSERT_TRUE(Set(path, "user.empty", ""));
  ASSERT_TRUE(Set(path, "user.b", std::string(900, 'b')));
  Replace(path);
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(Get(path, "user.a"), "1");
  EXPECT_EQ(Get(path, "user.empty"), "");
  EXPECT_EQ(Get(path, "user.b"), std::string(900, 'b'));
}

TEST_F(Attributes, IncludeTheAccessControlList) {
  const fs::path path = Old("score");
  if (!Set(path, kList, AccessList(12345))) GTEST_SKIP() << "the file system has no access control lists";
  const mode_t mode = StatusOf(path).st_mode;
  Replace(path);
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(Get(path, kList), AccessList(12345));
  EXPECT_EQ(StatusOf(path).st_mode, mode);
}

TEST_F(Attributes, IncludeNoListThatTheOldFileDidNotHave) {
  const fs::path path = Old("score");
  if (!Set(folder, kListForNewFiles, AccessList(12345))) GTEST_SKIP() << "the file system has no access control lists";
  Replace(path);
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(Get(path, kList), "none");
  Replace(folder / "other");
  EXPECT_EQ(Get(folder / "other", kList), AccessList(12345));
}

}  // namespace
}  // namespace brvhost
