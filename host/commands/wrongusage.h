// What is wrong with a command line that cannot be parsed, in words of our own: the parser's differ from release to
// release.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brvhost {

std::string NoCommand(const CLI::App& app);
std::string UnknownCommand(const CLI::App& app, const std::string& argument);

// That a command that works on scores, or on bundles, is given none; empty for all else.
std::string MissingArguments(const CLI::App& command);

// Of an option without the value that it needs, or with one that it cannot have; empty for what is no option.
std::string WrongValue(const CLI::App& command, const std::string& argument);

// What made the parsing fail, by the kind of the error and what was parsed; `last` is the argument that the parser took
// last.
std::string WrongUsage(const CLI::ParseError& error, const CLI::App& app, const std::string& last);

}  // namespace brvhost
