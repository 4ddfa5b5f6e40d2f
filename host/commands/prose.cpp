#include "host/commands/prose.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace brvhost {
namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kIndent = 2;
constexpr std::size_t kExampleIndent = 4;

std::size_t IndentOf(std::string_view line) { return std::min(line.find_first_not_of(' '), line.size()); }

// Where the text of an item begins; nothing where the line is none.
std::optional<std::size_t> TextOfItem(std::string_view line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  return line.substr(end).starts_with("  ") ? std::optional(line.find_first_not_of(' ', end)) : std::nullopt;
}

Prose ItemOf(std::string_view line, std::size_t text) {
  return {ProseKind::kItem, std::string(line.substr(0, line.find(' '))), std::string(line.substr(text)),
          kIndent + text};
}

// Whether the line goes on with the piece before it.
bool GoesOn(const Prose& before, std::size_t indent) {
  if (before.kind == ProseKind::kItem) return indent == before.indent;
  return before.kind == ProseKind::kParagraph && indent == kIndent;
}

Prose PieceOf(std::string_view line, std::size_t indent) {
  const std::string_view text = line.substr(indent);
  if (indent == 0) return {ProseKind::kHeading, "", std::string(text)};
  if (indent > kIndent) return {ProseKind::kExample, "", std::string(line.substr(std::min(indent, kExampleIndent)))};
  const auto textOfItem = TextOfItem(text);
  return textOfItem ? ItemOf(text, *textOfItem) : Prose{ProseKind::kParagraph, "", std::string(text)};
}

}  // namespace

std::string FirstClause(const std::string& text) { return text.substr(0, text.find_first_of(",:.")); }

std::vector<Prose> PiecesOf(std::string_view text) {
  std::vector<Prose> pieces;
  bool isAfterGap = true;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const std::size_t indent = IndentOf(line);
    const bool isGap = indent == line.size();
    const bool isItem = indent == kIndent && TextOfItem(line.substr(indent));
    if (!isGap && !isAfterGap && !isItem && GoesOn(pieces.back(), indent)) {
      pieces.back().text.append(" ").append(line.substr(indent));
    } else if (!isGap) {
      pieces.push_back(PieceOf(line, indent));
    }
    isAfterGap = isGap;
  }
  return pieces;
}

std::string Wrapped(std::string_view text, std::size_t indent) {
  std::string lines;
  std::string line;
  const auto end = [&] {
    if (!line.empty()) lines += std::string(indent, ' ') + line + "\n";
    line.clear();
  };
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (word.empty()) continue;
    if (indent + line.size() + 1 + word.size() > kWidth) end();
    line.append(line.empty() ? "" : " ").append(word);
  }
  end();
  return lines;
}

std::string LaidOut(const std::vector<Prose>& pieces) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Prose& piece = pieces[i];
    const bool isSecondParagraph =
        i > 0 && piece.kind == ProseKind::kParagraph && pieces[i - 1].kind == ProseKind::kParagraph;
    if (i > 0 && (piece.kind == ProseKind::kHeading || isSecondParagraph)) text += "\n";
    if (piece.kind == ProseKind::kHeading) text += piece.text + "\n";
    if (piece.kind == ProseKind::kParagraph) text += Wrapped(piece.text, kIndent);
    if (piece.kind == ProseKind::kExample) text += fmt::format("{:{}}{}\n", "", kExampleIndent, piece.text);
    if (piece.kind != ProseKind::kItem) continue;
    const std::string label = fmt::format("  {:<{}}", piece.label, piece.indent - kIndent);
    text += label + Wrapped(piece.text, piece.indent).substr(piece.indent);
  }
  return text;
}

}  // namespace brvhost
