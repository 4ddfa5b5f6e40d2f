// The places of elements of which only the offsets are known.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "host/text/inputerror.h"

namespace brvhost {

// The places of the elements that a reader of the document reports at these offsets, which ascend; line 0 where there
// is none. The document is read again, once, up to the last: offsets are cheap to keep, and places are wanted of few.
std::vector<TextPlace> PlacesOfElements(std::string_view document, std::span<const std::uint64_t> offsets);

// The place of one.
TextPlace PlaceOfElement(std::string_view document, std::uint64_t offset);

}  // namespace brvhost
