// Zip files as bytes: made from any values, and read without a library.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

// A member with the values that the archive states of it, be they right or wrong.
struct ZipMember {
  std::string name;
  std::string stored;  // its bytes in the archive
  std::string extra;
  std::string comment;
  std::uint16_t version = 20;
  std::uint16_t flags = 0;
  std::uint16_t method = 0;
  std::uint16_t time = 0;
  std::uint16_t date = 0x21;  // 1 January 1980
  std::uint32_t crc = 0;
  std::uint32_t size = 0;
  std::uint32_t attributes = 0;

  bool operator==(const ZipMember&) const = default;
};

std::string ZipFileOf(const std::vector<ZipMember>& members, std::string_view comment);

// The members that the directory at the end lists, in its order, without their extra fields and versions. Null for an
// archive that goes beyond the first edition of the format.
std::optional<std::vector<ZipMember>> MembersOf(std::string_view archive);

}  // namespace brvhost
