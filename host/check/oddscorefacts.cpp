#include "host/check/oddscorefacts.h"

#include <fmt/format.h>

#include "host/check/balance.h"
#include "host/check/eachitem.h"
#include "host/check/trial.h"
#include "host/score/musicxml.h"
#include "host/score/score.h"

namespace brvhost {
namespace {

constexpr const char* kNote =
    "<note><pitch><step>C</step><octave>6</octave></pitch><duration>1</duration><staff>1</staff></note>";

// Of one part. The first measure declares the staves, and each has the same content.
Score ScoreOf(int staves, int measures, const char* content) {
  std::string document =
      "<score-partwise><part-list><score-part id=\"P1\"><part-name>Piano</part-name></score-part></part-list>"
      "<part id=\"P1\">";
  for (int measure = 1; measure <= measures; ++measure) {
    const std::string attributes =
        measure == 1 ? fmt::format("<attributes><divisions>1</divisions><staves>{}</staves></attributes>", staves) : "";
    document += fmt::format("<measure number=\"{}\">{}{}</measure>", measure, attributes, content);
  }
  return ReadMusicXml(document + "</part></score-partwise>");
}

std::string LeavesNothing(const std::string& path, const Score& score) {
  const auto check = [](Trial& trial, int item) {
    trial.InvokeOnWholeScore(item);
    const std::string frames = LeftFrames(trial, item);
    return frames.empty() ? LeftOpen(trial, item) : frames;
  };
  return ForEachItem(path, Trial::kSelected, check, score);
}

}  // namespace

std::string WorksWithoutEntries(const std::string& path) {
  for (const int measures : {2, 0}) {
    const std::string wrong = LeavesNothing(path, ScoreOf(2, measures, ""));
    if (!wrong.empty()) return fmt::format("with {} measures, {}", measures, wrong);
  }
  return "";
}

std::string WorksOnOneMeasure(const std::string& path) { return LeavesNothing(path, ScoreOf(1, 1, kNote)); }

std::string WorksOnMostMeasures(const std::string& path) {
  return LeavesNothing(path, ScoreOf(1, kMaxMeasures, kNote));
}

std::string WorksOnMostStaves(const std::string& path) { return LeavesNothing(path, ScoreOf(kMaxStaves, 2, kNote)); }

}  // namespace brvhost
