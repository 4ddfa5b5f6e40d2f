// A system without /proc: this program has a readlink of its own, which comes before the C library's.
#include <CoreFoundation/CoreFoundation.h>
#include <errno.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "ownbundle.h"

extern "C" __attribute__((visibility("default"))) ssize_t readlink(const char*, char*, std::size_t) noexcept {
  errno = ENOENT;
  return -1;
}

extern "C" __attribute__((visibility("default"))) int BrvFunctionOfTheProgram() { return 42; }

namespace {

TEST(MainBundleWithoutProc, HasTheFunctionsAndTheFolderOfTheProgram) {
  const CFBundleRef bundle = CFBundleGetMainBundle();
  ASSERT_NE(bundle, nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle, CFSTR("BrvFunctionOfTheProgram")),
            reinterpret_cast<void*>(&BrvFunctionOfTheProgram));
  testing::internal::CaptureStderr();
  CFShow(bundle);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "CFBundle " BRV_BINARY_DIR "/tests\n");
}

}  // namespace
