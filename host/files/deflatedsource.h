// A member of a zip file that is already compressed.
#pragma once

#include <zip.h>

#include <string_view>

namespace brvhost {

// Compresses the content into a source for a member of the archive; the library then copies the stream as it stands.
// The archive frees the source. Null, with the archive's error, when it cannot be made.
zip_source_t* DeflatedSource(zip_t* archive, std::string_view content);

}  // namespace brvhost
