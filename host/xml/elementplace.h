// The place of an element of which only the offset is known.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/text/inputerror.h"

namespace brvhost {

// The place of the element that a reader of the document reports at that offset; line 0 where there is none. The
// document is read again up to there: offsets are cheap to keep, and places are wanted of few.
TextPlace PlaceOfElement(std::string_view document, std::uint64_t offset);

}  // namespace brvhost
