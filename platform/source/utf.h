// UTF-8 and UTF-16 as bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "textencoding.h"

namespace brvplatform {

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
constexpr bool IsSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

void AppendCodePoint(char32_t codePoint, std::u16string& units);

// A byte order mark at the start is dropped. Returns nothing if the bytes are not valid.
std::optional<std::u16string> DecodeUtf8(std::string_view bytes);

// In the order of the byte order mark at the start, which is dropped, or else in the machine's.
std::optional<std::u16string> DecodeUtf16(std::string_view bytes);
std::optional<std::u16string> DecodeUtf16Units(std::string_view bytes, bool bigEndian);
std::optional<std::u16string> DecodeUtf32(std::string_view bytes, bool bigEndian);

// A lone surrogate ends the conversion.
Encoded EncodeUtf8(std::u16string_view text, std::size_t capacity);
Encoded EncodeUtf16(std::u16string_view text, bool bigEndian, std::size_t capacity);

}  // namespace brvplatform
