#include "host/bundle/entrypoints.h"

#include <fmt/format.h>

#include "BrvEDK/Source/integerclasses.h"
#include "host/bundle/thrown.h"
#include "host/process/whereabouts.h"

namespace brvhost {

template <class Function>
template <class... Arguments>
auto EntryPoints::EntryPoint<Function>::operator()(Arguments... arguments) const {
  const InExtension here(name);
  try {
    return address(arguments...);
  } catch (...) {
    throw ThrownByExtension(fmt::format("{} threw an exception: {}", name, ThrownText()));
  }
}

EntryPoints::EntryPoints(const LoadedBundle& bundle) {
  const auto find = [&]<class Function>(EntryPoint<Function>& entryPoint) {
    entryPoint.address = reinterpret_cast<Function*>(bundle.Find(entryPoint.name));
    if (entryPoint.address == nullptr) missing_.push_back(entryPoint.name);
  };
  find(main_);
  find(version_);
  find(init_);
  find(enumerate_);
  find(invoke_);
  find(terminate_);
  find(menuStatus_);
}

bool EntryPoints::Main(const std::string& path) const {
  const char* arguments[] = {path.c_str(), nullptr};
  return main_(1, static_cast<void*>(arguments)) != 0;
}

std::uint32_t EntryPoints::Version() const { return version_(); }

int EntryPoints::Init(std::uint32_t& word) const { return SignExtend16(init_(nullptr, &word)); }

int EntryPoints::Enumerate(int index, MenuItemTexts& texts) const {
  return SignExtend16(enumerate_(nullptr, index, &texts));
}

int EntryPoints::Invoke(int item, EREGION* region, EREGION* fallback) const {
  return SignExtend16(invoke_(nullptr, item, region, fallback));
}

int EntryPoints::MenuStatus() const { return SignExtend16(menuStatus_()); }

void EntryPoints::Terminate() const { terminate_(); }

}  // namespace brvhost
