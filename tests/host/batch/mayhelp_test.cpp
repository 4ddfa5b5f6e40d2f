#include "host/batch/mayhelp.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <new>
#include <stdexcept>
#include <system_error>

#include "host/files/outputerror.h"
#include "host/process/memorylimit.h"

namespace brvhost {
namespace {

std::system_error SystemError(int error) { return {error, std::generic_category()}; }

TEST(MayPass, WhatTheSystemLacks) {
  EXPECT_TRUE(MayPass(std::bad_alloc()));
  for (const int error : {ENOMEM, EAGAIN, ENOSPC, EDQUOT, EMFILE, ENFILE, EIO})
    EXPECT_TRUE(MayPass(SystemError(error)));
}

TEST(MayPass, NotWhatIsWrongWithTheWork) {
  EXPECT_FALSE(MayPass(std::runtime_error("")));
  for (const int error : {ENOENT, EACCES, EROFS, EPERM, ENOTDIR, EFBIG}) EXPECT_FALSE(MayPass(SystemError(error)));
}

TEST(MayPass, WhatTheErrorItselfStates) {
  EXPECT_TRUE(MayPass(OutputError("", true)));
  EXPECT_FALSE(MayPass(OutputError("")));
  EXPECT_TRUE(MayPass(MemoryError("", true)));
  EXPECT_FALSE(MayPass(MemoryError("")));
}

TEST(MayPass, AKillFromOutsideButNoCrash) {
  EXPECT_TRUE(MayPass(SIGKILL));  // which is what waitpid gives for a process that was killed by it
  EXPECT_FALSE(MayPass(SIGSEGV));
  EXPECT_FALSE(MayPass(1 << 8));  // exit status 1
}

}  // namespace
}  // namespace brvhost
