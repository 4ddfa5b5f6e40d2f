// The texts of a bundle, as its files have them.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace brvhost {

// The keys of a .strings file and their texts, as the platform reads it; null where it cannot.
std::optional<std::map<std::string, std::string>> TextsIn(const std::string& file);

}  // namespace brvhost
