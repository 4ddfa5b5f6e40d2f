// Every string of up to four characters is read as a second reader reads it, written from the rules of pitch names
// alone.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "diapitch.h"
#include "pitch.h"

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHabcdefgh#x0123456789-/ ";
constexpr int kMiddleC = 4;

// "b" is both a letter and an accidental; it is in the alphabet once.
static_assert(kAlphabet.find('b') != std::string_view::npos);

std::optional<tDiaPitch> ReadName(const std::string& text) {
  constexpr std::string_view kScale = "CDEFGAB";
  std::size_t at = 0;
  const auto next = [&]() -> char { return at < text.size() ? text[at] : '\0'; };

  const std::size_t letter = kScale.find(static_cast<char>(next() & ~0x20));
  if (next() == '\0' || letter == std::string_view::npos) return std::nullopt;
  ++at;
  int alteration = 0;
  if (next() == '#') alteration = 1;
  if (next() == 'b') alteration = -1;
  if (alteration != 0) ++at;
  if (std::string_view("0123456789").find(next()) == std::string_view::npos) return std::nullopt;
  const int step = static_cast<int>(letter) + 7 * (next() - '0') - 7 * kMiddleC;
  if (step > 39 || step + (alteration > 0 ? 1 : 0) > 39) return std::nullopt;
  if (step < -28 || step - (alteration < 0 ? 1 : 0) < -28) return std::nullopt;
  return tDiaPitch{static_cast<std::int16_t>(step), static_cast<std::int16_t>(alteration)};
}

std::optional<tDiaPitch> ReadNumber(const std::string& text) {
  std::size_t at = text.find_first_not_of(' ');
  bool negative = false;
  if (at != std::string::npos && text[at] == '-') {
    negative = true;
    ++at;
  }
  int number = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) number = 10 * number + text[at] - '0';
  if ((negative && number > 0) || number > 127) return std::nullopt;
  static constexpr int kSteps[] = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 6, 6};
  static constexpr int kAlterations[] = {0, 1, 0, 1, 0, 0, 1, 0, 1, 0, -1, 0};
  return tDiaPitch{static_cast<std::int16_t>(7 * (number / 12) - 35 + kSteps[number % 12]),
                   static_cast<std::int16_t>(kAlterations[number % 12])};
}

template <class Check>
void ForEveryText(std::string& text, std::size_t longest, const Check& check) {
  check(text);
  if (text.size() == longest) return;
  for (const char character : kAlphabet) {
    text.push_back(character);
    ForEveryText(text, longest, check);
    text.pop_back();
  }
}

template <class Reader>
void CompareWith(Reader reader, int error) {
  std::string text;
  int differences = 0;
  ForEveryText(text, 4, [&](const std::string& candidate) {
    tDiaPitch pitch = {99, 9};
    const int answer = BXUtilParsePitch(candidate.c_str(), &pitch);
    const std::optional<tDiaPitch> expected = reader(candidate);
    const bool same = expected ? answer == 0 && pitch == *expected : answer == error && pitch == tDiaPitch{99, 9};
    if (!same && ++differences < 10) ADD_FAILURE() << '"' << candidate << "\" gives " << answer << ", " << pitch;
  });
  EXPECT_EQ(differences, 0);
}

TEST(ParsePitch, ReadsEveryShortTextAsTheRulesOfNamesSay) {
  BXUtilSetPitchFormatting(kMiddleC);
  CompareWith(ReadName, kBadPitchName);
}

TEST(ParsePitch, ReadsEveryShortTextAsTheRulesOfNumbersSay) {
  BXUtilSetPitchFormatting(kPitchNumbers);
  CompareWith(ReadNumber, kBadPitchNumber);
}

}  // namespace
