// A user who answers at random.
#pragma once

#include <cstdint>
#include <string>

#include "host/fuzz/randomnumbers.h"
#include "host/services/user.h"

namespace brvhost {

class RandomUser : public User {
 public:
  explicit RandomUser(RandomNumbers random) : random_(random), answers_(static_cast<Answers>(random_.Below(3))) {}

  void Show(const std::string&) override { ++alerts_; }
  bool Ask(const std::string&) override {
    ++alerts_;
    return answers_ == kAgrees || (answers_ == kEither && random_.OneIn(2));
  }
  void ShowProgress(std::int64_t, std::int64_t) override {}
  void EndProgress() override {}

  // Every question.
  bool Declines() const { return answers_ == kDeclines; }
  // "the user agrees" or the like.
  const char* Description() const {
    if (answers_ == kEither) return "the user agrees to some questions";
    return Declines() ? "the user declines" : "the user agrees";
  }
  // Including questions.
  int Alerts() const { return alerts_; }

 private:
  enum Answers { kAgrees, kDeclines, kEither };

  RandomNumbers random_;
  const Answers answers_;
  int alerts_ = 0;
};

}  // namespace brvhost
