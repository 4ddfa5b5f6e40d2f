#include "host/services/scorerecords.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstring>

namespace brvhost {
namespace {

constexpr std::uint32_t Tag(const char (&text)[5]) {
  std::uint32_t tag = 0;
  for (int i = 0; i < 4; ++i) tag = tag << 8 | static_cast<unsigned char>(text[i]);
  return tag;
}

constexpr std::int16_t kNonStandardKey = 0x4000;
constexpr std::int16_t kMinor = 0x0100;
constexpr int kMostSharps = 7;
constexpr int kFifthsOfAnOctave = 12;

// A record of a size, with 16-bit words put in at byte offsets.
class Record {
 public:
  explicit Record(std::size_t size) : bytes_(size) {}
  Record& Put(std::size_t offset, int word) {
    const auto value = static_cast<std::int16_t>(word);
    std::memcpy(bytes_.data() + offset, &value, sizeof(value));
    return *this;
  }
  EDataStore::Bytes Content() const { return bytes_; }

 private:
  EDataStore::Bytes bytes_;
};

EDataKey Key(int number, int index = 0) {
  return {static_cast<std::uint16_t>(number), static_cast<std::uint16_t>(index)};
}

// The key as it sounds, in the interface's form.
int ConcertKey(const WrittenKey& key, const Transposition& transposition) {
  if (!key.isStandard) return kNonStandardKey;
  int sharps = key.sharps + transposition.Fifths();
  while (sharps > kMostSharps) sharps -= kFifthsOfAnOctave;
  while (sharps < -kMostSharps) sharps += kFifthsOfAnOctave;
  return (sharps & 0xFF) | (key.isMinor ? kMinor : 0);
}

// The chromatic form leads from sounding to written pitch; its fields have six bits each. Wider ones take the other
// form.
int TranspositionCode(const Transposition& transposition) {
  const int steps = -transposition.steps;
  const int fifths = -transposition.Fifths();
  const auto fits = [](int value) { return value >= -32 && value < 32; };
  if (fits(steps) && fits(fifths)) return (steps & 0x3F) << 6 | (fifths & 0x3F);
  return (steps & 0xFF) | 0x2000;
}

// The first part that states something, or null.
const ScorePart* FirstWith(const Score& score, bool PartDetails::*states) {
  const auto found = std::ranges::find_if(score.parts, [&](const ScorePart& part) { return part.details.*states; });
  return found == score.parts.end() ? nullptr : &*found;
}

// What a part says of a measure; it may have fewer than the score.
const MeasureState* StateOf(const ScorePart* part, int measure) {
  if (part == nullptr || part->details.measures.size() < static_cast<std::size_t>(measure)) return nullptr;
  return &part->details.measures[static_cast<std::size_t>(measure) - 1];
}

void StoreMeasures(const Score& score, EDataStore& records) {
  const ScorePart* const keyPart = FirstWith(score, &PartDetails::statesKey);
  const ScorePart* const meterPart = FirstWith(score, &PartDetails::statesMeter);
  for (int measure = 1; measure <= score.measures; ++measure) {
    Record record(30);
    if (const MeasureState* const state = StateOf(keyPart, measure)) {
      record.Put(2, ConcertKey(state->key, keyPart->details.TranspositionOf(1)));
    }
    if (const MeasureState* const state = StateOf(meterPart, measure)) {
      record.Put(8, state->meter.beats).Put(10, state->meter.beatUnit);
    }
    records.Save(Tag("SOMS"), Key(measure), record.Content());
  }
}

std::u16string Utf16(const std::string& utf8) {
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
  return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

// Names as the interface has them: a flat sign is a tag, a font is one before the text. A caret of the text's own would
// open a tag that does not end, and is written as the modifier letter that looks like it.
std::u16string TaggedText(const std::string& name, const std::string& font) {
  std::u16string text;
  if (!font.empty()) {
    std::u16string plain = Utf16(font);
    std::erase_if(plain, [](char16_t unit) { return unit == u'(' || unit == u')' || unit == u'^'; });
    text = u"^font(" + plain + u")";
  }
  for (const char16_t unit : Utf16(name)) {
    if (unit == u'\u266D') {
      text += u"^flat()";
    } else {
      text += unit == u'^' ? u'\u02C6' : unit;
    }
  }
  return text;
}

// Texts get numbers from 1 on, the same for the text block and its raw text.
class Texts {
 public:
  explicit Texts(EDataStore& records) : records_(records) {}

  // 0 where there is no text.
  int Store(const std::string& text, const std::string& font = {}) {
    if (text.empty() || last_ == UINT16_MAX) return 0;
    const std::u16string units = TaggedText(text, font);
    EDataStore::Bytes bytes(units.size() * sizeof(char16_t));
    std::memcpy(bytes.data(), units.data(), bytes.size());
    ++last_;
    records_.Save(Tag("SOTX"), Key(last_), Record(30).Put(0, last_).Content());
    records_.Save(Tag("txbl"), Key(last_), std::move(bytes));
    return last_;
  }

 private:
  EDataStore& records_;
  int last_ = 0;
};

void StoreStaves(const Score& score, Texts& texts, EDataStore& records) {
  for (const ScorePart& part : score.parts) {
    const int name = texts.Store(part.names.name, part.names.nameFont);
    const int shortName = texts.Store(part.names.abbreviation, part.names.abbreviationFont);
    for (int staff = 1; staff <= part.staves; ++staff) {
      Record record(136);
      record.Put(20, TranspositionCode(part.details.TranspositionOf(staff))).Put(30, name).Put(32, shortName);
      records.Save(Tag("SOIS"), Key(part.firstStaff + staff - 1), record.Content());
    }
  }
}

int SymbolNumber(const std::string& symbol) {
  constexpr const char* kSymbols[] = {"brace", "bracket", "line", "square"};
  const auto* const found = std::ranges::find(kSymbols, symbol);
  return found == std::end(kSymbols) ? 0 : static_cast<int>(found - kSymbols) + 1;
}

void StoreGroups(const Score& score, Texts& texts, EDataStore& records) {
  int number = 0;
  for (const PartGroup& group : score.groups) {
    const int last = std::min(group.lastPart, static_cast<int>(score.parts.size()) - 1);
    if (group.firstPart > last) continue;
    const ScorePart& first = score.parts[static_cast<std::size_t>(group.firstPart)];
    const ScorePart& lastPart = score.parts[static_cast<std::size_t>(last)];
    Record record(36);
    record.Put(0, first.firstStaff).Put(2, lastPart.firstStaff + lastPart.staves - 1);
    record.Put(4, texts.Store(group.name)).Put(6, SymbolNumber(group.symbol));
    records.Save(Tag("SDNG"), Key(++number), record.Content());
  }
}

void StorePages(const Score& score, EDataStore& records) {
  std::vector<int> firstMeasures = {1};
  for (const ScorePart& part : score.parts) {
    firstMeasures.insert(firstMeasures.end(), part.details.newPages.begin(), part.details.newPages.end());
  }
  std::ranges::sort(firstMeasures);
  firstMeasures.erase(std::unique(firstMeasures.begin(), firstMeasures.end()), firstMeasures.end());
  int page = 0;
  for (const int measure : firstMeasures) records.Save(Tag("SOPS"), Key(++page), Record(22).Put(0, measure).Content());
}

}  // namespace

void StoreScoreRecords(const Score& score, EDataStore& records) {
  Texts texts(records);
  StoreMeasures(score, records);
  StoreStaves(score, texts, records);
  StoreGroups(score, texts, records);
  StorePages(score, records);
  // Pitches by name, with middle C as C4.
  records.Save(Tag("pfgp"), Key(0), Record(66).Put(38, 1).Content());
}

}  // namespace brvhost
