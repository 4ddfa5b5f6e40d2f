#include "host/check/eachitem.h"

namespace brvhost {

int ItemCountOf(const Extension& extension) { return static_cast<int>(extension.Items().size()); }

std::string ForEachItem(const std::string& path, Trial::Kind kind, const std::function<std::string(Trial&, int)>& check,
                        const Score& score) {
  const int count = ItemCountOf(Extension(path));
  for (int item = 0; item < count; ++item) {
    const Extension extension(path);
    Trial trial(extension, kind, score);
    if (std::string wrong = check(trial, item); !wrong.empty()) return wrong;
  }
  return "";
}

}  // namespace brvhost
