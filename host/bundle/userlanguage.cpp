#include "host/bundle/userlanguage.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace brvhost {
namespace {

// Where both are the same, it does not matter which of them counts.
constexpr std::string_view kNames[] = {"LANGUAGE=", "LC_ALL="};

bool IsOfLanguage(std::string_view variable) {
  return std::ranges::any_of(kNames, [variable](std::string_view name) { return variable.starts_with(name); });
}

}  // namespace

UserLanguage::UserLanguage(const std::string& language) : before_(environ) {
  for (const std::string_view name : kNames) own_.push_back(std::string(name) + language);
  for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
    if (!IsOfLanguage(*variable)) variables_.push_back(*variable);
  }
  for (std::string& variable : own_) variables_.push_back(variable.data());
  variables_.push_back(nullptr);
  environ = variables_.data();
}

UserLanguage::~UserLanguage() { environ = before_; }

}  // namespace brvhost
