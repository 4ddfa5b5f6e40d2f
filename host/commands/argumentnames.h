// The arguments that more than the command line itself has to know by name.
#pragma once

namespace brvhost {

inline constexpr const char* kBundleArgument = "BUNDLE";
// The scores of a command, of which there may be none where the option names them.
inline constexpr const char* kScoreArgument = "SCORE";
inline constexpr const char* kScoreList = "--files-from";

}  // namespace brvhost
