#include "host/score/attributesreader.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "host/score/fraction.h"
#include "host/text/blanks.h"

namespace brvhost {
namespace {

constexpr int kLargest = 1000;  // beyond what music has; keeps sums and products small

// A number as far as it makes sense; 0 for anything else.
int SmallNumber(std::string_view text) {
  const auto number = ParseDecimal(text);
  if (!number || number->denominator != 1 || std::abs(number->numerator) > kLargest) return 0;
  return static_cast<int>(number->numerator);
}

// "3+2" is 5.
int SumOf(std::string_view text) {
  int sum = 0;
  while (!text.empty()) {
    const std::size_t plus = std::min(text.find('+'), text.size());
    sum += SmallNumber(text.substr(0, plus));
    text.remove_prefix(std::min(plus + 1, text.size()));
  }
  return sum;
}

// 2/4 and 3/8 are 7/8.
Meter Sum(const Meter& a, const Meter& b) {
  if (a.beats == 0 || a.beatUnit == b.beatUnit) return {a.beats + b.beats, b.beatUnit};
  const int unit = std::lcm(a.beatUnit, b.beatUnit);
  return {a.beats * (unit / a.beatUnit) + b.beats * (unit / b.beatUnit), unit};
}

// The steps that go with an interval of so many semitones when nothing says otherwise.
int StepsOfSemitones(int semitones) {
  const int twelfths = 7 * semitones;
  return (twelfths >= 0 ? twelfths + 6 : twelfths - 5) / 12;
}

}  // namespace

void AttributesReader::BeginMeasure() { details_.measures.push_back(state_); }

void AttributesReader::StartElement(const char* name, const XmlAttributes& attributes) {
  open_.emplace_back(name);
  if (open_.size() > 1) return;
  const char* const staff = attributes.Find("number");
  staff_ = staff == nullptr ? 0 : SmallNumber(staff);
  key_ = {};
  meter_ = {};
  transposition_ = {};
  hasSteps_ = false;
  octaves_ = 0;
}

void AttributesReader::EndElement(std::string_view text) {
  const std::string name = std::move(open_.back());
  open_.pop_back();
  if (open_.size() > 1) return;  // of another meter that the one may be counted in
  text = WithoutBlanks(text);
  if (name == "fifths") key_.sharps = SmallNumber(text);
  if (name == "mode") key_.isMinor = text == "minor";
  if (name == "key-step") key_.isStandard = false;
  if (name == "beats") beats_ = SumOf(text);
  if (name == "beat-type" && SmallNumber(text) > 0) meter_ = Sum(meter_, {beats_, SmallNumber(text)});
  if (name == "chromatic") transposition_.semitones = SmallNumber(text);
  if (name == "octave-change") octaves_ = SmallNumber(text);
  if (name == "diatonic") {
    transposition_.steps = SmallNumber(text);
    hasSteps_ = true;
  }
  if (name == "key") EndKey();
  if (name == "time") EndMeter();
  if (name == "transpose") EndTransposition();
}

// A record of a measure has room for one key and one meter: those of the first staff.
void AttributesReader::EndKey() {
  if (staff_ > 1) return;
  details_.statesKey = true;
  state_.key = key_;
  if (atBarline_ && !details_.measures.empty()) details_.measures.back().key = key_;
}

void AttributesReader::EndMeter() {
  if (staff_ > 1) return;
  details_.statesMeter = true;
  state_.meter = meter_;
  if (atBarline_ && !details_.measures.empty()) details_.measures.back().meter = meter_;
}

void AttributesReader::EndTransposition() {
  if (!hasSteps_) transposition_.steps = StepsOfSemitones(transposition_.semitones);
  transposition_.steps += 7 * octaves_;
  transposition_.semitones += 12 * octaves_;
  details_.transpositions.emplace(staff_, transposition_);
}

}  // namespace brvhost
