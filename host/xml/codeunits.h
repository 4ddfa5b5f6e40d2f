// How the characters of ASCII, which all markup is made of, stand in the bytes of a document.
#pragma once

#include <cstdint>

namespace brvhost {

enum class CodeUnits : std::uint8_t { kBytes, kUtf16LittleEndian, kUtf16BigEndian };

}  // namespace brvhost
