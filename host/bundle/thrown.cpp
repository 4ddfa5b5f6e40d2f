#include "host/bundle/thrown.h"

#include <cxxabi.h>

#include <cstdlib>
#include <exception>
#include <memory>
#include <typeinfo>

namespace brvhost {
namespace {

std::string ThrownType() {
  const std::type_info* const type = abi::__cxa_current_exception_type();
  if (type == nullptr) return "one of another language";
  const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type->name(), nullptr, nullptr, nullptr),
                                                         std::free);
  return name != nullptr ? name.get() : type->name();
}

}  // namespace

std::string ThrownText() {
  try {
    throw;
  } catch (const std::exception& exception) {
    return exception.what();
  } catch (...) {
    return "of type " + ThrownType();
  }
}

}  // namespace brvhost
