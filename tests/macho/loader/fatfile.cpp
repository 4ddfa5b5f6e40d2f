#include "fatfile.h"

#include "bytereader.h"
#include "machoformat.h"

namespace macho {
namespace {

// The header's numbers have their most significant byte first.
template <class T>
T BigEndianRecord(ByteReader& reader) {
  std::uint32_t fields[sizeof(T) / sizeof(std::uint32_t)];
  for (std::uint32_t& field : fields) field = __builtin_bswap32(reader.Record<std::uint32_t>());
  T record;
  std::memcpy(&record, fields, sizeof(record));
  return record;
}

struct Range {
  std::uint64_t start, end;
};

bool Overlap(const Range& a, const Range& b) { return a.start < b.end && b.start < a.end; }

Range PlaceOf(const fat_arch& image, std::uint64_t fileSize) {
  const Range place = {image.offset, std::uint64_t{image.offset} + image.size};
  if (place.end > fileSize) throw std::runtime_error("an image that is cut off");
  if (image.align > MAX_FAT_ALIGN || image.offset % (1u << image.align) != 0) {
    throw std::runtime_error("an image that is not aligned");
  }
  return place;
}

}  // namespace

std::vector<FatImage> ReadFat(std::string_view bytes) {
  ByteReader reader(bytes);
  const auto header = BigEndianRecord<fat_header>(reader);
  if (header.magic != FAT_MAGIC) throw std::runtime_error("not a universal file");
  std::vector<Range> taken = {{0, sizeof(fat_header) + std::uint64_t{header.nfat_arch} * sizeof(fat_arch)}};
  std::vector<FatImage> images;
  for (std::uint32_t i = 0; i < header.nfat_arch; ++i) {
    const auto image = BigEndianRecord<fat_arch>(reader);
    const Range place = PlaceOf(image, bytes.size());
    for (const Range& other : taken) {
      if (Overlap(place, other)) throw std::runtime_error("an image over the header or another image");
    }
    for (const FatImage& other : images) {
      if (other.cpuType == image.cputype) throw std::runtime_error("two images for one processor");
    }
    taken.push_back(place);
    images.push_back({image.cputype, bytes.substr(image.offset, image.size)});
  }
  return images;
}

std::string_view ImageFor(std::uint32_t cpuType, std::string_view bytes) {
  for (const FatImage& image : ReadFat(bytes)) {
    if (image.cpuType == cpuType) return image.bytes;
  }
  throw std::runtime_error("no image for this processor");
}

}  // namespace macho
