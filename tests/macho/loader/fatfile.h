// A universal file: Mach-O images for several processors after a header that states where each of them is.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace macho {

struct FatImage {
  std::uint32_t cpuType;
  std::string_view bytes;
};

// The images in their order. Throws std::runtime_error if it is no such file, or one that a Mac would refuse: an image
// that is cut off, lies over the header or over another image, is not aligned as its record has it, or is the second
// one for its processor.
std::vector<FatImage> ReadFat(std::string_view bytes);

// The image for that processor. Throws std::runtime_error if there is none.
std::string_view ImageFor(std::uint32_t cpuType, std::string_view bytes);

}  // namespace macho
