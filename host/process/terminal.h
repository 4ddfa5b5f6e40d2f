// What the user sees: lines, a bar below them, and questions.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace brvhost {

struct TerminalUse {
  bool isQuiet = false;        // only what was asked for and what went wrong
  bool hasBar = true;          // where there is a terminal
  bool outputIsTaken = false;  // by a result, or what is for programs: all other lines are on the standard error
};

class Terminal {
 public:
  explicit Terminal(const TerminalUse& use = {});
  ~Terminal();

  // Whole lines, above the bar. Whatever in them a terminal would obey is left out. An error begins with "brvhost: ",
  // and so does a warning; what an extension prints comes beside them, so that the results stay the program's own.
  void PrintLine(const std::string& line);
  // Several that were asked for, each with its end, whose text is printable.
  void PrintLines(const std::string& lines);
  // What is for programs, as it is.
  void PrintOutput(const std::string& text);
  void PrintError(const std::string& line);
  void PrintWarning(const std::string& line);
  void PrintForeign(const std::string& line);

  // Draws the bar, on a terminal only. It stays until it is set again or cleared, or a question is asked.
  void SetBar(std::int64_t done, std::int64_t total, const std::string& remark = "");
  void ClearBar();

  // Whether there is a terminal to read answers from and to show questions on.
  bool CanAsk() const { return canAsk_; }
  // Without a terminal, and after an interrupt, the answer is no.
  bool Ask(const std::string& question);

 private:
  void PrintBeside(const std::string& line);
  void PrintAboveBar(std::FILE* stream, const std::string& text);

  const TerminalUse use_;
  bool isThere_;
  bool canAsk_;
  std::string bar_;  // as it stands on the screen
};

}  // namespace brvhost
