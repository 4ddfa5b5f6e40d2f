#include "host/commands/prose.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

constexpr const char* kText = R"(HEADING
  A paragraph of
  two lines.

  Another.
  1    an item
       and its end
  130  another
  A paragraph:
    an example
      that goes on
ANOTHER
  word    a longer item, the end of which is so far to the right that it needs
          a line of its own
  2 is no item.)";

TEST(Prose, HasPieces) {
  std::string found;
  for (const Prose& piece : PiecesOf(kText)) {
    found += "hpie"[static_cast<int>(piece.kind)] + std::string(" ") + piece.label + "|" + piece.text + "\n";
  }
  EXPECT_EQ(found,
            "h |HEADING\n"
            "p |A paragraph of two lines.\n"
            "p |Another.\n"
            "i 1|an item and its end\n"
            "i 130|another\n"
            "p |A paragraph:\n"
            "e |an example\n"
            "e |  that goes on\n"
            "h |ANOTHER\n"
            "i word|a longer item, the end of which is so far to the right that it needs a line of its own\n"
            "p |2 is no item.\n");
  EXPECT_TRUE(PiecesOf("").empty());
}

TEST(Prose, IsLaidOut) {
  EXPECT_EQ(LaidOut(PiecesOf(kText)), R"(HEADING
  A paragraph of two lines.

  Another.
  1    an item and its end
  130  another
  A paragraph:
    an example
      that goes on

ANOTHER
  word    a longer item, the end of which is so far to the right that it needs a
          line of its own
  2 is no item.
)");
}

TEST(Wrapped, HasNoMoreThan80CharactersInALine) {
  const std::string ten = "123456789 ";
  std::string text;
  for (int i = 0; i < 9; ++i) text += ten;
  EXPECT_EQ(Wrapped(text, 0), text.substr(0, 79) + "\n123456789\n");
  EXPECT_EQ(Wrapped("1 " + text.substr(0, 78), 1), " 1 " + text.substr(0, 69) + "\n 12345678\n");
  EXPECT_EQ(Wrapped("1" + text.substr(0, 79), 0), "1" + text.substr(0, 79) + "\n") << "80 of them";
  EXPECT_EQ(Wrapped(std::string(100, 'x') + " y", 2), "  " + std::string(100, 'x') + "\n  y\n") << "a word is not cut";
  EXPECT_EQ(Wrapped("", 2), "");
}

}  // namespace
}  // namespace brvhost
