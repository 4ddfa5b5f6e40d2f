// Documents in each encoding that the reader takes by a table: any bytes in a text are read as the library of Unicode
// reads them, and the notes around them are edited as in any other document.
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "host/score/ledgeredits.h"
#include "host/score/musicxml.h"
#include "host/text/inputerror.h"

namespace {

using brvhost::Score;

// Those that scores are written in, of each kind: a byte a character, two bytes, two and three.
constexpr const char* kEncodings[] = {"windows-1252", "windows-1251", "macintosh", "KOI8-R",       "ISO-8859-15",
                                      "TIS-620",      "Shift_JIS",    "EUC-JP",    "Big5",         "GBK",
                                      "EUC-KR",       "GB2312",       "IBM850",    "windows-1256", "ISO-8859-8"};

// One of those, or any that the library of Unicode knows.
const char* EncodingOf(Input& input) {
  const std::size_t number = input.Byte();
  if (number < std::size(kEncodings)) return kEncodings[number];
  const std::size_t other = number - std::size(kEncodings);
  return ucnv_getAvailableName(static_cast<int32_t>(other % static_cast<std::size_t>(ucnv_countAvailable())));
}

// Learning it takes a second for each document.
bool IsSlow(std::string_view encoding) { return encoding == "CESU-8"; }

struct Close {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// The characters of the bytes, or null where not all of them are characters.
std::optional<std::string> Expected(std::string_view bytes, const char* encoding) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, Close> converter(ucnv_open(encoding, &error));
  ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
  const icu::UnicodeString text(bytes.data(), static_cast<int32_t>(bytes.size()), converter.get(), error);
  if (U_FAILURE(error)) return std::nullopt;
  std::string utf8;
  text.toUTF8String(utf8);
  return utf8;
}

std::string DocumentWith(std::string_view text, const char* encoding) {
  std::string document = std::string("<?xml version='1.0' encoding='") + encoding + "'?>";
  document.append("<score-partwise><part-list><score-part id='P'><part-name>").append(text);
  document.append("</part-name></score-part></part-list><part id='P'><measure><note a='").append(text);
  return document.append("' print-leger='no'/><note b='").append(text).append("'/></measure></part></score-partwise>");
}

std::optional<Score> Read(std::string_view document) {
  try {
    return brvhost::ReadMusicXml(document);
  } catch (const brvhost::InputError&) {
    return std::nullopt;
  }
}

std::string Written(std::string_view document, const Score& score) {
  std::string written;
  brvhost::LedgerEdits(document, score).Write([&written](std::string_view piece) { written.append(piece); });
  return written;
}

void CheckEdits(const std::string& document, Score score) {
  Require(score.entries.size() == 2 && score.entries[0].hidden && !score.entries[1].hidden, "both notes are read");
  score.entries[0].hidden = false;
  score.entries[1].hidden = true;
  std::string expected = document;
  expected.erase(expected.rfind(" print-leger='no'"), std::string_view(" print-leger='no'").size());
  expected.insert(expected.rfind("<note") + 5, " print-leger=\"no\"");
  Require(Written(document, score) == expected, "the attributes change and nothing else");
}

// Blanks of a name are one where there are several, and none at its ends.
std::string WithSingleBlanks(const std::string& name) {
  std::istringstream words(name);
  std::string joined;
  for (std::string word; words >> word;) joined.append(joined.empty() ? "" : " ").append(word);
  return joined;
}

bool IsMarkup(char byte) { return std::string_view("<&]'").find(byte) != std::string_view::npos; }
bool IsControl(char byte) { return static_cast<unsigned char>(byte) < 0x20; }

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  const char* const encoding = EncodingOf(input);
  if (IsSlow(encoding)) return 0;
  const std::string text(input.Rest());
  const std::string document = DocumentWith(text, encoding);
  const auto score = Read(document);
  if (std::ranges::any_of(text, IsMarkup)) return 0;
  const auto expected = Expected(text, encoding);
  if (score) {
    Require(expected.has_value(), "what is no text in the encoding is refused");
    if (std::ranges::none_of(text, IsControl)) {
      Require(score->parts.at(0).names.name == WithSingleBlanks(*expected), "the text is read as the encoding has it");
    }
    CheckEdits(document, *score);
  }
  return 0;
}
