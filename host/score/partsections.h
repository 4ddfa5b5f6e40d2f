// Reads the parts of a large partwise score at the same time.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "host/score/score.h"
#include "host/xml/xmlreader.h"

namespace brvhost {

// Cuts a partwise score before some of the tags that start its parts, so that each section, between tags of the root
// element, is a document by itself. A section has at least `size` bytes, if the score has.
//
// What looks like a tag may be in a comment: then the section that ends there is not well formed, because nothing
// closes the comment. One section or none: there is nothing to cut.
std::vector<XmlSection> PartSections(std::string_view document, std::size_t size);

// Reads the sections of a score with that many threads, 1 or more. Null where one reader of the whole might find
// something else, or more: an error, a warning, a declaration that holds for all sections, more staves than a score can
// have.
std::optional<Score> ReadSections(const std::vector<XmlSection>& sections, int readers);

// Cuts a score into sections of a size that is worth it, and reads them. Null as above, and where there are no such
// sections.
std::optional<Score> ReadPartsApart(std::string_view document, int readers);

}  // namespace brvhost
