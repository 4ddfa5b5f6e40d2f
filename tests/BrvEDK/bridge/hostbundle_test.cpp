// Binding to the host's bundle. A process has one host, so the tests run in the order of this file.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "hostbundle.h"
#include "recordinghost.h"
#include "tests/support/imageundertest.h"

namespace {

// The bundle's own main, which in this program the name alone does not reach.
int BundleMain(int argc, void* argv) {
  void* const image = dlopen(ExecutableUnderTest().c_str(), RTLD_NOW | RTLD_NOLOAD);
  const auto function = reinterpret_cast<int (*)(int, void*)>(dlsym(image, "main"));
  dlclose(image);
  return function(argc, argv);
}

TEST(HostBundle, IsNotBoundByAMainWithoutArguments) {
  char program[] = "host";
  char* argv[] = {program, nullptr};
  EXPECT_EQ(BundleMain(0, argv), 0);
  EXPECT_EQ(BundleMain(1, nullptr), 0);
  EXPECT_EQ(GetBrevixBundleRef(), nullptr);
}

TEST(HostBundle, IsTheOneWithTheHostsIdentifierAndStaysIt) {
  const CFBundleRef bundle = OpenHostBundle("RecordingHost");
  char program[] = "host";
  char* argv[] = {program, nullptr};
  EXPECT_EQ(BundleMain(1, argv), 1);
  EXPECT_EQ(GetBrevixBundleRef(), bundle);

  EXPECT_NE(OpenHostBundle("EmptyHost"), nullptr);
  EXPECT_EQ(InitializeGlobals(), 0);
  EXPECT_EQ(GetBrevixBundleRef(), bundle);
}

}  // namespace
