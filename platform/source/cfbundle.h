// Bundles: a folder with its Info.plist, its resources and its executable.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <filesystem>
#include <map>
#include <string>

#include "bundlefolder.h"
#include "cfobject.h"
#include "image.h"
#include "propertylist.h"

namespace brvplatform {

class Bundle final : public Object {
 public:
  Bundle(const std::filesystem::path& folder, Image image);
  ~Bundle() override;

  CFTypeID TypeID() const override { return kBundleType; }
  std::u16string Description() const override;

  // Null if there is none.
  CFTypeRef InfoValue(const std::u16string& key) const;
  // Null if there is none, or it is no string.
  CFStringRef InfoString(const std::u16string& key) const;

  const std::filesystem::path& Path() const { return folder_.top; }
  std::filesystem::path ExecutablePath() const;
  std::optional<std::filesystem::path> FindResource(const std::string& fileName, const std::string& subfolder) const;

  // The text of a key in a table, or null.
  CFStringRef LocalizedString(const std::u16string& key, const std::string& table);

  bool IsLoaded() const { return image_.IsOpen(); }
  // The function of that name in the executable, which is loaded first; null if there is none.
  void* Function(const char* name);

 private:
  const Dictionary& Table(const std::filesystem::path& file);

  BundleFolder folder_;
  Dictionary info_;
  Image image_;
  std::map<std::filesystem::path, Dictionary> tables_;
};

}  // namespace brvplatform
