#include "host/xml/xmlreader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <sstream>
#include <string>
#include <string_view>

#include "host/process/memorylimit.h"
#include "host/text/inputerror.h"
#include "host/xml/xmlreason.h"

namespace brvhost {
namespace {

// A reader that wants nothing.
class Nobody : public XmlHandler {
 public:
  void Begin(XmlPosition&) override {}
  void StartElement(const char*, const XmlAttributes&) override {}
  void EndElement() override {}
  void Text(std::string_view) override {}
};

// Writes down what is reported, with its place; a text whole, whatever pieces it comes in.
class Scribe : public XmlHandler {
 public:
  void Begin(XmlPosition& position) override {
    position_ = &position;
    position.WantText(true);
  }
  void StartElement(const char* name, const XmlAttributes& attributes) override {
    const TextPlace place = position_->Place();
    const char* const id = attributes.Find("id");
    written_ << '<' << name << ' ' << (id == nullptr ? "" : id) << " at " << position_->Offset() << ", " << place.line
             << ':' << place.column << ", units " << static_cast<int>(position_->Units()) << '>';
  }
  void EndElement() override { written_ << "</>"; }
  void Text(std::string_view piece) override { written_ << piece; }

  std::string Written() const { return written_.str(); }

 private:
  XmlPosition* position_ = nullptr;
  std::ostringstream written_;
};

// What is reported of a document, and then what is wrong with it.
std::string Reported(std::string_view document, std::size_t maxPieceSize) {
  Scribe scribe;
  try {
    ReadXml(document, scribe, maxPieceSize);
  } catch (const InputError& error) {
    return scribe.Written() + "; " + error.what() + " at " + std::to_string(error.place.line) + ":" +
           std::to_string(error.place.column);
  }
  return scribe.Written();
}

void ExpectTheSameInPieces(std::string_view document, const std::string& expected) {
  for (std::size_t size = 1; size <= document.size() + 1; ++size) EXPECT_EQ(Reported(document, size), expected) << size;
  EXPECT_EQ(Reported(document, kMaxPieceSize), expected);
}

TEST(ReadXml, ReportsTheSameHoweverSmallThePiecesThatTheParserIsGiven) {
  ExpectTheSameInPieces(
      "<?xml version='1.0'?>\n<!-- <x> -->\n<a id='1'>one\n \u00E9&amp;<b/>two\n  <b id='&#x32;'/></a>\n",
      "<a 1 at 35, 3:1, units 0>one\n \u00E9&<b  at 57, 4:8, units 0></>two\n  "
      "<b 2 at 67, 5:3, units 0></></>");
}

TEST(ReadXml, ReportsTheSameOfUtf16HoweverSmallThePieces) {
  using namespace std::string_view_literals;
  ExpectTheSameInPieces("\0<\0a\0>\0\n\x30\x42\0<\0b\0/\0>\0<\0/\0a\0>"sv,
                        "<a  at 0, 1:1, units 2>\n\u3042<b  at 10, 2:2, units 2></></>");
}

TEST(ReadXml, ReportsTheSameErrorHoweverSmallThePieces) {
  ExpectTheSameInPieces("<a>\n <b></c>",
                        "<a  at 0, 1:1, units 0>\n <b  at 5, 2:2, units 0>; "
                        "not well-formed XML: an end tag of another element than the open one at 2:7");
  ExpectTheSameInPieces("<a>\n ", "<a  at 0, 1:1, units 0>\n ; the XML ends too early at 2:2");
  ExpectTheSameInPieces("", "; the XML ends too early at 1:1");
}

struct BadDocument {
  std::string text;
  const char* wrong;
};

std::string Declaring(const std::string& declarations, const std::string& root) {
  return "<!DOCTYPE a [" + declarations + "]>" + root;
}

// Small, and millions of characters when its references are followed.
std::string Bomb() {
  std::string declarations = "<!ENTITY e0 '" + std::string(1000, 'x') + "'>";
  for (int level = 1; level < 6; ++level) {
    declarations += "<!ENTITY e" + std::to_string(level) + " '";
    for (int i = 0; i < 10; ++i) declarations += "&e" + std::to_string(level - 1) + ";";
    declarations += "'>";
  }
  return Declaring(declarations, "<a>&e5;</a>");
}

TEST(ReadXml, NamesWhatIsWrongWithADocument) {
  const BadDocument documents[] = {
      {"hello", "text or markup that may not be here"},
      {"<a>\x01</a>", "a character that may not be here"},
      {"<a>\xC3", "a character that is cut off"},
      {"<a></b>", "an end tag of another element than the open one"},
      {"<a x='1' x='2'/>", "an attribute that the tag has already"},
      {"<a/>b", "text or markup after the end of the document"},
      {Declaring("<!ENTITY e '%p;'>", "<a/>"), "a reference to a parameter entity that may not be here"},
      {"<a>&e;</a>", "a reference to an entity that is not declared"},
      {Declaring("<!ENTITY e '&e;'>", "<a>&e;</a>"), "an entity that refers to itself"},
      {Declaring("<!ENTITY e '<b>'>", "<a>&e;</b></a>"),
       "an entity that does not end in the element that it starts in"},
      {"<a>&#0;</a>", "a reference to a character that XML does not have"},
      {Declaring("<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'e' NDATA n>", "<a>&e;</a>"),
       "a reference to an entity that is not XML"},
      {Declaring("<!ENTITY e SYSTEM 'e'>", "<a x='&e;'/>"),
       "an attribute that refers to an entity outside the document"},
      {" <?xml version='1.0'?><a/>", "an XML declaration that is not at the start"},
      {"<?xml version='1.0' encoding='nowhere'?><a/>", "an encoding that is not known"},
      {"<?xml version='1.0' encoding='UTF-16'?><a/>", "an encoding that the document is not in"},
      {"<a><![CDATA[x", "a CDATA section that does not end"},
      {"<?xml version='1.0' x='1'?><a/>", "an XML declaration with something wrong in it"},
      {"<!DOCTYPE a PUBLIC '{' 's'><a/>", "a public identifier with a character that it may not have"},
      {Bomb(), "entities that stand for far more text than the document has"},
  };
  for (const BadDocument& document : documents) {
    try {
      Nobody nobody;
      ReadXml(document.text, nobody);
      ADD_FAILURE() << "it was read: " << document.text;
    } catch (const InputError& error) {
      EXPECT_EQ(error.what(), std::string("not well-formed XML: ") + document.wrong) << document.text;
    }
  }
}

TEST(XmlReason, NamesTheNumberOfAnErrorThatIsNotKnown) { EXPECT_EQ(XmlReason(1000), "error 1000 of the parser"); }

// Refuses each element, with a place or without, and counts what is reported after that.
class Refuser : public XmlHandler {
 public:
  explicit Refuser(TextPlace place) : place_(place) {}
  void Begin(XmlPosition&) override {}
  void StartElement(const char* name, const XmlAttributes&) override {
    ++reported;
    throw InputError(name, place_);
  }
  void EndElement() override { ++reported; }
  void Text(std::string_view) override { ++reported; }

  int reported = 0;

 private:
  const TextPlace place_;
};

TEST(ReadXml, EndsAtTheFirstElementThatIsRefused) {
  Refuser refuser({});
  try {
    ReadXml("\n <a/>", refuser);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "a");
    EXPECT_EQ(error.place.line, 2u) << "that of the element";
    EXPECT_EQ(error.place.column, 2u);
  }
  EXPECT_EQ(refuser.reported, 1) << "not its end either";
}

TEST(ReadXml, LeavesAnErrorThePlaceThatItHas) {
  Refuser refuser({7, 9});
  try {
    ReadXml("\n <a/>", refuser);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_EQ(error.place.line, 7u);
    EXPECT_EQ(error.place.column, 9u);
  }
}

TEST(ReadXmlSection, RefusesASectionThatIsMoreThanOnePiece) {
  const XmlSection section{"<a>", "<b/><c/>", "</a>", 100};
  Scribe scribe;
  ReadXmlSection(section, scribe, 8);
  EXPECT_EQ(scribe.Written(), "<a  at 97, 1:1, units 0><b  at 100, 1:4, units 0></><c  at 104, 1:8, units 0></></>");
  try {
    ReadXmlSection(section, scribe, 7);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "the section is too large");
  }
}

TEST(ReadXmlSection, RefusesASectionInUtf16) {
  const std::string_view content(" \0<\0a\0/\0>\0", 10);
  Nobody nobody;
  EXPECT_NO_THROW(ReadXml(content, nobody));
  try {
    ReadXmlSection({"", content, "", 0}, nobody);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "the section is not in UTF-8");
  }
}

std::string Nested(int depth) {
  std::string document;
  for (int i = 0; i < depth; ++i) document += "<a>\n";
  for (int i = 0; i < depth; ++i) document += "</a>";
  return document;
}

TEST(ReadXml, RefusesElementsThatAreNestedTooDeep) {
  Nobody nobody;
  EXPECT_NO_THROW(ReadXml(Nested(256), nobody));
  EXPECT_NO_THROW(ReadXml("<b>" + Nested(255) + Nested(255) + "</b>", nobody));
  try {
    ReadXml(Nested(257), nobody);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "elements are nested more than 256 deep");
    EXPECT_EQ(error.place.line, 257u);
    EXPECT_EQ(error.place.column, 1u);
  }
}

// The parser's buffer for the text takes less than 32 MB, and the attribute, which it keeps besides, up to 16 MB more.
TEST(ReadXml, LacksMemoryWhenTheParserDoes) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer ends the program when memory runs out";
#endif
  constexpr std::uint64_t kMegabyte = 1 << 20;
  const std::string document = "<a b='" + std::string(10 * kMegabyte, 'b') + "'/>";
  Nobody nobody;
  int refusals = 0;
  for (std::uint64_t allowance = 0; allowance < 64 * kMegabyte; allowance += 4 * kMegabyte) {
    const MemoryLimit limit(allowance, 0);
    try {
      ReadXml(document, nobody);
    } catch (const std::bad_alloc&) {
      ++refusals;
    }
  }
  EXPECT_GT(refusals, 4);
  EXPECT_LT(refusals, 15);
}

}  // namespace
}  // namespace brvhost
