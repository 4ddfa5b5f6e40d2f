#include "host/fuzz/randomscore.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace brvhost {
namespace {

// Of so many scores one has as many measures, and one as many staves, as there can be.
constexpr int kExtreme = 4096;
constexpr int kMaxNoteElements = 12;

// How many staves, measures and layers there are, and how many places there are to one with entries.
struct Extent {
  int parts = 1;
  int stavesOfPart = 1;
  int measures = 1;
  int placesPerFrame = 1;  // 0: no frames
};

Extent RandomExtent(RandomNumbers& random) {
  const int chance = random.Below(kExtreme);
  if (chance == 0) return {1, 1, kMaxMeasures, kExtreme};
  if (chance == 1) return {1, kMaxStaves, 1, kExtreme};
  Extent extent;
  extent.parts = random.Small(2);
  extent.stavesOfPart = random.Small(2);
  extent.measures = random.OneIn(64) ? 0 : random.Small(4);
  extent.placesPerFrame = random.OneIn(32) ? 0 : random.Small(3);
  return extent;
}

// What names can have in them: marks of the host's own, and characters outside of ASCII and of the basic plane.
std::string RandomText(RandomNumbers& random, int bits) {
  constexpr const char* kPieces[] = {"a", "V",  " ",      "1",      "^",      "(",      ")",
                                     "%", "\\", "\u00e9", "\u266d", "\u266f", "\u3042", "\U0001d11e"};
  std::string text;
  for (int left = random.Small(bits) - 1; left > 0; --left) text += random.OneOf(kPieces);
  return text;
}

PartNames RandomNames(RandomNumbers& random) {
  PartNames names;
  names.name = RandomText(random, 6);
  names.abbreviation = RandomText(random, 3);
  if (random.OneIn(4)) names.nameFont = RandomText(random, 4);
  if (random.OneIn(4)) names.abbreviationFont = RandomText(random, 4);
  return names;
}

MeasureState RandomState(RandomNumbers& random) {
  MeasureState state;
  state.key.sharps = random.Between(-7, 7);
  state.key.isMinor = random.OneIn(2);
  state.key.isStandard = !random.OneIn(16);
  state.meter.beats = random.Between(0, 16);
  state.meter.beatUnit = 1 << random.Below(7);
  return state;
}

Transposition RandomTransposition(RandomNumbers& random) {
  Transposition transposition;
  transposition.steps = random.Between(-16, 16);
  // Nearly always as far as the steps are: seven of them are twelve semitones.
  transposition.semitones = transposition.steps * 12 / 7 + random.Between(-1, 1);
  if (random.OneIn(16)) transposition.semitones = random.Between(-48, 48);
  return transposition;
}

PartDetails RandomDetails(RandomNumbers& random, const Extent& extent) {
  PartDetails details;
  details.statesKey = !random.OneIn(4);
  details.statesMeter = !random.OneIn(4);
  MeasureState state = RandomState(random);
  for (int measure = 1; measure <= extent.measures; ++measure) {
    if (random.OneIn(4)) state = RandomState(random);
    details.measures.push_back(state);
    if (random.OneIn(8)) details.newPages.push_back(measure);
  }
  if (random.OneIn(3)) details.transpositions[0] = RandomTransposition(random);
  if (random.OneIn(3)) details.transpositions[random.Between(1, extent.stavesOfPart)] = RandomTransposition(random);
  return details;
}

void AddParts(RandomNumbers& random, const Extent& extent, Score& score) {
  for (int number = 1; number <= extent.parts; ++number) {
    ScorePart part;
    part.id = "P" + std::to_string(number);
    part.names = RandomNames(random);
    part.details = RandomDetails(random, extent);
    part.staves = extent.stavesOfPart;
    part.firstStaff = score.staves + 1;
    part.instruments = random.Below(4);
    score.staves += part.staves;
    score.parts.push_back(std::move(part));
  }
}

void AddGroup(RandomNumbers& random, Score& score) {
  constexpr const char* kSymbols[] = {"", "brace", "bracket", "line", "square"};
  PartGroup group;
  group.name = RandomText(random, 4);
  group.symbol = random.OneOf(kSymbols);
  group.firstPart = random.Below(static_cast<int>(score.parts.size()));
  group.lastPart = random.Between(group.firstPart, static_cast<int>(score.parts.size()) - 1);
  score.groups.push_back(std::move(group));
}

void AddLengths(RandomNumbers& random, const Extent& extent, Score& score) {
  score.measures = extent.measures;
  std::int32_t length = 0;
  for (int measure = 1; measure <= extent.measures; ++measure) {
    if (measure == 1 || random.OneIn(4)) length = random.Below(9 * kTicksPerQuarter);
    score.measureLengths.push_back(length);
  }
}

ScoreEntry RandomEntry(RandomNumbers& random) {
  ScoreEntry entry;
  entry.isRest = random.OneIn(4);
  entry.noteElements = 1;
  if (!entry.isRest && random.OneIn(4)) {
    entry.noteElements = static_cast<std::uint8_t>(random.Between(1, kMaxNoteElements));
  }
  entry.hidden = random.OneIn(3);
  return entry;
}

void AddFrame(RandomNumbers& random, ScoreFrame frame, Score& score) {
  frame.firstEntry = static_cast<std::uint32_t>(score.entries.size());
  frame.entryCount = static_cast<std::uint32_t>(random.Small(4));
  const int furthest = score.LengthOf(frame.measure) / static_cast<int>(frame.entryCount);
  std::int32_t position = 0;
  for (std::uint32_t i = 0; i < frame.entryCount; ++i) {
    ScoreEntry entry = RandomEntry(random);
    entry.position = position;
    score.entries.push_back(entry);
    if (!random.OneIn(4)) position += random.Between(0, furthest);
  }
  score.frames.push_back(frame);
}

// In a score of the greatest size, this is asked many thousand times: one number is for many places.
void AddFrames(RandomNumbers& random, const Extent& extent, Score& score) {
  if (extent.placesPerFrame == 0 || score.measures == 0) return;
  const std::int64_t places = std::int64_t{score.staves} * score.layers * score.measures;
  for (std::int64_t place = random.Below(extent.placesPerFrame); place < places;
       place += random.Between(1, 2 * extent.placesPerFrame - 1)) {
    const auto part = [place](std::int64_t before, int count) {
      return static_cast<std::uint16_t>(place / before % count);
    };
    ScoreFrame frame;
    frame.measure = static_cast<std::uint16_t>(part(1, score.measures) + 1);
    frame.layer = part(score.measures, score.layers);
    frame.staff = static_cast<std::uint16_t>(part(std::int64_t{score.measures} * score.layers, score.staves) + 1);
    AddFrame(random, frame, score);
  }
}

// Numbers from 1 to `count`. Of very many, those up to the last: that is where counting goes wrong.
NumberRun RandomRun(RandomNumbers& random, int count) {
  constexpr int kMany = 1000;
  NumberRun run{1, count};
  if (count > kMany) run.first = count - random.Below(4);
  if (count > kMany || random.OneIn(3)) return run;
  run.first = random.Between(1, count);
  run.last = random.Between(run.first, count);
  return run;
}

}  // namespace

Score RandomScore(RandomNumbers& random) {
  Score score;
  const Extent extent = RandomExtent(random);
  if (random.OneIn(8)) score.layers = random.Between(kMinLayers, 2 * kMinLayers);
  AddParts(random, extent, score);
  if (random.OneIn(4)) AddGroup(random, score);
  AddLengths(random, extent, score);
  AddFrames(random, extent, score);
  return score;
}

Block RandomBlock(RandomNumbers& random, const Score& score) {
  Block block{WholeScore(score), {}};
  if (score.measures == 0) return block;
  EREGION& region = block.region;
  const NumberRun staves = RandomRun(random, score.staves);
  const NumberRun measures = RandomRun(random, score.measures);
  region.startStaff = static_cast<std::int16_t>(staves.first);
  region.endStaff = static_cast<std::int16_t>(staves.last);
  region.startMeasure = static_cast<std::int16_t>(measures.first);
  region.endMeasure = static_cast<std::int16_t>(measures.last);
  if (random.OneIn(3)) region.startPosition = random.Between(0, score.LengthOf(measures.first));
  if (random.OneIn(3)) region.endPosition = random.Between(0, score.LengthOf(measures.last));
  if (region.startMeasure == region.endMeasure && region.endPosition < region.startPosition) {
    region.endPosition = region.startPosition;
  }
  if (random.OneIn(4)) block.layers = {RandomRun(random, score.layers)};
  return block;
}

}  // namespace brvhost
