// How the bytes of a document hold the characters of ASCII, which all markup consists of.
#pragma once

#include <cstdint>

namespace brvhost {

enum class CodeUnits : std::uint8_t { kBytes, kUtf16LittleEndian, kUtf16BigEndian };

}  // namespace brvhost
