#include "host/process/closeothers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace brvhost {
namespace {

constexpr int kKept = 20;

bool IsOpen(int descriptor) { return fcntl(descriptor, F_GETFD) >= 0; }

// Each digit is one descriptor: 1 where it is open, among them those on both sides of the one that is kept.
int OpenOnes() {
  int open = 0;
  for (const int descriptor : {STDERR_FILENO, STDERR_FILENO + 1, kKept - 1, kKept, kKept + 1, kKept + 2}) {
    open = open << 1 | static_cast<int>(IsOpen(descriptor));
  }
  return open;
}

TEST(CloseOthers, LeavesTheStandardStreamsAndOneOpen) {
  const auto closeAllButOne = [] {
    for (const int descriptor : {STDERR_FILENO + 1, kKept - 1, kKept, kKept + 1, kKept + 2}) dup2(0, descriptor);
    if (OpenOnes() != 0b111111) _exit(1);
    CloseOthers(kKept);
    _exit(OpenOnes());
  };
  EXPECT_EXIT(closeAllButOne(), testing::ExitedWithCode(0b100100), "");
}

}  // namespace
}  // namespace brvhost
