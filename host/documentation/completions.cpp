#include "host/documentation/completions.h"

#include <fmt/format.h>

#include <vector>

#include "host/documentation/optionlist.h"

namespace brvhost {
namespace {

bool IsFolder(const std::string& value) { return value == "DIR"; }
bool IsFile(const std::string& value) { return value == "FILE"; }

std::string CommandNames(const CLI::App& app) {
  std::string names;
  for (const CommandText& command : DescribeCommands(app)) names += (names.empty() ? "" : " ") + command.name;
  return names;
}

std::string OptionNames(const std::vector<OptionText>& options) {
  std::string names;
  for (const OptionText& option : options) {
    for (const std::string& name : option.names) names += (names.empty() ? "" : " ") + name;
  }
  return names;
}

// The options whose value is of one kind, as alternatives of a shell pattern.
std::string Pattern(const CLI::App& app, bool (*isOfTheKind)(const std::string&)) {
  std::string pattern;
  for (const CommandText& command : DescribeCommands(app)) {
    for (const OptionText& option : command.options) {
      if (!isOfTheKind(option.value)) continue;
      for (const std::string& name : option.names) pattern += (pattern.empty() ? "" : "|") + name;
    }
  }
  return pattern;
}

bool IsPlain(const std::string& value) { return !value.empty() && !IsFolder(value) && !IsFile(value); }

// Within brackets and single quotes of the shell.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '\'')
      escaped += "'\\''";
    else if (character == '[' || character == ']' || character == ':')
      escaped += std::string("\\") + character;
    else
      escaped += character;
  }
  return escaped;
}

std::string ZshOption(const OptionText& option) {
  std::string lines;
  const std::string action = IsFolder(option.value) ? "_files -/" : IsFile(option.value) ? "_files" : "";
  const std::string value = option.value.empty() ? "" : fmt::format(":{}:{}", option.value, action);
  for (const std::string& name : option.names) {
    lines += fmt::format(" \\\n        '{}[{}]{}'", name, Escaped(option.about), value);
  }
  return lines;
}

}  // namespace

std::string BashCompletion(const CLI::App& app) {
  std::string cases;
  for (const CommandText& command : DescribeCommands(app)) {
    cases += fmt::format("    {}) options=\"{}\" ;;\n", command.name, OptionNames(command.options));
  }
  return fmt::format(R"(# bash completion for brvhost
_brvhost() {{
  local word=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD-1]}} options
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    COMPREPLY=($(compgen -W "{} {}" -- "$word"))
    return
  fi
  case $previous in
    {}) compopt -o filenames; COMPREPLY=($(compgen -d -- "$word")); return ;;
    {}) compopt -o filenames; COMPREPLY=($(compgen -f -- "$word")); return ;;
    {}) return ;;
  esac
  case ${{COMP_WORDS[1]}} in
{}    *) return ;;
  esac
  if [[ $word == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
    return
  fi
  compopt -o filenames
  COMPREPLY=($(compgen -d -- "$word") $(compgen -f -X '!*.@(musicxml|xml|mxl)' -- "$word"))
}}
shopt -s extglob
complete -F _brvhost brvhost
)",
                     CommandNames(app), OptionNames(DescribeOptions(app)), Pattern(app, IsFolder), Pattern(app, IsFile),
                     Pattern(app, IsPlain), cases);
}

std::string ZshCompletion(const CLI::App& app) {
  std::string text =
      "#compdef brvhost\n# zsh completion for brvhost\n_brvhost() {\n  local -a commands\n  commands=(\n";
  for (const CommandText& command : DescribeCommands(app)) {
    text += fmt::format("    '{}:{}'\n", command.name, Escaped(command.about));
  }
  text += "  )\n  if (( CURRENT == 2 )); then\n    _describe command commands\n    return\n  fi\n  case $words[2] in\n";
  for (const CommandText& command : DescribeCommands(app)) {
    text += fmt::format("    {})\n      shift words; (( CURRENT-- ))\n      _arguments", command.name);
    for (const OptionText& option : command.options) text += ZshOption(option);
    int number = 0;
    for (const std::string& argument : command.arguments) {
      const bool isBundle = argument == "BUNDLE";
      text += isBundle ? fmt::format(" \\\n        '{}:bundle:_files -/'", ++number)
                       : std::string(" \\\n        '*:score:_files -g \"*.(musicxml|xml|mxl)(-.)\"'");
    }
    text += "\n      ;;\n";
  }
  return text + "  esac\n}\n_brvhost \"$@\"\n";
}

}  // namespace brvhost
