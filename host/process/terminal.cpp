#include "host/process/terminal.h"

#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>

#include "host/process/interrupt.h"
#include "host/process/streams.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

// Beside it there are 50 columns for numbers and a remark.
constexpr int kBarWidth = 28;

std::string BarOf(std::int64_t done, std::int64_t total) {
  const std::int64_t part = total <= 0 ? 0 : std::clamp<std::int64_t>(done, 0, total);
  const auto filled =
      static_cast<std::size_t>(total <= 0 ? 0 : static_cast<double>(part) / static_cast<double>(total) * kBarWidth);
  return fmt::format("[{}{}] {}/{}", std::string(filled, '#'), std::string(kBarWidth - filled, ' '), done, total);
}

// What is typed up to and including the end of the line; nothing at the end of the input or after an interrupt, which
// answers every question. The terminal hands out whole lines; they are read a byte at a time so that the next question
// finds the next line.
std::string TypedLine() {
  std::string line;
  while (!line.ends_with('\n') && InterruptCount() == 0) {
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, kMaxWaitMs) <= 0) continue;
    char byte;
    if (read(STDIN_FILENO, &byte, 1) != 1) return "";
    line += byte;
  }
  return InterruptCount() == 0 ? line : "";
}

}  // namespace

Terminal::Terminal(const TerminalUse& use)
    : use_(use), isThere_(isatty(STDERR_FILENO) != 0), canAsk_(isThere_ && isatty(STDIN_FILENO) != 0) {}

Terminal::~Terminal() { ClearBar(); }

void Terminal::PrintLine(const std::string& line) {
  if (!use_.isQuiet) PrintLines(Printable(line) + "\n");
}

void Terminal::PrintLines(const std::string& lines) { PrintAboveBar(use_.outputIsTaken ? stderr : stdout, lines); }

void Terminal::PrintOutput(const std::string& text) { PrintAboveBar(stdout, text); }

void Terminal::PrintError(const std::string& line) { PrintBeside("brvhost: " + line); }

void Terminal::PrintWarning(const std::string& line) {
  if (!use_.isQuiet) PrintError(line);
}

void Terminal::PrintForeign(const std::string& line) {
  if (!use_.isQuiet) PrintBeside(line);
}

void Terminal::PrintBeside(const std::string& line) { PrintAboveBar(stderr, Printable(line) + "\n"); }

void Terminal::PrintAboveBar(std::FILE* stream, const std::string& text) {
  const std::string bar = bar_;
  ClearBar();
  Print(stream, "{}", text);
  std::fflush(stream);
  if (bar.empty()) return;
  Print(stderr, "{}", bar);
  bar_ = bar;
}

void Terminal::SetBar(std::int64_t done, std::int64_t total, const std::string& remark) {
  if (!isThere_ || use_.isQuiet || !use_.hasBar) return;
  ClearBar();
  bar_ = BarOf(done, total) + remark;
  Print(stderr, "{}", bar_);
}

void Terminal::ClearBar() {
  if (bar_.empty()) return;
  std::fprintf(stderr, "\r%*s\r", static_cast<int>(bar_.size()), "");  // which needs no memory
  bar_.clear();
}

bool Terminal::Ask(const std::string& question) {
  if (!canAsk_) return false;
  ClearBar();
  Print(stderr, "{} [y/N] ", Printable(question));
  const std::string answer = TypedLine();
  if (answer.empty()) Print(stderr, "\n");
  return answer.starts_with('y') || answer.starts_with('Y');
}

}  // namespace brvhost
