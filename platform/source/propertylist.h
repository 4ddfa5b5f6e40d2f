// Property lists: the dictionaries of Info.plist and .strings files, in each form that the system reads.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "cfobject.h"

namespace brvplatform {

// The top level of a property list. Values that are not strings are kept as objects of no use.
using Dictionary = std::map<std::u16string, Owned<CFTypeRef>, std::less<>>;

// Returns the dictionary in the bytes of a file: XML, binary, or the old text form with or without braces. A list is
// read whole or not at all: nothing is returned if the file is broken anywhere.
std::optional<Dictionary> ParsePropertyList(std::string_view bytes);

}  // namespace brvplatform
