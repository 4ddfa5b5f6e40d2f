// Bundles: a folder with its Info.plist, its resources and its executable.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "bundlefolder.h"
#include "cfobject.h"
#include "image.h"
#include "propertylist.h"

namespace brvplatform {

class Bundle final : public Object {
 public:
  Bundle(const std::string& folder, Image image);
  ~Bundle() override;

  CFTypeID TypeID() const override { return kBundleType; }
  std::u16string Description() const override;

  // Null if there is none.
  CFTypeRef InfoValue(std::u16string_view key) const;
  // Null if there is none, or it is not a string.
  CFStringRef InfoString(std::u16string_view key) const;

  const std::string& Path() const { return folder_.top; }
  std::string ExecutablePath() const;
  std::optional<std::string> FindResource(const std::string& fileName, const std::string& subfolder) const;

  // The text of a key in a table, or null.
  CFStringRef LocalizedString(std::u16string_view key, const std::string& table);

  bool IsLoaded() const { return image_.IsOpen(); }
  // The function of that name in the executable, which is loaded first; null if there is none.
  void* Function(const char* name);

 private:
  const Dictionary& Table(const std::string& file);

  BundleFolder folder_;
  Dictionary info_;
  Image image_;
  std::map<std::string, Dictionary> tables_;
};

}  // namespace brvplatform
