#include "host/batch/terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace brvhost {
namespace {

constexpr int kBarWidth = 40;

std::string BarOf(std::int64_t done, std::int64_t total) {
  const std::int64_t part = total <= 0 ? 0 : std::clamp<std::int64_t>(done, 0, total);
  const auto filled = static_cast<std::size_t>(total <= 0 ? 0 : part * kBarWidth / total);
  return fmt::format("[{}{}] {}/{}", std::string(filled, '#'), std::string(kBarWidth - filled, ' '), done, total);
}

}  // namespace

Terminal::Terminal() : showsBar_(isatty(STDERR_FILENO) != 0), canAsk_(showsBar_ && isatty(STDIN_FILENO) != 0) {}

Terminal::~Terminal() { ClearBar(); }

void Terminal::Print(const std::string& line) {
  const std::string bar = bar_;
  ClearBar();
  fmt::print("{}\n", line);
  std::fflush(stdout);
  if (bar.empty()) return;
  fmt::print(stderr, "{}", bar);
  bar_ = bar;
}

void Terminal::PrintError(const std::string& line) {
  const std::string bar = bar_;
  ClearBar();
  fmt::print(stderr, "brvhost: {}\n{}", line, bar);
  bar_ = bar;
}

void Terminal::SetBar(std::int64_t done, std::int64_t total) {
  if (!showsBar_) return;
  ClearBar();
  bar_ = BarOf(done, total);
  fmt::print(stderr, "{}", bar_);
}

void Terminal::ClearBar() {
  if (bar_.empty()) return;
  fmt::print(stderr, "\r{}\r", std::string(bar_.size(), ' '));
  bar_.clear();
}

bool Terminal::Ask(const std::string& question) {
  if (!canAsk_) return false;
  ClearBar();
  fmt::print(stderr, "{} [y/N] ", question);
  std::string answer;
  if (!std::getline(std::cin, answer)) {
    fmt::print(stderr, "\n");
    std::cin.clear();
  }
  return answer.starts_with('y') || answer.starts_with('Y');
}

}  // namespace brvhost
