#include "host/text/shellword.h"

#include <gtest/gtest.h>

#include <string>

namespace brvhost {
namespace {

TEST(ShellWord, IsAPlainArgumentAsItIs) { EXPECT_EQ(ShellWord("/usr/lib/A-1_b.bundle"), "/usr/lib/A-1_b.bundle"); }

TEST(ShellWord, IsQuotedWhereAShellWouldTakeItApart) {
  EXPECT_EQ(ShellWord(""), "''");
  EXPECT_EQ(ShellWord("a b"), "'a b'");
  EXPECT_EQ(ShellWord("$HOME;*"), "'$HOME;*'");
}

TEST(ShellWord, IsQuotedForEachCharacterThatMeansSomethingToAShell) {
  for (const char character : std::string("\t\n !\"#$&()*;<>?[\\]`{|}~")) {
    const std::string argument = {'a', character};
    EXPECT_EQ(ShellWord(argument), "'" + argument + "'");
  }
}

TEST(ShellWord, HasItsOwnQuotesOutsideOfTheOthers) { EXPECT_EQ(ShellWord("it's"), "'it'\\''s'"); }

}  // namespace
}  // namespace brvhost
