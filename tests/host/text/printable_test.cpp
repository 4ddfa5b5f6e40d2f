#include "host/text/printable.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brvhost {
namespace {

using namespace std::string_view_literals;

TEST(Printable, LeavesTextAsItIs) {
  EXPECT_EQ(Printable(""), "");
  EXPECT_EQ(Printable("Horn in F, 2.–4. Stimme \u3042 \U0001D15E"), "Horn in F, 2.–4. Stimme \u3042 \U0001D15E");
}

TEST(Printable, MakesBlanksOfWhatTerminalsObey) {
  EXPECT_EQ(Printable("a\x1b[2Jb"), "a [2Jb");
  EXPECT_EQ(Printable("a\nb\r\tc\x7f"), "a b  c ");
  EXPECT_EQ(Printable("a\0b"sv), "a b");
  EXPECT_EQ(Printable("a\u009b2Jb\u2028c\u2029"), "a 2Jb c ");
  EXPECT_EQ(Printable("\u202eevil\u2066x\u2069"), " evil x ");
}

TEST(Printable, ShowsWhereTextIsNotUtf8) {
  EXPECT_EQ(Printable("caf\xe9!"), "caf\uFFFD!");
  EXPECT_EQ(Printable("\x9b"), "\uFFFD");
}

TEST(Excerpt, IsTheTextUpToSixtyCharacters) {
  const std::string sixty(60, 'x');
  EXPECT_EQ(Excerpt(""), "");
  EXPECT_EQ(Excerpt(sixty), sixty);
  EXPECT_EQ(Excerpt(sixty + "y"), sixty + "...");
  EXPECT_EQ(Excerpt(std::string(1'000'000, 'x')), sixty + "...");
  std::string notes;
  for (int i = 0; i < 60; ++i) notes += "\U0001D11E";
  EXPECT_EQ(Excerpt(notes), notes);
  EXPECT_EQ(Excerpt(notes + "x"), notes + "...");
  EXPECT_EQ(Excerpt(notes + "\U0001D11E"), notes + "...");
  EXPECT_EQ(Excerpt("a\nb\x1B[2J"), "a b [2J");
}

}  // namespace
}  // namespace brvhost
