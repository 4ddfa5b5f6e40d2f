#include "host/process/whereabouts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "host/process/child.h"

namespace brvhost {
namespace {

TEST(Whereabouts, NameWhatRunsAndTheHostCallInIt) {
  const SharedWhereabouts places(2);
  ReportWhereaboutsTo(places[1]);
  EXPECT_EQ(Describe(places[1]), "");
  {
    const InExtension invoke("BrevixExtensionInvoke");
    EXPECT_EQ(Describe(places[1]), " in BrevixExtensionInvoke");
    {
      const InHostCall load("BX_LoadTGF");
      EXPECT_EQ(Describe(places[1]), " in BX_LoadTGF, called in BrevixExtensionInvoke");
    }
    EXPECT_EQ(Describe(places[1]), " in BrevixExtensionInvoke");
  }
  EXPECT_EQ(Describe(places[1]), "");
  EXPECT_EQ(Describe(places[0]), "");
}

TEST(Whereabouts, AreKnownOfAChildThatHasEnded) {
  const SharedWhereabouts places(1);
  const pid_t child = StartChild([&places]() -> int {
    ReportWhereaboutsTo(places[0]);
    const InExtension invoke("BrevixExtensionInvoke");
    std::abort();
  });
  EXPECT_EQ(EndingOf(WaitForChild(child)), "signal 6 (Aborted)");
  EXPECT_EQ(Describe(places[0]), " in BrevixExtensionInvoke");
}

TEST(Whereabouts, AreReadWithinTheirMemoryWhateverIsInThem) {
  const SharedWhereabouts places(1);
  std::memset(&places[0], 'x', sizeof(Whereabouts));
  const std::string name(Whereabouts::kSize, 'x');
  EXPECT_EQ(Describe(places[0]), " in " + name + ", called in " + name);
}

TEST(Whereabouts, CutNamesThatAreTooLong) {
  const SharedWhereabouts places(1);
  ReportWhereaboutsTo(places[0]);
  const InExtension here(std::string(100, 'x').c_str());
  EXPECT_EQ(Describe(places[0]), " in " + std::string(Whereabouts::kSize - 1, 'x'));
}

}  // namespace
}  // namespace brvhost
