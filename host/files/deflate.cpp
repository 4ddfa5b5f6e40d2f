#include "host/files/deflate.h"

#include <libdeflate.h>

#include <memory>
#include <new>

namespace brvhost {
namespace {

// What most writers of archives use: a higher level takes several times as long to save a tenth of the size.
constexpr int kLevel = 6;

struct Free {
  void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
  void operator()(libdeflate_decompressor* decompressor) const { libdeflate_free_decompressor(decompressor); }
};

}  // namespace

Unpacked Inflate(std::string_view stream, Bytes& content) {
  const std::unique_ptr<libdeflate_decompressor, Free> decompressor(libdeflate_alloc_decompressor());
  if (decompressor == nullptr) throw std::bad_alloc();
  switch (libdeflate_deflate_decompress(decompressor.get(), stream.data(), stream.size(), content.Data(),
                                        content.Size(), nullptr)) {
    case LIBDEFLATE_SUCCESS:
      return Unpacked::kWhole;
    case LIBDEFLATE_INSUFFICIENT_SPACE:
      return Unpacked::kTooSmall;
    default:
      return Unpacked::kBroken;
  }
}

Bytes Deflate(std::string_view content) {
  const std::unique_ptr<libdeflate_compressor, Free> compressor(libdeflate_alloc_compressor(kLevel));
  if (compressor == nullptr) throw std::bad_alloc();
  Bytes stream(libdeflate_deflate_compress_bound(compressor.get(), content.size()));
  stream.Truncate(
      libdeflate_deflate_compress(compressor.get(), content.data(), content.size(), stream.Data(), stream.Size()));
  return stream;
}

std::uint32_t Crc32(std::string_view content) { return libdeflate_crc32(0, content.data(), content.size()); }

}  // namespace brvhost
