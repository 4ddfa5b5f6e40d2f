// Text encodings: from bytes to UTF-16 units and back.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <optional>
#include <string>
#include <string_view>

namespace brvplatform {

// Returns the text of the bytes, or nothing if they are not text in that encoding, or the encoding is not known.
std::optional<std::u16string> Decode(std::string_view bytes, CFStringEncoding encoding);

struct Encoded {
  std::string bytes;
  std::size_t units = 0;  // how much of the text the bytes hold
};

// Encodes as much of the text as fits into capacity bytes, in whole characters, with lossByte for each character that
// the encoding cannot hold. A lossByte of 0 ends the conversion there.
Encoded EncodeInto(std::u16string_view text, CFStringEncoding encoding, unsigned char lossByte, std::size_t capacity);

// Returns the whole text, with '?' for each character that the encoding cannot hold.
std::string Encode(std::u16string_view text, CFStringEncoding encoding);

CFIndex MaximumBytesPerUnit(CFStringEncoding encoding);

}  // namespace brvplatform
