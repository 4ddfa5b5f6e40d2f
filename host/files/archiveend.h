// Where an archive ends.
#pragma once

#include <cstddef>
#include <string_view>

namespace brvhost {

// The size of the zip file that these bytes start with, which may be followed by others, up to some 64 KB. All of them,
// where no end is found.
std::size_t SizeOfArchive(std::string_view bytes);

}  // namespace brvhost
