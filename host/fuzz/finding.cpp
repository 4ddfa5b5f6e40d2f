#include "host/fuzz/finding.h"

#include <algorithm>
#include <cstddef>

namespace brvhost {
namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// What findings of one cause have in common.
std::string CoreOf(const Finding& finding) {
  std::string text = finding.text;
  if (finding.kind == FindingKind::kHang) text.erase(0, std::min(text.rfind(" in "), text.size()));
  if (finding.kind == FindingKind::kFrames) text.erase(std::min(text.find(" ("), text.size()));
  std::erase_if(text, IsDigit);
  return text;
}

}  // namespace

const char* NameOf(FindingKind kind) {
  constexpr const char* kNames[] = {"crash",  "exit",    "hang", "exception", "frames",  "edits",
                                    "region", "decline", "item", "memory",    "shortage"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool AreAlike(const Finding& a, const Finding& b) { return a.kind == b.kind && CoreOf(a) == CoreOf(b); }

}  // namespace brvhost
