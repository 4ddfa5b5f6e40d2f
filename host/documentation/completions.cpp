#include "host/documentation/completions.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "host/commands/argumentnames.h"
#include "host/commands/prose.h"
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
    for (const OptionText& option : OptionsOf(command)) {
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

// What an argument is completed with, as zsh names it; nothing where only the user knows.
std::string ZshAction(const CLI::App& app, const ArgumentText& argument) {
  if (argument.name == kBundleArgument) return "_brvhost_bundles";
  if (argument.name == kScoreArgument) return "_files -g \"*.(musicxml|xml|mxl)(-.)\"";
  return argument.name == kCommandArgument ? fmt::format("({})", CommandNames(app)) : "";
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

// Where an argument is asked for, as alternatives of a shell pattern over the command and the number of the word: in
// its place, or anywhere where no other argument comes after it.
std::string Places(const CLI::App& app, std::string_view argument) {
  std::string pattern;
  for (const CommandText& command : DescribeCommands(app)) {
    const auto found = std::ranges::find(command.arguments, argument, &ArgumentText::name);
    if (found == command.arguments.end()) continue;
    const std::ptrdiff_t word = found - command.arguments.begin() + 2;
    const std::string place = found + 1 == command.arguments.end() ? "*" : std::to_string(word);
    pattern += fmt::format("{}{}:{}", pattern.empty() ? "" : "|", command.name, place);
  }
  return pattern;
}

}  // namespace

std::string BashCompletion(const CLI::App& app) {
  std::string cases;
  for (const CommandText& command : DescribeCommands(app)) {
    cases += fmt::format("    {}) options=\"{}\" ;;\n", command.name, OptionNames(OptionsOf(command)));
  }
  return fmt::format(R"(# bash completion for brvhost
# The lines of the standard input, which may have blanks in them, become what is offered.
_brvhost_offer() {{
  compopt -o filenames
  mapfile -t COMPREPLY
}}
_brvhost_bundles() {{
  local name rest
  brvhost list 2>/dev/null | while IFS=$'\t' read -r name rest; do
    [[ $name != "$1"* ]] || printf '%s\n' "$name"
  done
  compgen -d -- "$1"
}}
_brvhost() {{
  local word=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD-1]}} commands="{}" options
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ]; then
    COMPREPLY=($(compgen -W "$commands {}" -- "$word"))
    return
  fi
  # As it was typed, a name has the shell's quotes around it, or backslashes in it.
  word=${{word#[\"\']}}
  word=${{word//\\/}}
  case $previous in
    {}) _brvhost_offer < <(compgen -d -- "$word"); return ;;
    {}) _brvhost_offer < <(compgen -f -- "$word"); return ;;
    {}) return ;;
  esac
  case ${{COMP_WORDS[1]}} in
{}    *) return ;;
  esac
  if [[ $word == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
    return
  fi
  case ${{COMP_WORDS[1]}}:$COMP_CWORD in
    {}) _brvhost_offer < <(_brvhost_bundles "$word") ;;
    {}) COMPREPLY=($(compgen -W "$commands" -- "$word")) ;;
    {}) _brvhost_offer < <(compgen -d -- "$word"; compgen -f -X '!*.@(musicxml|xml|mxl)' -- "$word") ;;
  esac
}}
shopt -s extglob
complete -F _brvhost brvhost
)",
                     CommandNames(app), OptionNames(OptionsOf(DescribeProgram(app))), Pattern(app, IsFolder),
                     Pattern(app, IsFile), Pattern(app, IsPlain), cases, Places(app, kBundleArgument),
                     Places(app, kCommandArgument), Places(app, kScoreArgument));
}

std::string ZshCompletion(const CLI::App& app) {
  std::string text = R"zsh(#compdef brvhost
# zsh completion for brvhost
_brvhost_bundles() {
  local -a names
  names=(${(f)"$(brvhost list 2>/dev/null | cut -f 1)"})
  compadd -a names
  _files -/
}
_brvhost() {
  local -a commands
  commands=(
)zsh";
  for (const CommandText& command : DescribeCommands(app)) {
    text += fmt::format("    '{}:{}'\n", command.name, Escaped(FirstClause(command.about)));
  }
  text += "  )\n  if (( CURRENT == 2 )); then\n    _describe command commands\n    return\n  fi\n  case $words[2] in\n";
  for (const CommandText& command : DescribeCommands(app)) {
    text += fmt::format("    {})\n      shift words; (( CURRENT-- ))\n      _arguments", command.name);
    for (const OptionText& option : OptionsOf(command)) text += ZshOption(option);
    for (const ArgumentText& argument : command.arguments) {
      text += fmt::format(" \\\n        '{}:{}:{}'", argument.isRepeated ? "*" : "1", argument.name,
                          ZshAction(app, argument));
    }
    text += "\n      ;;\n";
  }
  return text + "  esac\n}\n_brvhost \"$@\"\n";
}

}  // namespace brvhost
