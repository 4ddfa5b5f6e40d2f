#include "host/xml/xmlencoding.h"

#include <unicode/ucnv.h>

#include <memory>

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

// The number of bytes of the characters that start with `lead`, or 0 when there are none.
int LengthAfter(UConverter* converter, char lead) {
  char bytes[kLongest] = {lead};
  for (int second = 0x30; second < 0x100; ++second) {
    bytes[1] = static_cast<char>(second);
    const int character = CharacterOf(converter, bytes, 2);
    if (character >= 0) return 2;
    if (character != -2) continue;
    for (int third = 0x30; third < 0x100; ++third) {
      bytes[2] = static_cast<char>(third);
      if (CharacterOf(converter, bytes, 3) >= 0) return 3;
    }
    return kLongest;
  }
  return 0;
}

int TableEntry(UConverter* converter, int byte) {
  const char lead = static_cast<char>(byte);
  const int character = CharacterOf(converter, &lead, 1);
  if (character != -2) return character;
  const int length = LengthAfter(converter, lead);
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
    description->map[byte] = TableEntry(converter.get(), byte);
    severalBytes |= description->map[byte] < -1;
  }
  if (U_FAILURE(error)) return XML_STATUS_ERROR;
  description->data = converter.release();
  description->convert = severalBytes ? Convert : nullptr;
  description->release = Release;
  return XML_STATUS_OK;
}

}  // namespace brvhost
