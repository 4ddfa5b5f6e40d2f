#include "host/files/target.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "host/files/inputfile.h"
#include "host/files/outputerror.h"
#include "tests/host/files/temporaryfolder.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

using Targets = TemporaryFolder;

// What is wrong with it, after the target's name.
template <class Call>
std::string Problem(const fs::path& target, Call call) {
  try {
    call();
  } catch (const OutputError& error) {
    EXPECT_THAT(error.what(), testing::StartsWith(target.string() + ": "));
    return std::string(error.what()).substr(target.string().size() + 2);
  }
  return "nothing";
}

std::string ProblemOf(const fs::path& target) {
  return Problem(target, [&] { Target(target.string(), {", try another", ", try else"}); });
}

TEST_F(Targets, AreFreeNamesOrFiles) {
  const fs::path path = Write("score", "old");
  EXPECT_NE(Target(path.string()).Existing(), nullptr);
  EXPECT_EQ(Target((folder / "none").string()).Existing(), nullptr);
}

TEST_F(Targets, AreNothingElse) {
  EXPECT_EQ(ProblemOf(folder), "is a folder, not a file, try another");
  EXPECT_EQ(ProblemOf("/dev/null"), "is not a regular file, try else");
  const fs::path pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(ProblemOf(pipe), "is not a regular file, try else");
}

TEST_F(Targets, AreLockedAsLongAsTheyLive) {
  const fs::path path = Write("score", "old");
  fs::create_symlink("score", folder / "link");
  {
    const Target target(path.string());
    EXPECT_EQ(ProblemOf(path), "another brvhost is working on it");
    EXPECT_EQ(ProblemOf(folder / "link"), "another brvhost is working on it");
  }
  EXPECT_EQ(ProblemOf(path), "nothing");
}

TEST_F(Targets, AreUnchangedUntilSomebodyTouchesThem) {
  const fs::path path = Write("score", "old");
  const Target file(path.string());
  const fs::path none = folder / "none";
  const Target freeName(none.string());
  EXPECT_NO_THROW(file.ExpectUnchanged());
  EXPECT_NO_THROW(freeName.ExpectUnchanged());
  fs::rename(Write("other", "old"), path);
  EXPECT_EQ(Problem(path, [&] { file.ExpectUnchanged(); }), "was changed while brvhost worked on it");
  fs::remove(path);
  EXPECT_EQ(Problem(path, [&] { file.ExpectUnchanged(); }), "was changed while brvhost worked on it");
  fs::create_symlink("nowhere", none);
  EXPECT_EQ(Problem(none, [&] { freeName.ExpectUnchanged(); }), "was changed while brvhost worked on it");
}

TEST_F(Targets, AreTheScoreThatWasOpenedOrChanged) {
  const fs::path path = Write("score", "old");
  const InputFile score(path.string());
  EXPECT_NO_THROW(Target(path.string()).ExpectSameAs(score.Identity()));
  fs::rename(Write("other", "old"), path);
  EXPECT_EQ(Problem(path, [&] { Target(path.string()).ExpectSameAs(score.Identity()); }),
            "was changed while brvhost worked on it");
}

TEST_F(Targets, BlameTheFolderThatRefusesThem) {
  const fs::path path = folder / "score";
  const Target target(path.string());
  const auto failure = [&](int error) {
    return Problem(path, [&] {
      errno = error;
      target.Fail("write");
    });
  };
  const std::string blamed = "cannot write to the folder " + folder.string() + ": ";
  EXPECT_EQ(failure(ENOSPC), blamed + "No space left on device");
  EXPECT_EQ(failure(EROFS), blamed + "Read-only file system");
  EXPECT_EQ(failure(EDQUOT), blamed + "Disk quota exceeded");
  EXPECT_EQ(failure(EFBIG), "cannot write: File too large");
  const fs::path below = Write("file", "") / "score";
  EXPECT_EQ(ProblemOf(below), "cannot write to the folder " + below.parent_path().string() + ": Not a directory");
}

}  // namespace
}  // namespace brvhost
