#include "host/score/attributesreader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "host/score/fraction.h"
#include "host/text/blanks.h"
#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

constexpr int kMaxNumber = 1000;  // more than music has
constexpr int kMaxBeats = 32767;  // of a meter, and units of a whole note: the most that a record holds

// A number as far as it makes sense; 0 for anything else.
int SmallNumber(std::string_view text) {
  const auto number = ParseDecimal(text);
  if (!number || number->denominator != 1 || std::abs(number->numerator) > kMaxNumber) return 0;
  return static_cast<int>(number->numerator);
}

// "3+2" is 5; 0 for more than a meter can have.
int SumOf(std::string_view text) {
  std::int64_t sum = 0;
  while (!text.empty()) {
    const std::size_t plus = std::min(text.find('+'), text.size());
    sum += SmallNumber(text.substr(0, plus));
    text.remove_prefix(std::min(plus + 1, text.size()));
  }
  return sum < 0 || sum > kMaxBeats ? 0 : static_cast<int>(sum);
}

// 2/4 and 3/8 are 7/8. Null for more beats, or smaller ones, than a meter can have.
std::optional<Meter> Sum(const Meter& a, const Meter& b) {
  if (a.beats == 0) return b;
  const std::int64_t unit = std::lcm<std::int64_t>(a.beatUnit, b.beatUnit);
  const std::int64_t beats = a.beats * (unit / a.beatUnit) + b.beats * (unit / b.beatUnit);
  if (unit > kMaxBeats || beats > kMaxBeats) return std::nullopt;
  return Meter{static_cast<int>(beats), static_cast<int>(unit)};
}

// The steps of an interval of that many semitones when the score does not state them.
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
  meter_ = Meter();
  transposition_ = {};
  hasSteps_ = false;
  octaves_ = 0;
}

void AttributesReader::EndElement(std::string_view text) {
  const std::string name = std::move(open_.back());
  open_.pop_back();
  if (open_.size() > 1) return;  // another meter that this one may be counted in
  text = WithoutBlanks(text);
  if (name == "fifths") key_.sharps = SmallNumber(text);
  if (name == "mode") key_.isMinor = text == "minor";
  if (name == "key-step") key_.isStandard = false;
  if (name == "beats") beats_ = SumOf(text);
  if (name == "beat-type" && SmallNumber(text) > 0 && meter_) meter_ = Sum(*meter_, {beats_, SmallNumber(text)});
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

// The record of a measure holds one key and one meter: those of the first staff.
void AttributesReader::EndKey() {
  if (staff_ > 1) return;
  details_.statesKey = true;
  state_.key = key_;
  if (atBarline_ && !details_.measures.empty()) details_.measures.back().key = key_;
}

void AttributesReader::EndMeter() {
  if (staff_ > 1) return;
  details_.statesMeter = true;
  state_.meter = meter_.value_or(Meter());
  if (atBarline_ && !details_.measures.empty()) details_.measures.back().meter = state_.meter;
}

void AttributesReader::EndTransposition() {
  if (!hasSteps_) transposition_.steps = StepsOfSemitones(transposition_.semitones);
  transposition_.steps += 7 * octaves_;
  transposition_.semitones += 12 * octaves_;
  details_.transpositions.emplace(staff_, transposition_);
}

}  // namespace brvhost
