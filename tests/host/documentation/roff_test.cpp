#include "host/documentation/roff.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(Roff, KeepsCharactersThatManualPagesGiveAnotherMeaning) {
  EXPECT_EQ(RoffOf("--all 'a b' ^x ~/y C:\\z \"q\""), R"(\-\-all \(aqa b\(aq \(hax \(ti/y C:\ez "q")");
}

TEST(Roff, HasNoCommandWhereALineMayBegin) {
  EXPECT_EQ(RoffOf(".mxl or .xml: a.xml."), R"(\&.mxl or \&.xml: a.xml.)");
  EXPECT_EQ(RoffOf("'quoted'"), R"(\(aqquoted\(aq)");
}

TEST(Roff, HasWhatIsQuotedForAShellInBold) {
  EXPECT_EQ(RoffOf("`brvhost run` or `man brvhost-run`."), R"(\fBbrvhost run\fR or \fBman brvhost\-run\fR.)");
}

TEST(Roff, HasSectionsParagraphsItemsAndExamples) {
  EXPECT_EQ(RoffOfProse("FILES\n  One\n  two.\n\n  Three:\n    .a -b\n      c\n  Four.\n\nEXIT STATUS\n  0    done,\n  "
                        "     all\n\nLAST\n    d"),
            ".SH FILES\nOne two.\n.PP\nThree:\n.RS 4\n.nf\n\\&.a \\-b\n  c\n.fi\n.RE\n.PP\nFour.\n"
            ".SH EXIT STATUS\n.TP 5\n0\ndone, all\n.SH LAST\n.RS 4\n.nf\nd\n.fi\n.RE\n");
}

TEST(Roff, HasLinesThatATerminalHolds) {
  const std::string word(30, 'x');
  EXPECT_EQ(RoffLinesOf(word + " " + word + " " + word), word + " " + word + "\n" + word + "\n");
}

}  // namespace
}  // namespace brvhost
