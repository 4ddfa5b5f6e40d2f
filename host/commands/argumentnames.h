// The arguments that more than the command line itself has to know by name.
#pragma once

namespace brvhost {

// The bundles of a command, of which there may be none where the option only lists.
inline constexpr const char* kBundleArgument = "BUNDLE";
inline constexpr const char* kFactList = "--list";
// The scores of a command, of which there may be none where the option names them.
inline constexpr const char* kScoreArgument = "SCORE";
inline constexpr const char* kScoreList = "--files-from";
inline constexpr const char* kReproduce = "--reproduce";
// The command that `help` explains.
inline constexpr const char* kCommandArgument = "COMMAND";

}  // namespace brvhost
