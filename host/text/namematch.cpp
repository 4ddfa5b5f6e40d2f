#include "host/text/namematch.h"

#include <cstddef>
#include <string>

#include "host/text/foldedcase.h"

namespace brvhost {

NameMatch MatchOf(std::string_view name, std::string_view text) {
  const std::string wanted = FoldedCase(name);
  const std::string folded = FoldedCase(text);
  const std::size_t place = folded.find(wanted);
  if (wanted.empty() || place == std::string::npos) return NameMatch::kNone;
  if (folded.size() == wanted.size()) return NameMatch::kWhole;
  return place == 0 ? NameMatch::kStart : NameMatch::kContained;
}

}  // namespace brvhost
