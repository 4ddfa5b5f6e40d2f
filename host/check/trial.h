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

// Counts the alerts, and answers every question alike.
class TrialUser : public User {
 public:
  explicit TrialUser(bool agrees) : agrees_(agrees) {}

  void Show(const std::string&) override { ++alerts_; }
  bool Ask(const std::string&) override {
    ++alerts_;
    return agrees_;
  }
  void ShowProgress(std::int64_t, std::int64_t) override {}
  void EndProgress() override {}

  // All alerts so far, including questions.
  int Alerts() const { return alerts_; }

 private:
  const bool agrees_;
  int alerts_ = 0;
};

// An extension on the trial score.
class Trial {
 public:
  // With the whole score selected and a user who agrees, or with nothing selected and a user who declines.
  enum Kind { kSelected, kDeclined };
  explicit Trial(const std::string& bundlePath, Kind kind = kSelected);

  // Returns the extension's answer.
  int Invoke(int item, EREGION* region, EREGION* fallback) { return extension_.Invoke(item, region, fallback); }
  int InvokeOnWholeScore(int item);
  void Terminate() const { extension_.Terminate(); }

  // Whether each entry's ledger lines are hidden.
  std::vector<bool> Hidden() const;
  const OpenDocument& Document() const { return document_; }
  const Session& OpenSession() const { return session_; }
  const TrialUser& AskedUser() const { return user_; }

 private:
  Extension extension_;
  TrialUser user_;
  Score score_;
  OpenDocument document_;
  Session session_;
};

}  // namespace brvhost
