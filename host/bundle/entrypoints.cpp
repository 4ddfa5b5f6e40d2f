#include "host/bundle/entrypoints.h"

#include "BrvEDK/Source/integerclasses.h"

namespace brvhost {

EntryPoints::EntryPoints(const LoadedBundle& bundle) {
  const auto find = [&]<class Function>(const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(bundle.Find(name));
    if (function == nullptr) missing_.push_back(name);
  };
  find("main", main_);
  find("BrevixExtensionVersion", version_);
  find("BrevixExtensionInit", init_);
  find("BrevixExtensionEnumerate_UTF16", enumerate_);
  find("BrevixExtensionInvoke", invoke_);
  find("BrevixExtensionTerminate", terminate_);
  find("BrevixExtensionGetMenuStatus", menuStatus_);
}

bool EntryPoints::Main(const std::string& path) const {
  const char* arguments[] = {path.c_str(), nullptr};
  return main_(1, static_cast<void*>(arguments)) != 0;
}

int EntryPoints::Init(std::uint32_t& word) const { return SignExtend16(init_(nullptr, &word)); }

int EntryPoints::Enumerate(int index, MenuItemTexts& texts) const {
  return SignExtend16(enumerate_(nullptr, index, &texts));
}

int EntryPoints::Invoke(int item, EREGION* region, EREGION* fallback) const {
  return SignExtend16(invoke_(nullptr, item, region, fallback));
}

int EntryPoints::MenuStatus() const { return SignExtend16(menuStatus_()); }

}  // namespace brvhost
