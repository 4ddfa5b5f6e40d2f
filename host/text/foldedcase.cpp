#include "host/text/foldedcase.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <new>

namespace brvhost {

std::string FoldedCase(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* const folding = icu::Normalizer2::getNFKCCasefoldInstance(status);
  if (U_FAILURE(status)) throw std::bad_alloc();
  const auto units = icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
  const icu::UnicodeString folded = folding->normalize(units, status);
  if (U_FAILURE(status) || units.isBogus()) throw std::bad_alloc();
  std::string bytes;
  folded.toUTF8String(bytes);
  return bytes;
}

}  // namespace brvhost
