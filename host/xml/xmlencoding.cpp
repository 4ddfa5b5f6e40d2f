#include "host/xml/xmlencoding.h"

#include <unicode/ucnv.h>

#include <memory>
#include <optional>

namespace brvhost {
namespace {

constexpr int kLongest = 4;  // bytes of one character, the most that the parser takes

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// The one character that these bytes are, -1 when they are none, -2 when they only start one.
int CharacterOf(UConverter* converter, const char* bytes, int count) {
  UErrorCode error = U_ZERO_ERROR;
  const char* source = bytes;
  ucnv_reset(converter);
  const UChar32 character = ucnv_getNextUChar(converter, &source, bytes + count, &error);
  if (error == U_TRUNCATED_CHAR_FOUND || error == U_INDEX_OUTOFBOUNDS_ERROR) return -2;
  return U_FAILURE(error) || source != bytes + count ? -1 : character;
}

// Whether any character starts with these bytes and has `length` in all.
bool StartsCharacterOf(UConverter* converter, char (&bytes)[kLongest], int count, int length) {
  for (int next = 0x30; next < 0x100; ++next) {
    bytes[count] = static_cast<char>(next);
    const int character = CharacterOf(converter, bytes, count + 1);
    if (count + 1 == length && character >= 0) return true;
    if (count + 1 < length && character == -2 && StartsCharacterOf(converter, bytes, count + 1, length)) return true;
  }
  return false;
}

// The number of bytes of the characters that start with `lead`: 0 when there are none, -1 when they are of different
// lengths, which the parser has no way to know.
int LengthAfter(UConverter* converter, char lead) {
  int found = 0;
  for (int length = 2; length <= kLongest; ++length) {
    char bytes[kLongest] = {lead};
    if (!StartsCharacterOf(converter, bytes, 1, length)) continue;
    if (found != 0) return -1;
    found = length;
  }
  return found;
}

// What the parser is to know of a byte: its character, or the length of those that start with it, negative; -1 for
// none. Null when it cannot be said.
std::optional<int> TableEntry(UConverter* converter, int byte) {
  const char lead = static_cast<char>(byte);
  const int character = CharacterOf(converter, &lead, 1);
  if (character != -2) return character;
  if (byte < 0x80) return std::nullopt;  // it switches to other characters, as long as nothing switches back
  const int length = LengthAfter(converter, lead);
  if (length < 0) return std::nullopt;
  return length == 0 ? -1 : -length;
}

int Convert(void* converter, const char* bytes) {
  auto* const opened = static_cast<UConverter*>(converter);
  for (int count = 2; count <= kLongest; ++count) {
    const int character = CharacterOf(opened, bytes, count);
    if (character != -2) return character > 0xFFFF ? -1 : character;
  }
  return -1;
}

void Release(void* converter) { ucnv_close(static_cast<UConverter*>(converter)); }

}  // namespace

int DescribeEncoding(void*, const char* name, XML_Encoding* description) {
  UErrorCode error = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &error));
  if (U_FAILURE(error)) return XML_STATUS_ERROR;
  ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
  bool severalBytes = false;
  for (int byte = 0; byte < 256; ++byte) {
    const auto entry = TableEntry(converter.get(), byte);
    if (!entry) return XML_STATUS_ERROR;
    description->map[byte] = *entry;
    severalBytes |= description->map[byte] < -1;
  }
  if (U_FAILURE(error)) return XML_STATUS_ERROR;
  description->data = converter.release();
  description->convert = severalBytes ? Convert : nullptr;
  description->release = Release;
  return XML_STATUS_OK;
}

}  // namespace brvhost
