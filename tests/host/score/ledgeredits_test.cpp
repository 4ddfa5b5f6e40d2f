#include "host/score/ledgeredits.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <tuple>

#include "host/text/inputerror.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

std::string Edited(const std::string& document, const Score& score) {
  const LedgerEdits edits(document, score);
  std::string result;
  edits.Write([&result](std::string_view piece) { result.append(piece); });
  EXPECT_EQ(edits.EditedSize(), result.size());
  return result;
}

std::string WithAll(const std::string& document, bool hidden) {
  Score score = ReadMusicXml(document);
  for (ScoreEntry& entry : score.entries) entry.hidden = hidden;
  return Edited(document, score);
}

// The notes of a measure after the edits.
std::string NotesWith(const std::string& notes, bool hidden) {
  const std::string measure = "<measure>";
  const std::string all = WithAll(Partwise(measure + notes + "</measure>"), hidden);
  const std::size_t start = all.find(measure) + measure.size();
  return all.substr(start, all.find("</measure>") - start);
}
std::string Hidden(const std::string& notes) { return NotesWith(notes, true); }
std::string Shown(const std::string& notes) { return NotesWith(notes, false); }

TEST(LedgerEdits, AddTheAttributeAfterTheName) {
  EXPECT_EQ(Hidden("<note></note>"), "<note print-leger=\"no\"></note>");
  EXPECT_EQ(Hidden("<note/>"), "<note print-leger=\"no\"/>");
  EXPECT_EQ(Hidden("<note\n\tdefault-x='1' ></note >"), "<note print-leger=\"no\"\n\tdefault-x='1' ></note >");
}

TEST(LedgerEdits, TakeTheAttributeAwayWithItsBlanks) {
  EXPECT_EQ(Shown("<note print-leger=\"no\"/>"), "<note/>");
  EXPECT_EQ(Shown("<note a='1'\n  print-leger = 'no' b='2'/>"), "<note a='1' b='2'/>");
  EXPECT_EQ(Shown("<note a='print-leger=\"no\"' print-leger='&#x6e;o'>x</note>"),
            "<note a='print-leger=\"no\"'>x</note>");
}

TEST(LedgerEdits, KnowTheAttributeByItsWholeName) {
  EXPECT_EQ(Shown("<note print-legers='no' print-leger='no' print='no'/>"), "<note print-legers='no' print='no'/>");
  EXPECT_EQ(Hidden("<note print='yes' print-lege='yes' xprint-leger='yes' print-leger='yes'/>"),
            "<note print='yes' print-lege='yes' xprint-leger='yes' print-leger='no'/>");
}

TEST(LedgerEdits, ChangeTheValueWhereTheAttributeStays) {
  EXPECT_EQ(Hidden("<note print-object='no' print-leger='yes'/>"), "<note print-object='no' print-leger='no'/>");
  EXPECT_EQ(Hidden("<note print-leger='yes' a='b'/>"), "<note print-leger='no' a='b'/>");
}

TEST(LedgerEdits, TreatInvisibleNotesAsAllOthers) {
  EXPECT_EQ(Shown("<note print-object='no'/>"), "<note print-object='no'/>");
  EXPECT_EQ(Hidden("<note print-object='no'/>"), "<note print-leger=\"no\" print-object='no'/>");
  EXPECT_EQ(Shown("<note print-leger=\"no\" print-object='no'/>"), "<note print-object='no'/>");
}

TEST(LedgerEdits, LeaveEntriesAloneThatAreAsTheyWere) {
  const std::string mixed = Partwise(Measure(Note("", " print-leger='no'") + Note("<chord/>")));
  EXPECT_EQ(WithAll(mixed, false), mixed) << "one note shows its lines, and so does the entry";
  const std::string hidden = Partwise(Measure(Note("", " print-leger='no'")));
  EXPECT_EQ(WithAll(hidden, true), hidden);
}

TEST(LedgerEdits, ChangeEveryNoteOfAChangedChord) {
  EXPECT_EQ(Hidden("<note/><note><chord/></note>"),
            "<note print-leger=\"no\"/><note print-leger=\"no\"><chord/></note>");
  EXPECT_EQ(Shown("<note print-leger='no'/><note print-leger='no'><chord/></note>"), "<note/><note><chord/></note>");
  EXPECT_EQ(Hidden("<note print-leger = 'no' /><note><chord/></note>"),
            "<note print-leger = 'no' /><note print-leger=\"no\"><chord/></note>")
      << "a note that is already as it should be keeps its bytes";
}

TEST(LedgerEdits, FollowTheDocumentWhateverTheOrderOfTheVoices) {
  const auto notes = [](const std::string& attribute) {
    std::string all;
    for (const char* const voice : {"1", "2", "1", "3", "2", "1"}) {
      all.append("<note").append(attribute).append("><voice>").append(voice).append("</voice></note>");
    }
    return all;
  };
  EXPECT_EQ(Hidden(notes("")), notes(" print-leger=\"no\""));
  EXPECT_EQ(Shown(notes(" print-leger=\"no\"")), notes(""));
}

TEST(LedgerEdits, CountTheEntriesThatChangeAndNotTheirNotes) {
  const std::string document = Partwise(Measure(Note() + Note("<chord/>") + Note("", " print-leger='no'") + Note()));
  Score score = ReadMusicXml(document);
  EXPECT_EQ(LedgerEdits(document, score).ChangedEntries(), 0u);
  for (ScoreEntry& entry : score.entries) entry.hidden = true;
  EXPECT_EQ(LedgerEdits(document, score).ChangedEntries(), 2u);
}

// One document in many forms: everything around the notes has to stay.
std::string Document(const std::string& encoding, const std::string& lineEnd) {
  return "<?xml version=\"1.0\" encoding='" + encoding + "' ?>" + lineEnd +
         "<!DOCTYPE score-partwise [<!ENTITY flat \"&#x266D;\">]>" + lineEnd + "<!-- <note> is no note -->" + lineEnd +
         "<score-partwise><part-list><score-part id=\"P1\"><part-name>B&flat; Fl\u00FBte "
         "&lt;</part-name></score-part>" +
         "</part-list>" + lineEnd + "<part id='P1'><measure number=\"1\"><?page break?>" + lineEnd +
         "<note\tdefault-x='1'><duration>1</duration></note>" + lineEnd + "<![CDATA[<note>]]>" +
         "<note ><chord/><duration>1</duration></note  >" + lineEnd + "<note><rest/><duration>1</duration></note>" +
         lineEnd + "</measure></part></score-partwise>" + lineEnd + "<!-- end -->";
}

std::string Encode(const std::string& utf8, const char* encoding) {
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
  std::string bytes(static_cast<std::size_t>(text.length()) * 4 + 4, '\0');
  UErrorCode error = U_ZERO_ERROR;
  UConverter* const converter = ucnv_open(encoding, &error);
  const int32_t length = ucnv_fromUChars(converter, bytes.data(), static_cast<int32_t>(bytes.size()), text.getBuffer(),
                                         text.length(), &error);
  ucnv_close(converter);
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

struct Form {
  const char* declared;
  const char* encoding;
  const char* mark;  // a byte-order mark
  std::size_t markLength;
};

// The document above with all its notes hidden.
std::string HiddenByHand(std::string text) {
  for (const char* const tag : {"<note\tdefault", "<note >", "<note><rest"}) {
    text.insert(text.find(tag) + 5, " print-leger=\"no\"");
  }
  return text;
}

template <class Encoder>
void ExpectEveryOtherByteStands(const std::string& text, const Encoder& encoded) {
  const std::string hidden = WithAll(encoded(text), true);
  EXPECT_EQ(hidden, encoded(HiddenByHand(text)));
  EXPECT_EQ(WithAll(hidden, false), encoded(text));
}

class LedgerEditsKeep : public testing::TestWithParam<std::tuple<Form, const char*>> {};

TEST_P(LedgerEditsKeep, EveryOtherByte) {
  const auto& [form, lineEnd] = GetParam();
  ExpectEveryOtherByteStands(Document(form.declared, lineEnd), [&f = form](const std::string& plain) {
    return std::string(f.mark, f.markLength).append(Encode(plain, f.encoding));
  });
}

INSTANTIATE_TEST_SUITE_P(
    Forms, LedgerEditsKeep,
    testing::Combine(testing::Values(Form{"UTF-8", "UTF-8", "", 0}, Form{"UTF-8", "UTF-8", "\xEF\xBB\xBF", 3},
                                     Form{"UTF-16", "UTF-16LE", "\xFF\xFE", 2},
                                     Form{"UTF-16", "UTF-16BE", "\xFE\xFF", 2}, Form{"UTF-16", "UTF-16LE", "", 0},
                                     Form{"UTF-16", "UTF-16BE", "", 0}, Form{"UTF-16LE", "UTF-16LE", "\xFF\xFE", 2},
                                     Form{"utf-16be", "UTF-16BE", "", 0}, Form{"ISO-8859-1", "ISO-8859-1", "", 0},
                                     Form{"windows-1252", "windows-1252", "", 0},
                                     Form{"macintosh", "macintosh", "", 0}),
                     testing::Values("\n", "\r\n", "\r", "")));

// Without a mark or a declaration the first character shows the encoding, and it need not be a "<".
TEST(LedgerEdits, KeepUtf16WithoutAMarkWhateverBlanksItStartsWith) {
  const std::string declared = Document("", "\n");
  const std::string text = declared.substr(declared.find("<!DOCTYPE"));
  for (const char* const encoding : {"UTF-16LE", "UTF-16BE"}) {
    for (const char* const blanks : {"", " ", "\t", "\n", "\r\n", "  \n"}) {
      SCOPED_TRACE(testing::Message() << encoding << ", " << testing::PrintToString(blanks));
      ExpectEveryOtherByteStands(blanks + text, [&](const std::string& plain) { return Encode(plain, encoding); });
    }
  }
}

// Their lower bytes are those of quotes, of "<", ">" and "=", and of blanks.
TEST(LedgerEdits, TakeNoCharacterOfUtf16ForMarkupByHalfOfIt) {
  const auto score = [](const std::string& attribute) {
    return Partwise(Measure("<note a='\u0127\u0122\u013E\u013D\u0120' b=\"\u0122\u0127\u012F\"" + attribute + "/>"));
  };
  for (const char* const encoding : {"UTF-16LE", "UTF-16BE"}) {
    EXPECT_EQ(WithAll(Encode(score(" print-leger='no'"), encoding), false), Encode(score(""), encoding)) << encoding;
  }
}

// The parser changes to the declared encoding, whatever the declaration itself is written in.
TEST(LedgerEdits, ChangeBytesWhereOnlyTheDeclarationIsInUtf16) {
  for (const char* const encoding : {"UTF-16LE", "UTF-16BE"}) {
    const std::string declaration = Encode("<?xml version='1.0' encoding='windows-1252'?>", encoding);
    EXPECT_EQ(WithAll(declaration + Partwise(Measure("<note/>")), true),
              declaration + Partwise(Measure("<note print-leger=\"no\"/>")))
        << encoding;
  }
}

TEST(LedgerEdits, RefuseToChangeANoteThatComesFromAnEntity) {
  const std::string document = "<!DOCTYPE score-partwise [<!ENTITY n \"<note><duration>1</duration></note>\">]>\n" +
                               Partwise("\n" + Measure("\u00E9&n;" + Note()));
  Score score = ReadMusicXml(document);
  ASSERT_EQ(score.entries.size(), 2u);
  score.entries[1].hidden = true;
  EXPECT_NE(Edited(document, score), document) << "other notes may change";
  score.entries[0].hidden = true;
  try {
    Edited(document, score);
    FAIL() << "it was written";
  } catch (const InputError& error) {
    EXPECT_EQ(error.place.line, 3u);
    EXPECT_EQ(error.place.column, 22u) << "in characters";
  }
}

}  // namespace
}  // namespace brvhost
