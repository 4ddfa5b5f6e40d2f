#include "host/bundle/infotext.h"

#include <CoreFoundation/CoreFoundation.h>

#include <filesystem>
#include <system_error>

#include "host/bundle/createbundle.h"
#include "host/text/cfowner.h"
#include "host/text/utf8.h"

namespace brvhost {

std::string InfoText(const std::string& bundle, const char* key) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(bundle, error).lexically_normal().string();
  const Owned<CFBundleRef> opened(error ? nullptr : CreateBundle(absolute));
  const Owned<CFStringRef> name(CFStringCreateWithCString(nullptr, key, kCFStringEncodingUTF8));
  if (!opened || !name) return "";
  const CFTypeRef value = CFBundleGetValueForInfoDictionaryKey(opened.Get(), name.Get());
  if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) return "";
  return Utf8FromString(static_cast<CFStringRef>(value));
}

}  // namespace brvhost
