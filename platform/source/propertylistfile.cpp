#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include "boundary.h"
#include "brvplatform.h"
#include "cfobject.h"
#include "cfstring.h"
#include "files.h"
#include "propertylist.h"

using namespace brvplatform;

bool BrvPlatformReadPropertyList(const char* path, BrvPlatformVisitor visit, void* context) {
  return OrNothing([&] {
    if (!IsFile(path)) return false;
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const std::optional<Dictionary> list = ParsePropertyList(bytes);
    if (!list) return false;
    for (const auto& [key, value] : *list) {
      const Owned<CFStringRef> name(NewString(key));
      visit(context, name.Get(), IsString(value.Get()) ? static_cast<CFStringRef>(value.Get()) : nullptr);
    }
    return true;
  });
}
