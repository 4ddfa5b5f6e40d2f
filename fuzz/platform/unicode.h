// Text in the forms of Unicode that files have.
#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brvplatform {

// Each with a byte-order mark.
enum class Form { kUtf8, kUtf16LittleEndian, kUtf16BigEndian, kUtf32LittleEndian, kUtf32BigEndian };
inline constexpr Form kForms[] = {Form::kUtf8, Form::kUtf16LittleEndian, Form::kUtf16BigEndian,
                                  Form::kUtf32LittleEndian, Form::kUtf32BigEndian};

inline icu::UnicodeString UnicodeOf(std::u16string_view units) {
  return {units.data(), static_cast<int32_t>(units.size())};
}

// Whether the bytes are UTF-8, as the library of Unicode sees it.
inline bool IsUnicode(std::string_view bytes) {
  std::string again;
  icu::UnicodeString::fromUTF8({bytes.data(), static_cast<int32_t>(bytes.size())}).toUTF8String(again);
  return again == bytes;
}

inline void AppendNumber(std::string& bytes, char32_t number, int width, bool bigEndian) {
  for (int i = 0; i < width; ++i) {
    bytes += static_cast<char>(number >> 8 * (bigEndian ? width - 1 - i : i) & 0xFF);
  }
}

// The text has no lone surrogates.
inline std::string InForm(std::u16string_view units, Form form) {
  std::string bytes;
  if (form == Form::kUtf8) {
    UnicodeOf(std::u16string(1, u'\xFEFF').append(units)).toUTF8String(bytes);
    return bytes;
  }
  const bool bigEndian = form == Form::kUtf16BigEndian || form == Form::kUtf32BigEndian;
  const bool isUtf16 = form == Form::kUtf16LittleEndian || form == Form::kUtf16BigEndian;
  const icu::UnicodeString text = UnicodeOf(units);
  AppendNumber(bytes, 0xFEFF, isUtf16 ? 2 : 4, bigEndian);
  for (int32_t i = 0; i < text.length(); i = isUtf16 ? i + 1 : text.moveIndex32(i, 1)) {
    const auto number = isUtf16 ? char32_t{text[i]} : static_cast<char32_t>(text.char32At(i));
    AppendNumber(bytes, number, isUtf16 ? 2 : 4, bigEndian);
  }
  return bytes;
}

}  // namespace brvplatform
