#include "host/xml/xmlencoding.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <utility>

namespace brvhost {
namespace {

constexpr int kMaxLength = 4;  // bytes of one character, as the parser has it

// An encoding that takes more is refused, whatever it is: those that can be read take less than half of this.
constexpr int kMaxTries = 10'000'000;

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// What bytes can be that are not a character.
constexpr int kNone = -1;
constexpr int kStartOfOne = -2;
constexpr int kSwitch = -3;  // to other characters, until something switches back

// The one character that these bytes are, or what else they are.
int CharacterOf(UConverter* converter, const char* bytes, int count) {
  UErrorCode error = U_ZERO_ERROR;
  const char* source = bytes;
  ucnv_reset(converter);
  const UChar32 character = ucnv_getNextUChar(converter, &source, bytes + count, &error);
  if (error == U_TRUNCATED_CHAR_FOUND) return kStartOfOne;
  if (error == U_INDEX_OUTOFBOUNDS_ERROR) return kSwitch;
  return U_FAILURE(error) || source != bytes + count ? kNone : character;
}

// Blanks, quotes and all else that a tag is built with. The edits of tags rely on these bytes standing for themselves
// everywhere.
bool IsMarkup(unsigned char byte) { return byte < 0x30 || (byte >= '<' && byte <= '>'); }

// Finds the length of the characters that start with a byte.
class Search {
 public:
  explicit Search(UConverter* converter) : converter_(converter) {}

  // 0 when there are none. Null when they have different lengths, which the parser has no way to know, when one
  // contains a byte of markup, or when the search takes too long.
  std::optional<int> LengthAfter(char lead) {
    int found = 0;
    for (int length = 2; length <= kMaxLength; ++length) {
      char bytes[kMaxLength] = {lead};
      if (!StartsCharacter(bytes, 1, length)) continue;
      if (found != 0) return std::nullopt;
      found = length;
    }
    return tries_ > kMaxTries || sawMarkup_ ? std::nullopt : std::optional(found);
  }

 private:
  // Whether any character starts with these bytes and has `length` in all.
  bool StartsCharacter(char (&bytes)[kMaxLength], int count, int length) {
    for (int next = 0; next < 0x100 && tries_ <= kMaxTries; ++next) {
      ++tries_;
      bytes[count] = static_cast<char>(next);
      const int character = CharacterOf(converter_, bytes, count + 1);
      sawMarkup_ |= character != kNone && IsMarkup(static_cast<unsigned char>(next));
      if (count + 1 == length && character >= 0) return true;
      if (count + 1 < length && character == kStartOfOne && StartsCharacter(bytes, count + 1, length)) return true;
    }
    return false;
  }

  UConverter* converter_;
  int tries_ = 0;
  bool sawMarkup_ = false;
};

// What the parser has to know about a byte: its character, or the negative length of the characters that start with it,
// or -1 where there are none. Null when that cannot be stated.
std::optional<int> TableEntry(UConverter* converter, Search& search, int byte) {
  const char lead = static_cast<char>(byte);
  const int character = CharacterOf(converter, &lead, 1);
  if (character >= kNone) return character;
  if (character == kSwitch || byte < 0x80) return std::nullopt;
  const auto length = search.LengthAfter(lead);
  if (!length) return std::nullopt;
  return *length == 0 ? kNone : -*length;
}

bool FillTable(UConverter* converter, int (&table)[256]) {
  Search search(converter);
  for (int byte = 0; byte < 256; ++byte) {
    const auto entry = TableEntry(converter, search, byte);
    if (!entry) return false;
    table[byte] = *entry;
  }
  return true;
}

struct Known {
  Converter converter;
  int table[256];
};

// The parser asks once it has as many bytes as the table states for the first.
int Convert(void* known, const char* bytes) {
  const auto& [converter, table] = *static_cast<Known*>(known);
  const int length = -table[static_cast<unsigned char>(*bytes)];
  if (std::any_of(bytes + 1, bytes + length, IsMarkup)) return kNone;  // the search does not see them all
  const int character = CharacterOf(converter.get(), bytes, length);
  return character > 0xFFFF ? kNone : std::max(character, kNone);
}

void Release(void* known) { delete static_cast<Known*>(known); }

Converter OpenConverter(const char* name) {
  UErrorCode error = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &error));
  if (U_SUCCESS(error)) {
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
  }
  return U_SUCCESS(error) ? std::move(converter) : nullptr;
}

}  // namespace

int DescribeEncoding(void*, const char* name, XML_Encoding* description) {
  std::unique_ptr<Known> known(new (std::nothrow) Known{OpenConverter(name), {}});
  if (known == nullptr || known->converter == nullptr) return XML_STATUS_ERROR;
  if (!FillTable(known->converter.get(), known->table)) return XML_STATUS_ERROR;
  std::ranges::copy(known->table, description->map);
  const bool severalBytes = std::ranges::any_of(known->table, [](int entry) { return entry < kNone; });
  description->data = known.release();
  description->convert = severalBytes ? Convert : nullptr;
  description->release = Release;
  return XML_STATUS_OK;
}

}  // namespace brvhost
