// The long texts of the help, in the pieces that they are laid out by.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

enum class ProseKind {
  kHeading,    // a line that is not indented
  kParagraph,  // lines that are indented by two, up to an empty one or another kind
  kItem,       // such a line that begins with a word and two blanks, and the lines below its text
  kExample,    // a line that is indented by more, and stays as it is
};

struct Prose {
  ProseKind kind;
  std::string label;       // of an item
  std::string text;        // on one line
  std::size_t indent = 0;  // of an item's text
};

// What an explanation says first, for a list of commands: up to its first comma, colon or full stop.
std::string FirstClause(const std::string& text);

std::vector<Prose> PiecesOf(std::string_view text);

// The text in lines of at most 80 characters, each indented by so many, with a line break after each.
std::string Wrapped(std::string_view text, std::size_t indent);

// The pieces, laid out for a terminal.
std::string LaidOut(const std::vector<Prose>& pieces);

}  // namespace brvhost
