#include "host/commands/wrongusage.h"

#include <gtest/gtest.h>

#include "host/commands/commandline.h"

namespace brvhost {
namespace {

TEST(WrongUsage, NamesTheArgumentWhereItKnowsNoMore) {
  Options options;
  const auto app = DescribeCommandLine(options, "1.0.0");
  EXPECT_EQ(WrongUsage(CLI::HorribleError("of a kind that is not known"), *app, "--fly"),
            "--fly: cannot be understood here; --help lists what there is");
}

}  // namespace
}  // namespace brvhost
