// DEFLATE streams, whole in memory: what a zip file keeps its members in.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/files/bytes.h"

namespace brvhost {

enum class Unpacked { kWhole, kTooSmall, kBroken };

// Unpacks a stream into `content`, which is as large as it should be. kTooSmall: there is more in the stream.
Unpacked Inflate(std::string_view stream, Bytes& content);

Bytes Deflate(std::string_view content);

// The checksum that zip files have of their members.
std::uint32_t Crc32(std::string_view content);

}  // namespace brvhost
