#include "host/score/measurenumbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <system_error>

#include "host/text/inputerror.h"
#include "host/text/printable.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

constexpr std::string_view kSpecial = "-/,\\";

// The first place of a character that no backslash precedes; the size of the text where there is none.
std::size_t FindPlain(std::string_view text, char character) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == character) return i;
    if (text[i] == '\\') ++i;
  }
  return text.size();
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size() && kSpecial.find(text[i + 1]) != std::string_view::npos) ++i;
    plain += text[i];
  }
  return plain;
}

// As ParsePrintedRange reads it.
std::string Written(const PrintedNumber& number) {
  std::string text = "m";
  for (const char character : number.text) {
    if (kSpecial.find(character) != std::string_view::npos) text += '\\';
    text += character;
  }
  return number.occurrence ? fmt::format("{}/{}", text, *number.occurrence) : text;
}

std::optional<PrintedNumber> ParsePrintedNumber(std::string_view text) {
  if (!text.starts_with('m')) return std::nullopt;
  text.remove_prefix(1);
  const std::size_t slash = FindPlain(text, '/');
  PrintedNumber number{Unescaped(text.substr(0, slash)), std::nullopt};
  if (number.text.empty()) return std::nullopt;
  if (slash == text.size()) return number;
  const auto occurrence = ParseNumberRange(text.substr(slash + 1));
  if (!occurrence || occurrence->last != occurrence->first) return std::nullopt;
  number.occurrence = occurrence->first;
  return number;
}

std::vector<int> MeasuresWith(const std::string& text, bool isPrinted, const Score& score) {
  std::vector<int> measures;
  int measure = 0;
  for (const MeasureNumber& number : score.measureNumbers) {
    ++measure;
    if (number.isPrinted == isPrinted && number.text == text) measures.push_back(measure);
  }
  return measures;
}

std::string ChoicesOf(const PrintedNumber& number, const std::vector<int>& measures) {
  std::vector<std::string> choices;
  for (const int measure : measures) {
    const PrintedNumber choice{number.text, static_cast<int>(choices.size()) + 1};
    choices.push_back(fmt::format("{} is measure {}", Written(choice), measure));
  }
  return ShortList(choices);
}

[[noreturn]] void ThrowMissing(const PrintedNumber& number, const Score& score) {
  std::vector<std::string> numbers;
  for (NumberSequence& sequence : SequencesOf(score.measureNumbers)) {
    std::ranges::move(sequence.numbers, std::back_inserter(numbers));
  }
  throw InputError(fmt::format("the score has no measure with the printed number {}; those that it has are {}",
                               Excerpt(number.text), numbers.empty() ? "none" : ShortList(numbers)));
}

int MeasureWith(const PrintedNumber& number, const Score& score) {
  std::vector<int> measures = MeasuresWith(number.text, true, score);
  if (measures.empty()) measures = MeasuresWith(number.text, false, score);
  if (measures.empty()) ThrowMissing(number, score);
  const auto count = static_cast<int>(measures.size());
  const int occurrence = number.occurrence.value_or(count == 1 ? 1 : 0);
  if (occurrence >= 1 && occurrence <= count) return measures[static_cast<std::size_t>(occurrence) - 1];
  throw InputError(fmt::format("the printed number {} is that of {}{} measure{}: {}", Excerpt(number.text),
                               number.occurrence ? "only " : "", count, count == 1 ? "" : "s",
                               ChoicesOf(number, measures)));
}

// A number in parts: "X12" is "X" and 12.
struct NumberParts {
  std::string_view prefix;
  std::optional<int> value;
};

NumberParts PartsOf(std::string_view text) {
  const std::size_t digits = text.find_last_not_of("0123456789") + 1;
  int value = 0;
  const auto [end, error] = std::from_chars(text.data() + digits, text.data() + text.size(), value);
  if (error != std::errc()) return {text, std::nullopt};
  return {text.substr(0, digits), value};
}

// Whether the second number goes on where the first ends.
bool Follows(const MeasureNumber& before, const MeasureNumber& after) {
  const auto [prefix, value] = PartsOf(before.text);
  return value && before.isPrinted == after.isPrinted &&
         after.text == fmt::format("{}{}", prefix, std::int64_t{*value} + 1);
}

bool IsSame(const MeasureNumber& a, const MeasureNumber& b) { return a.isPrinted == b.isPrinted && a.text == b.text; }

// The value of a number that is nothing else.
std::optional<int> ValueOf(const MeasureNumber& number) {
  const auto [prefix, value] = PartsOf(number.text);
  return prefix.empty() ? value : std::nullopt;
}

using Numbers = std::span<const MeasureNumber>;

// How many of the numbers, from the first on, `goesOn` holds for each and the next.
template <class GoesOn>
std::size_t LengthOfRun(Numbers numbers, GoesOn goesOn) {
  const auto end = std::ranges::adjacent_find(numbers, [&](const auto& a, const auto& b) { return !goesOn(a, b); });
  return end == numbers.end() ? numbers.size() : static_cast<std::size_t>(end - numbers.begin()) + 1;
}

std::string RunText(Numbers numbers, bool isSame) {
  const MeasureNumber& first = numbers.front();
  std::string text = first.text.empty() ? "no number" : first.text;
  if (!isSame && numbers.size() > 1) text += "-" + numbers.back().text;
  if (!first.isPrinted) text = "(" + text + ")";
  return isSame && numbers.size() > 1 ? fmt::format("{} times {}", numbers.size(), text) : text;
}

std::vector<std::string> RunsOf(Numbers numbers) {
  std::vector<std::string> runs;
  while (!numbers.empty()) {
    const std::size_t same = LengthOfRun(numbers, IsSame);
    const std::size_t length = std::max(same, LengthOfRun(numbers, Follows));
    runs.push_back(RunText(numbers.first(length), length == same));
    numbers = numbers.subspan(length);
  }
  return runs;
}

// How many numbers there are before they start again.
std::size_t LengthOfSequence(Numbers numbers) {
  std::optional<int> last;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto value = ValueOf(numbers[i]);
    if (value && last && *value < *last) return i;
    if (value) last = value;
  }
  return numbers.size();
}

}  // namespace

std::optional<MeasureRange> ParsePrintedRange(std::string_view text) {
  const std::size_t dash = FindPlain(text, '-');
  const std::string_view first = text.substr(0, dash);
  MeasureRange range;
  range.first = ParsePrintedNumber(first);
  if (!first.empty() && !range.first) return std::nullopt;
  if (dash == text.size()) {
    range.last = range.first;
    return range.IsPrinted() ? std::optional(range) : std::nullopt;
  }
  const std::string_view last = text.substr(dash + 1);
  if (FindPlain(last, '-') < last.size()) return std::nullopt;
  range.last = ParsePrintedNumber(last);
  if (!last.empty() && !range.last) return std::nullopt;
  return range.IsPrinted() ? std::optional(range) : std::nullopt;
}

std::vector<std::string> TextsOfPrintedList(std::string_view list) {
  std::vector<std::string> texts;
  for (;;) {
    const std::size_t comma = FindPlain(list, ',');
    texts.emplace_back(list.substr(0, comma));
    if (comma == list.size()) return texts;
    list.remove_prefix(comma + 1);
  }
}

NumberRange ByOrder(const MeasureRange& range, const Score& score) {
  if (!range.IsPrinted()) return range.byOrder;
  NumberRange byOrder;
  if (range.first) byOrder.first = MeasureWith(*range.first, score);
  if (range.last) byOrder.last = MeasureWith(*range.last, score);
  if (!byOrder.IsReversed()) return byOrder;
  throw InputError(fmt::format("{}-{}: starts after its end; these are the measures {} and {} by order",
                               Written(*range.first), Written(*range.last), byOrder.first, *byOrder.last));
}

std::vector<NumberSequence> SequencesOf(const std::vector<MeasureNumber>& numbers) {
  std::vector<NumberSequence> sequences;
  int before = 0;
  for (Numbers rest = numbers; !rest.empty();) {
    const std::size_t length = LengthOfSequence(rest);
    const int last = before + static_cast<int>(length);
    sequences.push_back({{before + 1, last}, RunsOf(rest.first(length))});
    before = last;
    rest = rest.subspan(length);
  }
  return sequences;
}

}  // namespace brvhost
