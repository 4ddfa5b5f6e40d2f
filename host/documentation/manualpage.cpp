#include "host/documentation/manualpage.h"

#include <fmt/format.h>

#include "host/bundle/installedpaths.h"
#include "host/commands/prose.h"
#include "host/documentation/optionlist.h"

namespace brvhost {
namespace {

// Text for roff: with no command at the start of a line, and with dashes as they are.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '\\')
      escaped += "\\e";
    else if (character == '-')
      escaped += "\\-";
    else
      escaped += character;
  }
  return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

std::string OptionEntry(const OptionText& option) {
  std::string names;
  for (const std::string& name : option.names)
    names += fmt::format("{}\\fB{}\\fR", names.empty() ? "" : ", ", Escaped(name));
  const std::string value = option.value.empty() ? "" : fmt::format(" \\fI{}\\fR", Escaped(option.value));
  return fmt::format(".TP\n{}{}{}\n{}\n", names, Escaped(option.optionalValue), value, Escaped(option.about));
}

// Headings within a section stand above what they are of; paragraphs are filled, and examples are not.
std::string FooterPiece(const Prose& piece, bool isAfterHeading) {
  const std::string text = Escaped(piece.text);
  switch (piece.kind) {
    case ProseKind::kHeading:
      return fmt::format(".PP\n\\fB{}\\fR\n.br\n", text);
    case ProseKind::kParagraph:
      return fmt::format("{}{}\n", isAfterHeading ? "" : ".PP\n", text);
    case ProseKind::kItem:
      return fmt::format(".TP {}\n{}\n{}\n", piece.indent - 2, piece.label, text);
    default:
      return fmt::format(".nf\n    {}\n.fi\n", text);
  }
}

std::string FooterText(const std::string& footer) {
  std::string text;
  bool isAfterHeading = false;
  for (const Prose& piece : PiecesOf(footer)) {
    text += FooterPiece(piece, isAfterHeading);
    isAfterHeading = piece.kind == ProseKind::kHeading;
  }
  return text;
}

std::string Arguments(const CommandText& command) {
  std::string text;
  for (const ArgumentText& argument : command.arguments)
    text += fmt::format(" \\fI{}{}\\fR", Escaped(argument.name), argument.isRepeated ? "..." : "");
  return text;
}

std::string CommandSection(const CommandText& command) {
  const std::string arguments = Arguments(command);
  std::string text =
      fmt::format(".SS brvhost {}{} [\\fIOPTIONS\\fR]\n{}\n", command.name, arguments, Escaped(command.about));
  for (const OptionText& option : command.options) text += OptionEntry(option);
  return text + FooterText(command.footer);
}

// The path of the bundle that is installed with the program, for the prefix of this build and for any other.
std::string BundleEntry() {
  constexpr const char* kBundle = "/LegerLines.bundle";
  const std::string about =
      fmt::format("The bundle of LegerLines, if brvhost is {}. From the folder of brvhost it is {}{}.",
                  kInstalledProgram, kBundlesFromProgram, kBundle);
  return fmt::format(".TP\n\\fI{}{}\\fR\n{}\n", Escaped(kInstalledBundles), kBundle, Escaped(about));
}

}  // namespace

std::string ManualPage(const CLI::App& app) {
  std::string text = fmt::format(".TH BRVHOST 1 \"\" \"{}\" \"User commands\"\n", app.version());
  text += ".SH NAME\nbrvhost \\- run notation extensions on MusicXML scores\n";
  text += ".SH SYNOPSIS\n";
  for (const CommandText& command : DescribeCommands(app)) {
    text += fmt::format("\\fBbrvhost {}\\fR", command.name);
    text += Arguments(command);
    text += " [\\fIOPTIONS\\fR]\n.br\n";
  }
  text += fmt::format(".SH DESCRIPTION\n{}\n", Escaped(app.get_description()));
  for (const OptionText& option : DescribeOptions(app)) text += OptionEntry(option);
  text += ".SH COMMANDS\n";
  for (const CommandText& command : DescribeCommands(app)) text += CommandSection(command);
  text += ".SH FILES\n" + BundleEntry();
  return text + ".SH NOTES\n" + FooterText(app.get_footer());
}

}  // namespace brvhost
