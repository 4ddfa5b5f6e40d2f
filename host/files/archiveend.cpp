#include "host/files/archiveend.h"

#include <cstdint>

namespace brvhost {
namespace {

using namespace std::string_view_literals;

// The record at the end of a zip file: it names the place and the size of the directory before it, and is followed by a
// comment.
constexpr std::string_view kSignature = "PK\x05\x06"sv;
constexpr std::size_t kRecordSize = 22;
constexpr std::size_t kSizeOfDirectory = 12;
constexpr std::size_t kPlaceOfDirectory = 16;
constexpr std::size_t kSizeOfComment = 20;

constexpr std::size_t kMaxAfterRecord = std::size_t{1} << 16;

// Of two or four bytes, the lowest first.
std::uint64_t NumberIn(std::string_view bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i > 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
  return number;
}

// Whether the directory that a record names is before it.
bool HasDirectory(std::string_view bytes, std::size_t record) {
  const std::uint64_t size = NumberIn(bytes.substr(record + kSizeOfDirectory, 4));
  const std::uint64_t place = NumberIn(bytes.substr(record + kPlaceOfDirectory, 4));
  if (place == 0xFFFFFFFF)
    return record >= 20 && bytes.substr(record - 20).starts_with("PK\x06\x07");  // of a larger one
  return place + size <= record && bytes.substr(place, size).starts_with("PK\x01\x02");
}

}  // namespace

std::size_t SizeOfArchive(std::string_view bytes) {
  std::size_t found = bytes.size();
  if (bytes.size() < kRecordSize) return found;
  const std::size_t last = bytes.size() - kRecordSize;
  const std::size_t first = last - (last < kMaxAfterRecord ? last : kMaxAfterRecord);
  bool isFound = false;
  for (std::size_t record = last + 1; record-- > first;) {
    if (!bytes.substr(record).starts_with(kSignature) || !HasDirectory(bytes, record)) continue;
    const std::size_t end = record + kRecordSize + NumberIn(bytes.substr(record + kSizeOfComment, 2));
    if (end == bytes.size()) return end;  // what looks like another is in its comment
    if (!isFound && end < bytes.size()) found = end;
    isFound = true;
  }
  return found;
}

}  // namespace brvhost
