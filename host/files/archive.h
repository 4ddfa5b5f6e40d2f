// Compressed MusicXML: a zip file whose container names the score.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/files/bytes.h"

namespace brvhost {

// Whether the bytes are a zip file, whatever its name.
bool IsArchive(std::string_view bytes);

// The score within an archive.
struct ArchivedScore {
  std::string member;  // its name
  Bytes content;       // unpacked
};

// Unpacks the first root file that META-INF/container.xml names. Throws InputError for a broken archive, a container
// that is missing or names nothing, a root file that is missing, and one that unpacks to more than `maxSize` bytes.
[[nodiscard]] ArchivedScore ReadArchivedScore(std::string_view bytes, std::uint64_t maxSize);

// The archive of these bytes with other content in one member. What follows the archive follows it again. All other
// members keep their compressed bytes, their
// order and their dates, as far as the local time zone can express them. Throws std::runtime_error when it cannot be
// made.
[[nodiscard]] std::string ReplaceMember(std::string_view bytes, const std::string& member, std::string_view content);

}  // namespace brvhost
