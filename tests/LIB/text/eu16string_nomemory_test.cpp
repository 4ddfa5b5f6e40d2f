// Texts that the system has no memory for, where the kit asks for none itself.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "eu16text.h"
#include "tests/support/failingmemory.h"

namespace {

TEST(Eu16StringWithoutMemoryOfTheSystem, IsTheDefaultAsANumber) {
  eu16string text = FromUtf8("12");
  const FailingMemory memory(0);
  EXPECT_EQ(StrToIntDef(std::move(text), 7), 7);
  EXPECT_TRUE(memory.HasFailed());
  EXPECT_EQ(StrToIntDef(FromUtf8("12"), 7), 12);
}

TEST(Eu16StringWithoutMemoryOfTheSystem, IsEmptyAsAStandardString) {
  const eu16string text = FromUtf8("new");
  std::string copy = "old";
  {
    const FailingMemory memory(0);
    text.GetStdString(copy);
    EXPECT_TRUE(memory.HasFailed());
  }
  EXPECT_EQ(copy, "");
  text.GetStdString(copy);
  EXPECT_EQ(copy, "new");
}

}  // namespace
