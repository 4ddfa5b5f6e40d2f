#include "host/score/partbuilder.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

// Durations and divisions may both have decimals.
std::optional<Fraction> Quotient(const Fraction& duration, const Fraction& divisions) {
  if (duration.denominator == 1 && divisions.denominator == 1) return Fraction{duration.numerator, divisions.numerator};
  return Fraction::Of(Wide{duration.numerator} * divisions.denominator,
                      Wide{duration.denominator} * divisions.numerator);
}

[[noreturn]] void ThrowTooLong() { throw InputError("the durations of this measure add up to too large a number"); }

}  // namespace

void PartBuilder::BeginMeasure() {
  measureLengths_.push_back(0);
  if (Measures() > kMaxMeasures) throw InputError("more than 32767 measures");
  clock_ = {};
  hasChordRoot_ = false;
}

void PartBuilder::EndMeasure(Score& score) {
  KeepLength();
  measure_.Finish(Measures(), score, frames_);
}

void PartBuilder::SetDivisions(const Fraction& divisions) { divisions_ = divisions; }

void PartBuilder::SetStaves(int staves) { staves_ = std::max(staves_, staves); }

void PartBuilder::Advance(const Fraction& duration) {
  const auto quarters = Quotient(duration, divisions_);
  const auto sum = quarters ? clock_.Plus(*quarters) : std::nullopt;
  if (!sum) ThrowTooLong();
  clock_ = *sum;
}

bool PartBuilder::GoBack(const Fraction& duration) {
  KeepLength();
  Advance(duration.Negated());
  hasChordRoot_ = false;
  if (!clock_.IsNegative()) return true;
  clock_ = {};
  return false;
}

void PartBuilder::AddNote(NoteElement element, const std::string& voice, const Fraction& duration) {
  element.position = Position();
  element.layer = LayerOf(element.staff, voice);
  measure_.AddNote(element);
  hasChordRoot_ = true;
  chordPosition_ = element.position;
  chordVoice_ = voice;
  Advance(duration);
}

void PartBuilder::AddToChord(NoteElement element, const std::string& voice, const Fraction& duration) {
  if (!hasChordRoot_) return AddNote(element, voice, duration);
  element.position = chordPosition_;
  element.layer = LayerOf(element.staff, chordVoice_);
  measure_.AddToChord(element);
}

int PartBuilder::Layers() const {
  std::size_t most = 0;
  for (const auto& [number, staff] : staffLayers_) most = std::max(most, staff.layers.size());
  return static_cast<int>(most);
}

std::vector<std::vector<std::string>> PartBuilder::Voices() const {
  std::vector<std::vector<std::string>> voices(static_cast<std::size_t>(staves_));
  for (const auto& [number, staff] : staffLayers_) {
    std::vector<std::string>& byLayer = voices[static_cast<std::size_t>(number) - 1];
    byLayer.resize(staff.layers.size());
    for (const auto& [voice, layer] : staff.layers) byLayer[static_cast<std::size_t>(layer)] = voice;
  }
  return voices;
}

int PartBuilder::LayerOf(int staff, const std::string& voice) {
  Staff& layers = staffLayers_[staff];
  if (layers.lastLayer >= 0 && layers.lastVoice == voice) return layers.lastLayer;
  layers.lastLayer = layers.layers.emplace(voice, static_cast<int>(layers.layers.size())).first->second;
  layers.lastVoice = voice;
  if (layers.lastLayer >= kMaxLayers) throw InputError("more than 32767 voices on a staff");
  return layers.lastLayer;
}

// To be called before the clock goes back, and at the end. A length too large for a position is as good as the
// greatest.
void PartBuilder::KeepLength() {
  std::int32_t& length = measureLengths_.back();
  length = std::max(length, clock_.Rounded(kTicksPerQuarter).value_or(INT32_MAX));
}

std::int32_t PartBuilder::Position() const {
  const auto position = clock_.Rounded(kTicksPerQuarter);
  if (!position) ThrowTooLong();
  return *position;
}

}  // namespace brvhost
