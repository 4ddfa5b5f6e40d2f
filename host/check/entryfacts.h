// The facts about what an extension exports, how it starts, and what it offers. Each takes the path of the bundle, and
// returns what is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string ExportsEntryPoints(const std::string& path);
std::string Binds(const std::string& path);
std::string HasVersion(const std::string& path);
std::string Initialises(const std::string& path);
std::string EndsItsList(const std::string& path);
std::string TerminatesTexts(const std::string& path);
std::string ClearsLastWord(const std::string& path);
std::string StaysWithinTexts(const std::string& path);
std::string LeavesRefusedTexts(const std::string& path);
std::string HasMenuStatus(const std::string& path);
std::string HasShortNames(const std::string& path);

}  // namespace brvhost
