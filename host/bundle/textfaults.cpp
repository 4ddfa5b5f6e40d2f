#include "host/bundle/textfaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "host/bundle/bundlelanguages.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kUnquoted = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_$/:.-";

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::optional<TextFault> FirstFault() {
    while (!fault_ && SkipBlanks()) ReadPair();
    return std::move(fault_);
  }

 private:
  bool Starts(std::string_view with) const { return text_.substr(at_).starts_with(with); }
  bool Take(char character) {
    if (!SkipBlanks() || text_[at_] != character) return false;
    ++at_;
    return true;
  }

  // Returns whether anything follows the blanks and comments.
  bool SkipBlanks() {
    while (true) {
      at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
      if (Starts("//")) {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (Starts("/*")) {
        const std::size_t end = text_.find("*/", at_ + 2);
        if (end == std::string_view::npos) Fail(at_, "the comment has no end");
        at_ = end == std::string_view::npos ? text_.size() : end + 2;
      } else {
        return !fault_ && at_ < text_.size();
      }
    }
  }

  // A text with or without quotation marks, as it is written; empty where there is none.
  std::string_view TakeText() {
    if (!SkipBlanks()) return {};
    const std::size_t start = at_;
    if (text_[start] != '"') {
      at_ = std::min(text_.find_first_not_of(kUnquoted, start), text_.size());
    } else if (!SkipQuoted()) {
      Fail(start, "the quotation mark has no second one");
    }
    return text_.substr(start, at_ - start);
  }

  // From one quotation mark to after the next; what is escaped ends nothing.
  bool SkipQuoted() {
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"') {
        ++at_;
        return true;
      }
      if (text_[at_] == '\\') ++at_;
    }
    at_ = text_.size();
    return false;
  }

  void ReadPair() {
    const std::size_t start = at_;
    const std::string_view key = TakeText();
    if (key.empty()) return Fail(start, "here should be a key in quotation marks");
    if (Take(';')) return;  // a key that is its own text
    if (!Take('=')) return FailPair(start, key);
    if (SkipBlanks() && std::string_view("{(<").find(text_[at_]) != std::string_view::npos) {
      at_ = text_.size();
      return;
    }
    if (TakeText().empty()) return Fail(start, Excerpt(key) + " has no text after its =");
    if (!Take(';')) FailPair(start, key);
  }

  void FailPair(std::size_t at, std::string_view key) {
    Fail(at, Excerpt(key) + " should be followed by = \"its text\" and a semicolon");
  }

  // The first counts.
  void Fail(std::size_t at, std::string what) {
    if (fault_) return;
    const std::size_t lineEnds = static_cast<std::size_t>(std::ranges::count(text_.substr(0, at), '\n'));
    fault_ = TextFault{lineEnds + 1, std::move(what)};
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::optional<TextFault> fault_;
};

bool IsInAnotherForm(std::string_view text) {
  return std::ranges::any_of(std::initializer_list<std::string_view>{"\xFF\xFE", "\xFE\xFF", "<?", "bp"},
                             [text](std::string_view start) { return text.starts_with(start); });
}

}  // namespace

std::optional<TextFault> FirstFaultIn(std::string_view text) { return Reader(text).FirstFault(); }

std::optional<TextFault> FirstFaultOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  return IsInAnotherForm(text) ? std::nullopt : FirstFaultIn(text);
}

std::vector<std::string> FaultsInTexts(const std::string& bundle) {
  std::vector<std::string> faults;
  for (const std::string& language : LanguagesOf(bundle)) {
    const std::string path = fmt::format("{}/Contents/Resources/{}.lproj/Localizable.strings", bundle, language);
    if (const auto fault = FirstFaultOf(path))
      faults.push_back(fmt::format("{}:{}: {}", path, fault->line, fault->what));
  }
  return faults;
}

}  // namespace brvhost
