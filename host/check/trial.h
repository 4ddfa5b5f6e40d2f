// A small score and a patient user, to try an extension with.
#pragma once

#include <string>
#include <vector>

#include "host/bundle/extension.h"
#include "host/score/region.h"
#include "host/services/session.h"

namespace brvhost {

// Two staves and three measures, with chords, rests, a grace note and several voices.
Score TrialScore();

// Remembers what it is told, and answers every question alike.
class TrialUser : public User {
 public:
  explicit TrialUser(bool agrees) : agrees_(agrees) {}

  void Tell(const std::string&) override { ++told; }
  bool Ask(const std::string&) override {
    ++asked;
    return agrees_;
  }
  void ShowProgress(std::int64_t, std::int64_t) override {}
  void EndProgress() override {}

  int told = 0;
  int asked = 0;

 private:
  const bool agrees_;
};

// An extension on the trial score.
class Trial {
 public:
  explicit Trial(const std::string& bundlePath, bool agrees = true)
      : extension(bundlePath), user(agrees), score(TrialScore()), document(score), session(extension, document, user) {}

  // With the whole score selected. Returns the extension's answer.
  int Invoke(int item) {
    EREGION region = *(session.region = WholeScore(score));
    EREGION fallback = region;
    return extension.Invoke(item, &region, &fallback);
  }
  std::vector<bool> Hidden() const;

  Extension extension;
  TrialUser user;
  Score score;
  OpenDocument document;
  Session session;
};

}  // namespace brvhost
