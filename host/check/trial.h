// A small score and a patient user, to try an extension with.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/bundle/extension.h"
#include "host/score/score.h"
#include "host/services/document.h"
#include "host/services/session.h"
#include "host/services/user.h"

namespace brvhost {

// Two staves and three measures, with chords, rests, a grace note and several voices.
Score TrialScore();

// Keeps the alerts, and answers every question alike.
class TrialUser : public User {
 public:
  explicit TrialUser(bool agrees) : agrees_(agrees) {}

  void Show(const std::string& text) override { alerts_.push_back(text); }
  bool Ask(const std::string& question) override {
    alerts_.push_back(question);
    return agrees_;
  }
  void ShowProgress(std::int64_t, std::int64_t) override {}
  void EndProgress() override {}

  // The texts of all alerts so far, including questions.
  const std::vector<std::string>& Alerts() const { return alerts_; }

 private:
  const bool agrees_;
  std::vector<std::string> alerts_;
};

// An extension on a score, the trial score by default. One at a time.
class Trial {
 public:
  // With the whole score selected and a user who agrees, or with nothing selected and a user who declines.
  enum Kind { kSelected, kDeclined };
  // The extension outlives it.
  explicit Trial(const Extension& extension, Kind kind = kSelected, Score score = TrialScore());

  // Returns the extension's answer.
  int Invoke(int item, EREGION* region, EREGION* fallback) { return extension_.Invoke(item, region, fallback); }
  int InvokeOnWholeScore(int item);

  // Whether each entry's ledger lines are hidden.
  std::vector<bool> Hidden() const;
  const OpenDocument& Document() const { return document_; }
  const Session& OpenSession() const { return session_; }
  const TrialUser& AskedUser() const { return user_; }

 private:
  const Extension& extension_;
  TrialUser user_;
  Score score_;
  OpenDocument document_;
  Session session_;
};

}  // namespace brvhost
