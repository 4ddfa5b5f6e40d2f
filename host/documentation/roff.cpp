#include "host/documentation/roff.h"

#include <fmt/format.h>

#include <string_view>

#include "host/commands/prose.h"

namespace brvhost {
namespace {

// Characters that would be taken for commands, or be printed as typographers have them. Empty for all others.
std::string_view EscapeOf(char character) {
  switch (character) {
    case '\\':
      return "\\e";
    case '-':
      return "\\-";
    case '\'':
      return "\\(aq";
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    default:
      return "";
  }
}

// Paragraphs are filled, and examples are not.
std::string PieceOf(const Prose& piece, ProseKind before) {
  switch (piece.kind) {
    case ProseKind::kHeading:
      return fmt::format(".SH {}\n", RoffOf(piece.text));
    case ProseKind::kParagraph:
      return (before == ProseKind::kHeading ? "" : ".PP\n") + RoffLinesOf(piece.text);
    case ProseKind::kItem:
      return fmt::format(".TP {}\n{}\n{}", piece.indent - 2, RoffOf(piece.label), RoffLinesOf(piece.text));
    default:
      return RoffOf(piece.text) + "\n";
  }
}

}  // namespace

std::string RoffOf(const std::string& text) {
  std::string roff;
  bool isBold = false;
  char before = ' ';
  for (const char character : text) {
    // It would make a command of a line.
    if (character == '.' && before == ' ') roff += "\\&";
    before = character;
    if (character == '`') {
      isBold = !isBold;
      roff += isBold ? "\\fB" : "\\fR";
      continue;
    }
    const std::string_view escape = EscapeOf(character);
    roff += escape.empty() ? std::string_view(&character, 1) : escape;
  }
  return roff;
}

std::string RoffLinesOf(const std::string& text) { return Wrapped(RoffOf(text), 0); }

std::string RoffOfProse(const std::string& text) {
  std::string roff;
  ProseKind before = ProseKind::kParagraph;
  for (const Prose& piece : PiecesOf(text)) {
    const bool isExample = piece.kind == ProseKind::kExample;
    if (before == ProseKind::kExample && !isExample) roff += ".fi\n.RE\n";
    if (before != ProseKind::kExample && isExample) roff += ".RS 4\n.nf\n";
    roff += PieceOf(piece, before);
    before = piece.kind;
  }
  return roff + (before == ProseKind::kExample ? ".fi\n.RE\n" : "");
}

}  // namespace brvhost
