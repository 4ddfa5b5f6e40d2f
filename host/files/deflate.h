// DEFLATE streams, whole in memory: what a zip file keeps its members in.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/files/bytes.h"

namespace brvhost {

enum class Unpacked { kWhole, kTooSmall, kBroken };

// Unpacks a stream into `content`, which has the size that the stream should unpack to. kTooSmall: there is more in the
// stream.
[[nodiscard]] Unpacked Inflate(std::string_view stream, Bytes& content);

[[nodiscard]] Bytes Deflate(std::string_view content);

// The checksum that zip files keep of their members.
std::uint32_t Crc32(std::string_view content);

}  // namespace brvhost
