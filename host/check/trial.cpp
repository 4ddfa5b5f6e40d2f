#include "host/check/trial.h"

#include <string_view>
#include <utility>

#include "host/score/musicxml.h"
#include "host/score/region.h"

namespace brvhost {
namespace {

constexpr std::string_view kTrialScore = R"(<score-partwise version="4.0">
  <part-list>
    <score-part id="P1"><part-name>Piano</part-name><score-instrument id="I1"><instrument-name/></score-instrument></score-part>
  </part-list>
  <part id="P1">
    <measure number="1">
      <attributes><divisions>2</divisions><staves>2</staves></attributes>
      <note><grace/><pitch><step>A</step><octave>6</octave></pitch><voice>1</voice><staff>1</staff></note>
      <note><pitch><step>C</step><octave>6</octave></pitch><duration>4</duration><voice>1</voice><staff>1</staff></note>
      <note><chord/><pitch><step>E</step><octave>6</octave></pitch><duration>4</duration><voice>1</voice><staff>1</staff></note>
      <note><rest/><duration>4</duration><voice>1</voice><staff>1</staff></note>
      <backup><duration>8</duration></backup>
      <note><pitch><step>G</step><octave>3</octave></pitch><duration>8</duration><voice>2</voice><staff>1</staff></note>
      <backup><duration>8</duration></backup>
      <note print-leger="no"><pitch><step>C</step><octave>2</octave></pitch><duration>8</duration><voice>5</voice><staff>2</staff></note>
    </measure>
    <measure number="2">
      <note><rest measure="yes"/><duration>8</duration><voice>1</voice><staff>1</staff></note>
    </measure>
    <measure number="3">
      <note><pitch><step>C</step><octave>4</octave></pitch><duration>8</duration><voice>1</voice><staff>1</staff></note>
      <backup><duration>8</duration></backup>
      <note><pitch><step>C</step><octave>4</octave></pitch><duration>8</duration><voice>5</voice><staff>2</staff></note>
    </measure>
  </part>
</score-partwise>
)";

}  // namespace

Score TrialScore() { return ReadMusicXml(kTrialScore); }

Trial::Trial(const Extension& extension, Kind kind, Score score)
    : extension_(extension),
      user_(kind == kSelected),
      score_(std::move(score)),
      document_(score_),
      session_(extension_, document_, user_) {
  document_.WatchLoaders();
  if (kind == kSelected) session_.Select({WholeScore(score_), {}});
}

int Trial::InvokeOnWholeScore(int item) {
  EREGION region = WholeScore(score_);
  EREGION fallback = region;
  return Invoke(item, &region, &fallback);
}

std::vector<bool> Trial::Hidden() const {
  std::vector<bool> hidden;
  for (const ScoreEntry& entry : score_.entries) hidden.push_back(entry.hidden);
  return hidden;
}

}  // namespace brvhost
