#include "host/files/temporaryname.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "host/files/filelock.h"
#include "host/process/descriptor.h"
#include "tests/host/files/temporaryfolder.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

// The parts of a name, by their number in the form that it has.
enum Part { kBoot = 2, kStart = 4 };

class AbandonedFiles : public TemporaryFolder {
 protected:
  bool Stays(const std::string& name) const {
    Write(name, "");
    RemoveAbandonedFiles(folder.string());
    return fs::exists(folder / name);
  }

  // A name of this process with another text in one of its parts.
  static std::string NameWith(Part part, const std::string& text) {
    const std::string name = TemporaryName();
    EXPECT_THAT(name, testing::ContainsRegex("^\\.brvhost-[0-9a-f]{16}-[0-9a-f]{16}-[0-9]+-[0-9]+-[0-9]+$"));
    std::size_t start = 0;
    for (int i = 0; i < part; ++i) start = name.find('-', start) + 1;
    const std::size_t size = name.find('-', start) - start;
    EXPECT_NE(name.substr(start, size), text);
    return std::string(name).replace(start, size, text);
  }

  // A name of a process that has ended, and that is still in the system's list until it is waited for.
  std::pair<std::string, pid_t> NameOfAnEndedProcess() const {
    const fs::path answer = folder / "answer";
    const pid_t process = fork();
    if (process == 0) {
      std::ofstream(answer) << TemporaryName();
      _exit(0);
    }
    siginfo_t how;
    EXPECT_EQ(waitid(P_PID, static_cast<id_t>(process), &how, WEXITED | WNOWAIT), 0);
    const std::string name = ContentOf(answer);
    fs::remove(answer);
    return {name, process};
  }

  // A name of a process that is gone.
  std::string NameOfADeadProcess() const {
    const auto [name, process] = NameOfAnEndedProcess();
    EXPECT_EQ(waitpid(process, nullptr, 0), process);
    return name;
  }
};

constexpr const char* kOther = "0123456789abcdef";

TEST_F(AbandonedFiles, HaveNamesOfTheirOwn) { EXPECT_NE(TemporaryName(), TemporaryName()); }

TEST_F(AbandonedFiles, AreRemovedOnceTheirProcessIsGone) { EXPECT_FALSE(Stays(NameOfADeadProcess())); }

TEST_F(AbandonedFiles, AreRemovedThoughNobodyHasAskedHowTheirProcessEnded) {
  const auto [name, process] = NameOfAnEndedProcess();
  EXPECT_FALSE(Stays(name));
  EXPECT_EQ(waitpid(process, nullptr, 0), process);
}

TEST_F(AbandonedFiles, StayWhileTheirProcessLives) { EXPECT_TRUE(Stays(TemporaryName())); }

TEST_F(AbandonedFiles, AreRemovedWhenAnotherProcessHasTheId) { EXPECT_FALSE(Stays(NameWith(kStart, "1"))); }

TEST_F(AbandonedFiles, StayWhenTheStartOfTheirProcessIsNotKnown) { EXPECT_TRUE(Stays(NameWith(kStart, "0"))); }

TEST_F(AbandonedFiles, AreRemovedAfterTheMachineStartedAgain) { EXPECT_FALSE(Stays(NameWith(kBoot, kOther))); }

TEST_F(AbandonedFiles, StayWhenTheyAreThoseOfAnotherMachine) {
  std::string name = NameOfADeadProcess();
  EXPECT_TRUE(Stays(name.replace(name.find('-') + 1, 16, kOther)));
}

TEST_F(AbandonedFiles, StayWhileTheyAreLocked) {
  const std::string name = NameOfADeadProcess();
  const Descriptor file(open(Write(name, "").c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_TRUE(TryToLock(file.Get()));
  EXPECT_TRUE(Stays(name));
}

TEST_F(AbandonedFiles, AreNoneOfAnotherForm) {
  EXPECT_TRUE(Stays(".brvhost-notes"));
  EXPECT_TRUE(Stays(".brvhost-x7Rt2q"));
  EXPECT_TRUE(Stays("copy of " + NameOfADeadProcess()));
}

}  // namespace
}  // namespace brvhost
