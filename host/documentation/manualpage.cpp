#include "host/documentation/manualpage.h"

#include <fmt/format.h>

#include <cctype>
#include <string_view>
#include <vector>

#include "host/bundle/installedpaths.h"
#include "host/commands/prose.h"
#include "host/documentation/roff.h"

namespace brvhost {
namespace {

std::string UpperCase(std::string text) {
  for (char& character : text) character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  return text;
}

std::string Head(const CLI::App& app, const std::string& name, const std::string& about, const std::string& date) {
  std::string clause = FirstClause(about);
  clause[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(clause[0])));
  return fmt::format(".TH {} 1 {} \"{}\" \"User commands\"\n.SH NAME\n{}", UpperCase(name), date, RoffOf(app.version()),
                     RoffLinesOf(name + " - " + clause));
}

std::string Bold(const std::string& text) { return fmt::format("\\fB{}\\fR", RoffOf(text)); }
std::string Italic(const std::string& text) { return fmt::format("\\fI{}\\fR", RoffOf(text)); }

std::string ValueOf(const OptionText& option) { return option.value.empty() ? "" : " " + Italic(option.value); }

std::string Synopsis(const CLI::App& app, const CommandText& command) {
  std::string text = Bold(app.get_name() + " " + command.name);
  for (const OptionText& option : OptionsOf(command)) {
    if (option.isRequired) text += " " + Bold(option.names.back()) + ValueOf(option);
  }
  text += " [" + Italic("OPTIONS") + "]";
  for (const ArgumentText& argument : command.arguments) {
    const std::string name = Italic(argument.name) + (argument.isRepeated ? "..." : "");
    text += argument.isRequired ? " " + name : " [" + name + "]";
  }
  return text;
}

std::string Arguments(const CommandText& command) {
  std::string text;
  for (const ArgumentText& argument : command.arguments)
    text += fmt::format(".TP\n{}\n{}", Italic(argument.name), RoffLinesOf(argument.about));
  return text.empty() ? "" : ".SH ARGUMENTS\n" + text;
}

std::string OptionEntry(const OptionText& option) {
  std::string names;
  for (const std::string& name : option.names) names += (names.empty() ? "" : ", ") + Bold(name);
  return fmt::format(".TP\n{}{}{}\n{}", names, RoffOf(option.optionalValue), ValueOf(option),
                     RoffLinesOf(option.about));
}

std::string Options(const CommandText& command) {
  std::string text;
  for (const OptionGroupText& group : command.groups) {
    text += text.empty() ? ".SH OPTIONS\n" : fmt::format(".SS {}\n", RoffOf(group.heading));
    for (const OptionText& option : group.options) text += OptionEntry(option);
  }
  return text;
}

std::string Reference(const std::string& page) { return Bold(page) + "(1)"; }

std::string SeeAlso(const std::vector<std::string>& pages) {
  std::string text;
  for (const std::string& page : pages) text += (text.empty() ? "" : ",\n") + Reference(page);
  return ".SH SEE ALSO\n" + text + "\n";
}

std::string WholeText(const CommandText& command) {
  std::string text = command.about + command.footer;
  for (const ArgumentText& argument : command.arguments) text += argument.about;
  for (const OptionText& option : OptionsOf(command)) text += option.about;
  return text;
}

// Whether the text of one command quotes another: `brvhost items` or `brvhost run --help`.
bool Mentions(const std::string& text, const std::string& line) {
  return text.find("`" + line + "`") != std::string::npos || text.find("`" + line + " ") != std::string::npos;
}

// The path of the bundle that is installed with the program, for the prefix of this build and for any other.
std::string BundleEntry() {
  constexpr const char* kBundle = "/LegerLines.bundle";
  const std::string about =
      fmt::format("The bundle of LegerLines, if brvhost is {}. From the folder of brvhost it is {}{}.",
                  kInstalledProgram, kBundlesFromProgram, kBundle);
  return fmt::format(".TP\n{}\n{}", Italic(kInstalledBundles + std::string(kBundle)), RoffLinesOf(about));
}

}  // namespace

std::string PageName(const CLI::App& app, const CommandText& command) { return app.get_name() + "-" + command.name; }

std::string ProgramPage(const CLI::App& app, const std::string& date) {
  const CommandText program = DescribeProgram(app);
  std::string text = Head(app, program.name, program.about, date);
  text += fmt::format(".SH SYNOPSIS\n{} [{}] {} ...\n", Bold(program.name), Italic("OPTIONS"), Italic("COMMAND"));
  text += fmt::format(".SH DESCRIPTION\n{}", RoffLinesOf(program.about)) + Options(program) + ".SH COMMANDS\n";
  std::vector<std::string> pages;
  for (const CommandText& command : DescribeCommands(app)) {
    pages.push_back(PageName(app, command));
    text += fmt::format(".TP\n{}\n{}", Reference(pages.back()), RoffLinesOf(FirstClause(command.about) + "."));
  }
  return text + RoffOfProse(program.footer) + ".SH FILES\n" + BundleEntry() + SeeAlso(pages);
}

std::string CommandPage(const CLI::App& app, const CommandText& command, const std::string& date) {
  std::vector<std::string> pages = {app.get_name()};
  const std::string whole = WholeText(command);
  for (const CommandText& other : DescribeCommands(app)) {
    if (other.name != command.name && Mentions(whole, app.get_name() + " " + other.name))
      pages.push_back(PageName(app, other));
  }
  return Head(app, PageName(app, command), command.about, date) + ".SH SYNOPSIS\n" + Synopsis(app, command) +
         "\n.SH DESCRIPTION\n" + RoffLinesOf(command.about) + Arguments(command) + Options(command) +
         RoffOfProse(command.footer) + SeeAlso(pages);
}

}  // namespace brvhost
