#include "host/files/deflatedsource.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "host/files/bytes.h"
#include "host/files/deflate.h"

namespace brvhost {
namespace {

struct Stream {
  Bytes bytes;
  std::uint64_t contentSize;
  std::uint32_t crc;
  std::size_t position = 0;
};

zip_int64_t Read(Stream& stream, void* buffer, zip_uint64_t size) {
  const std::string_view rest = stream.bytes.View().substr(stream.position, size);
  std::ranges::copy(rest, static_cast<char*>(buffer));
  stream.position += rest.size();
  return static_cast<zip_int64_t>(rest.size());
}

zip_int64_t Describe(const Stream& stream, zip_stat_t& status) {
  zip_stat_init(&status);
  status.valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_CRC;
  status.size = stream.contentSize;
  status.comp_size = stream.bytes.Size();
  status.comp_method = ZIP_CM_DEFLATE;
  status.crc = stream.crc;
  return sizeof(status);
}

// What the library asks of a source.
zip_int64_t Serve(void* data, void* buffer, zip_uint64_t size, zip_source_cmd_t command) {
  auto& stream = *static_cast<Stream*>(data);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      stream.position = 0;
      return 0;
    case ZIP_SOURCE_READ:
      return Read(stream, buffer, size);
    case ZIP_SOURCE_CLOSE:
      return 0;
    case ZIP_SOURCE_STAT:
      return Describe(stream, *static_cast<zip_stat_t*>(buffer));
    case ZIP_SOURCE_FREE:
      delete &stream;
      return 0;
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                            ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, -1);
    default:
      return -1;
  }
}

}  // namespace

zip_source_t* DeflatedSource(zip_t* archive, std::string_view content) {
  auto stream = std::make_unique<Stream>(Stream{Deflate(content), content.size(), Crc32(content)});
  zip_source_t* const source = zip_source_function(archive, Serve, stream.get());
  if (source != nullptr) stream.release();
  return source;
}

}  // namespace brvhost
