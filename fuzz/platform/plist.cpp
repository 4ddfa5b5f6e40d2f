// Any bytes as a property list: the same list in each form of Unicode.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/platform/dictionaries.h"
#include "fuzz/platform/unicode.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "platform/source/utf.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace brvplatform;
  const std::string_view file(reinterpret_cast<const char*>(bytes), size);
  const auto texts = TextsIn(file);
  Require(TextsIn(file) == texts, "a list is read alike each time");
  const auto units = DecodeUtf8(file);
  // Two bytes 0 after the mark of UTF-16 are the mark of UTF-32.
  const bool hasMark = file.starts_with("\xEF\xBB\xBF") || file.starts_with('\0');
  if (!units || file.starts_with("bplist") || hasMark || !IsUnicode(file)) return 0;
  for (const Form form : kForms) {
    Require(TextsIn(InForm(*units, form)) == texts, "a list is the same in each form of Unicode");
  }
  return 0;
}
