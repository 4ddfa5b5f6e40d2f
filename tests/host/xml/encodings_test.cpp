// The encodings that a declaration may name, compared with the library that knows them.
#include <gtest/gtest.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "encodinglibrary.h"
#include "host/text/inputerror.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

using encodinglibrary::kNothing;
using encodinglibrary::kStart;
using encodinglibrary::madeUp;
using encodinglibrary::questions;

constexpr std::int64_t kMaxQuestions = 10'100'000;  // about one score: a second or two

// A name that may stand in a declaration, or nothing.
std::string DeclarableName(const char* converter) {
  UErrorCode error = U_ZERO_ERROR;
  for (uint16_t i = 0; i < ucnv_countAliases(converter, &error); ++i) {
    std::string name = ucnv_getAlias(converter, i, &error);
    const auto allowed = [](unsigned char c) { return std::isalnum(c) != 0 || c == '.' || c == '_' || c == '-'; };
    if (std::isalpha(static_cast<unsigned char>(name[0])) != 0 && std::ranges::all_of(name, allowed)) return name;
  }
  return {};
}

std::vector<std::string> AllEncodings() {
  std::vector<std::string> names;
  for (int32_t i = 0; i < ucnv_countAvailable(); ++i) {
    const std::string name = DeclarableName(ucnv_getAvailableName(i));
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

std::string NamedScore(const std::string& encoding, const std::string& name) {
  return "<?xml version='1.0' encoding='" + encoding + "'?><score-partwise><part-list><score-part id='P'><part-name>" +
         name + "</part-name></score-part></part-list><part id='P'/></score-partwise>";
}

// The part's name as it was read, or null where the encoding was refused. Anything else is a failure.
std::optional<std::string> ReadName(const std::string& encoding, const std::string& name) {
  try {
    return ReadMusicXml(NamedScore(encoding, name)).parts.at(0).names.name;
  } catch (const InputError& error) {
    EXPECT_TRUE(std::string(error.what()).ends_with("an encoding that is not known") ||
                std::string(error.what()).ends_with("an encoding that the document is not in"))
        << encoding << ": " << error.what();
    return std::nullopt;
  }
}

TEST(Encodings, AreReadOrRefusedWithoutASearchThatDoesNotEnd) {
  const auto encodings = AllEncodings();
  ASSERT_GT(encodings.size(), 200u);
  int read = 0;
  std::int64_t asked = 0;
  for (const std::string& encoding : encodings) {
    questions = 0;
    read += ReadName(encoding, "Oboe") == "Oboe";
    EXPECT_LT(questions, kMaxQuestions) << encoding;
    asked += questions;
  }
  EXPECT_GT(read, 100);
  EXPECT_GT(asked, 0) << "the library is asked by another name";
}

struct Letters {
  const char* encoding;
  std::u16string text;  // empty: the encoding is refused
};

// One and more of each kind.
const Letters kLetters[] = {
    {"GSM0338", u""},      // "@" stands for a character 0
    {"ISO-2022-JP", u""},  // ESC switches to other characters
    {"ISO-2022-KR", u""},
    {"HZ-GB-2312", u""},
    {"UTF-7", u""},
    {"IMAP-mailbox-name", u""},
    {"SCSU", u""},
    {"BOCU-1", u""},
    {"x-iscii-de", u""},
    {"ibm-037", u""},  // not ASCII
    {"ibm-1047", u""},
    {"ibm-930", u""},
    {"UTF-32", u""},
    {"UTF-32LE", u""},
    {"ISO-10646-UCS-2", u""},
    {"GB18030", u""},  // two bytes and four start alike
    {"no-such-encoding", u""},
    {"US-ASCII", u"Oboe"},
    {"ISO-8859-1", u"\u00FB"},
    {"ISO-8859-2", u"\u0159"},
    {"ISO-8859-15", u"\u20AC"},
    {"windows-1251", u"\u0413\u043E\u0431\u043E\u0439"},
    {"windows-1252", u"\u20AC"},
    {"windows-1256", u"\u0639\u0648\u062F"},
    {"KOI8-R", u"\u0413\u043E\u0431\u043E\u0439"},
    {"macintosh", u"\u00FB"},
    {"TIS-620", u"\u0E1B\u0E35\u0E48"},
    {"Shift_JIS", u"\u30D4\u30A2\u30CE"},
    {"EUC-JP", u"\u30D4\u30A2\u30CE\u4E02"},  // two bytes, and three
    {"Big5", u"\u92FC\u7434"},
    {"EUC-TW", u"\u92FC\u7434\u4E28"},  // two bytes, and four
    {"GBK", u"\u94A2\u7434"},
    {"GB2312", u"\u94A2\u7434"},
    {"EUC-KR", u"\uD53C\uC544\uB178"},
    {"KS_C_5601-1987", u"\uD53C\uC544\uB178"},
    {"CESU-8", u"\u00FB\u30D4"},
    {"utf8", u"\u00FB\u30D4"},
};

TEST(Encodings, AreReadAsTheyAreWritten) {
  for (const Letters& letters : kLetters) {
    SCOPED_TRACE(letters.encoding);
    UErrorCode error = U_ZERO_ERROR;
    std::string bytes = "Oboe";
    std::string expected = bytes;
    if (!letters.text.empty()) {
      char buffer[64];
      UConverter* const converter = ucnv_open(letters.encoding, &error);
      ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
      const int32_t length = ucnv_fromUChars(converter, buffer, sizeof(buffer), letters.text.data(),
                                             static_cast<int32_t>(letters.text.size()), &error);
      ASSERT_TRUE(U_SUCCESS(error)) << u_errorName(error);
      ucnv_close(converter);
      bytes.assign(buffer, static_cast<std::size_t>(length));
      expected.clear();
      icu::UnicodeString(letters.text.data(), static_cast<int32_t>(letters.text.size())).toUTF8String(expected);
    }
    const auto name = ReadName(letters.encoding, bytes);
    if (letters.text.empty()) {
      EXPECT_EQ(name, std::nullopt);
    } else {
      EXPECT_EQ(name, expected);
    }
  }
}

// Encodings of no library, in which the bytes up to 0x7F are ASCII.

int AsciiOr(int other, std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  return bytes.size() == 1 && first < 0x80 ? first : other;
}

// The name of the part, whose bytes are in the encoding, or null where that or they are refused.
std::optional<std::string> ReadMadeUp(const std::string& name) {
  try {
    return ReadMusicXml(NamedScore("made-up", name)).parts.at(0).names.name;
  } catch (const InputError&) {
    return std::nullopt;
  }
}

TEST(Encodings, AreRefusedWhereCharactersThatStartAlikeHaveDifferentLengths) {
  const auto withCharactersOfTwoBytesAnd = [](std::string_view another) {
    madeUp = [another](std::string_view bytes) {
      if (bytes == "\x81" || (another.size() > 2 && bytes == another.substr(0, bytes.size()) && bytes != another)) {
        return kStart;
      }
      if (bytes == "\x81\x40") return 0x4E00;
      return bytes == another ? 0x4E01 : AsciiOr(kNothing, bytes);
    };
  };
  withCharactersOfTwoBytesAnd("\x81\x41");
  EXPECT_EQ(ReadMadeUp("\x81\x40\x81\x41"), "\u4E00\u4E01");
  withCharactersOfTwoBytesAnd("\x81\x41\x41");
  EXPECT_EQ(ReadMadeUp("Oboe"), std::nullopt);
  withCharactersOfTwoBytesAnd("\x81\x41\x41\x41");
  EXPECT_EQ(ReadMadeUp("Oboe"), std::nullopt);
}

TEST(Encodings, AreRefusedWhereAByteOfAsciiStartsALongerCharacter) {
  madeUp = [](std::string_view bytes) {
    if (bytes == "@") return kStart;
    return bytes == "@@" ? 0x4E00 : AsciiOr(kNothing, bytes);
  };
  EXPECT_EQ(ReadMadeUp("Oboe"), std::nullopt);
}

// The search does not see the last bytes of all characters that have four.
TEST(Encodings, HaveNoCharactersThatContainBytesOfMarkup) {
  constexpr std::string_view kStarts = "\x81\x81\x81";
  madeUp = [kStarts](std::string_view bytes) {
    if (kStarts.starts_with(bytes)) return kStart;
    const bool isCharacter = bytes.size() == 4 && bytes.starts_with(kStarts) && bytes[3] >= '0';
    return isCharacter ? 0x4E00 + bytes[3] : AsciiOr(kNothing, bytes);
  };
  const std::string starts(kStarts);
  EXPECT_EQ(ReadMadeUp(starts + ";" + starts + "?"), "\u4E3B\u4E3F");
  for (const char markup : {'<', '=', '>'}) EXPECT_EQ(ReadMadeUp(starts + markup), std::nullopt) << markup;
}

TEST(Encodings, AreGivenUpWhereTheSearchTakesTooLong) {
  madeUp = [](std::string_view bytes) { return AsciiOr(kStart, bytes); };
  questions = 0;
  EXPECT_EQ(ReadMadeUp("Oboe"), std::nullopt);
  EXPECT_GT(questions, kMaxQuestions / 2);
  EXPECT_LT(questions, kMaxQuestions);
}

}  // namespace
}  // namespace brvhost
