// Byte strings in every encoding, read and written as the library of Unicode does it.
#include <CoreFoundation/CoreFoundation.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/platform/unicode.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "platform/source/cfstring.h"
#include "platform/source/textencoding.h"

namespace {

using namespace brvplatform;

struct KnownEncoding {
  CFStringEncoding encoding;
  const char* name;
};
constexpr KnownEncoding kEncodings[] = {
    {kCFStringEncodingUTF8, "UTF-8"},           {kCFStringEncodingMacRoman, "macintosh"},
    {kCFStringEncodingASCII, "ISO-8859-1"},     {kCFStringEncodingWindowsLatin1, "windows-1252"},
    {kCFStringEncodingISOLatin1, "ISO-8859-1"}, {kCFStringEncodingUTF16BE, "UTF-16BE"},
    {kCFStringEncodingUTF16LE, "UTF-16LE"}};
constexpr std::string_view kMark = "\xEF\xBB\xBF";

struct Close {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};

UConverter* ConverterOf(const KnownEncoding& known) {
  static std::unique_ptr<UConverter, Close> converters[std::size(kEncodings)];
  auto& converter = converters[&known - kEncodings];
  if (converter != nullptr) return converter.get();
  UErrorCode error = U_ZERO_ERROR;
  converter.reset(ucnv_open(known.name, &error));
  ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
  ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
  ucnv_setFallback(converter.get(), false);
  Require(U_SUCCESS(error), "the library knows the encoding");
  return converter.get();
}

std::optional<std::u16string> Expected(std::string_view bytes, const KnownEncoding& known) {
  std::u16string units(bytes.size() + 1, u'\0');
  UErrorCode error = U_ZERO_ERROR;
  const int32_t length = ucnv_toUChars(ConverterOf(known), units.data(), static_cast<int32_t>(units.size()),
                                       bytes.data(), static_cast<int32_t>(bytes.size()), &error);
  if (U_FAILURE(error)) return std::nullopt;
  units.resize(static_cast<std::size_t>(length));
  return units;
}

std::optional<std::string> ExpectedBytes(std::u16string_view units, const KnownEncoding& known) {
  std::string bytes(units.size() * 4 + 4, '\0');
  UErrorCode error = U_ZERO_ERROR;
  const int32_t length = ucnv_fromUChars(ConverterOf(known), bytes.data(), static_cast<int32_t>(bytes.size()),
                                         units.data(), static_cast<int32_t>(units.size()), &error);
  if (U_FAILURE(error)) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

bool IsControl(char16_t unit) { return unit >= 0x80 && unit < 0xA0; }

void CheckReading(std::string_view bytes, const KnownEncoding& known) {
  const auto units = Decode(bytes, known.encoding);
  if (known.encoding == kCFStringEncodingUTF16BE || known.encoding == kCFStringEncodingUTF16LE) {
    Require(units.has_value() && units->size() == bytes.size() / 2, "any units are read, lone surrogates too");
    if (const auto expected = Expected(bytes, known)) Require(units == expected, "UTF-16 is read as it is written");
    return;
  }
  if (known.encoding == kCFStringEncodingUTF8) {
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    const auto expected = Expected(bytes, known);
    // A lone byte A9 is read too, as a mark.
    if (!expected && bytes.find('\xA9') != std::string_view::npos) return;
    Require(units == expected, "UTF-8 is read strictly");
    return;
  }
  const auto expected = Expected(bytes, known);
  const bool lacksBytes = known.encoding == kCFStringEncodingWindowsLatin1;
  if (lacksBytes && std::ranges::any_of(expected.value_or(u""), IsControl)) {
    Require(!units.has_value(), "bytes that the encoding lacks are refused");
    return;
  }
  Require(units == expected, "8-bit text is read as its encoding has it");
}

// Letters and signs that are written alone, whatever is around them. Of others, marks combine with what is before them,
// some have two code points, and the library leaves out what is not seen.
bool IsPlain(std::u16string_view text) {
  return std::ranges::all_of(text, [](char16_t unit) {
    return (unit < 0x0300 && unit != 0x00AD) || (unit >= 0x2010 && unit < 0x2028) || (unit >= 0x2030 && unit < 0x205F);
  });
}

bool HasLoneSurrogate(std::u16string_view text) {
  const icu::UnicodeString unicode = UnicodeOf(text);
  for (int32_t i = 0; i < unicode.length(); i = unicode.moveIndex32(i, 1)) {
    if (U_IS_SURROGATE(unicode.char32At(i))) return true;
  }
  return false;
}

void CheckWriting(const std::u16string& text, const KnownEncoding& known, std::size_t capacity,
                  unsigned char lossByte) {
  const Encoded whole = EncodeInto(text, known.encoding, lossByte, SIZE_MAX);
  const Encoded part = EncodeInto(text, known.encoding, lossByte, capacity);
  Require(whole.units <= text.size() && part.units <= whole.units, "no more is written than there is");
  Require(part.bytes.size() <= capacity, "what is written fits");
  Require(whole.bytes.starts_with(part.bytes), "what fits is the beginning of the whole");
  Require(part.units == whole.units || part.bytes.size() < whole.bytes.size() || lossByte != 0 || !IsPlain(text),
          "the whole is written where it fits");
  const CFIndex most = CFStringGetMaximumSizeForEncoding(static_cast<CFIndex>(text.size()), known.encoding);
  Require(static_cast<CFIndex>(whole.bytes.size()) <= most, "no text is larger than the maximum");
  Require(Encode(text, known.encoding).size() <= 3 * text.size(), "a text is written to its end");
  if (known.encoding == kCFStringEncodingASCII) return;
  const auto expected = ExpectedBytes(text, known);
  if (known.encoding == kCFStringEncodingUTF8 && !HasLoneSurrogate(text)) {
    Require(whole.bytes == expected && whole.units == text.size(), "UTF-8 is written as the library does");
  }
  const bool lacksControls = known.encoding == kCFStringEncodingWindowsLatin1 && std::ranges::any_of(text, IsControl);
  if (IsPlain(text) && expected && !lacksControls) {
    Require(whole.bytes == expected && whole.units == text.size(), "what the encoding has is written");
    if (!expected->starts_with(kMark)) {
      Require(Decode(whole.bytes, known.encoding) == text, "what was written is read");
    }
  }
}

// The calls of the headers, with buffers of exactly the size that they are told.
void CheckCalls(const std::u16string& text, const KnownEncoding& known, std::size_t size) {
  const Owned<CFStringRef> string(NewString(text));
  const auto length = static_cast<CFIndex>(text.size());
  std::vector<UInt8> buffer(size);
  CFIndex used = -1;
  const Encoded expected = EncodeInto(text, known.encoding, '?', size);
  const CFIndex written = CFStringGetBytes(string.Get(), CFRangeMake(0, length), known.encoding, '?', false,
                                           size == 0 ? nullptr : buffer.data(), static_cast<CFIndex>(size), &used);
  if (size > 0) {
    Require(written == static_cast<CFIndex>(expected.units) && used == static_cast<CFIndex>(expected.bytes.size()),
            "CFStringGetBytes counts what it writes");
  }
  std::vector<char> ended(size);
  const bool whole = CFStringGetCString(string.Get(), ended.data(), static_cast<CFIndex>(size), known.encoding) != 0;
  if (whole) Require(std::ranges::count(ended, '\0') > 0, "CFStringGetCString ends the text");
  std::vector<unsigned char> pascal(size);
  const bool isPascal =
      CFStringGetPascalString(string.Get(), pascal.data(), static_cast<CFIndex>(size), known.encoding) != 0;
  Require(!isPascal || pascal[0] < size, "CFStringGetPascalString states a length within the buffer");
}

std::u16string UnitsFrom(std::string_view bytes) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units +=
        static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 | static_cast<unsigned char>(bytes[i + 1]));
  }
  return units;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  const KnownEncoding& known = kEncodings[input.Below(static_cast<int>(std::size(kEncodings)))];
  const std::size_t capacity = input.Byte();
  const unsigned char lossByte = input.Byte();
  const std::string_view text = input.Rest();
  CheckReading(text, known);
  const std::string ended(text);
  const Owned<CFStringRef> string(CFStringCreateWithCString(nullptr, ended.c_str(), known.encoding));
  Require((string.Get() != nullptr) == Decode(ended.c_str(), known.encoding).has_value(), "a string is made of text");
  for (const std::u16string& units : {UnitsFrom(text), Decode(text, known.encoding).value_or(u"")}) {
    CheckWriting(units, known, capacity, lossByte);
    CheckCalls(units, known, capacity);
  }
  return 0;
}
