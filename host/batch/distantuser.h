// The user, at the other end of the channel.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "host/batch/channel.h"
#include "host/services/user.h"

namespace brvhost {

class DistantUser : public User {
 public:
  // With `agrees` every question is answered by yes, unseen by the user.
  DistantUser(Channel& channel, bool agrees) : channel_(channel), agrees_(agrees) {}

  void Show(const std::string& text) override { channel_.Send(AlertMessage{text}); }

  // No, too, where the channel closes without an answer.
  bool Ask(const std::string& question) override {
    if (agrees_) return true;
    channel_.Send(QuestionMessage{question});
    const auto answer = channel_.Receive();
    return answer && std::holds_alternative<AnswerMessage>(*answer) && std::get<AnswerMessage>(*answer).yes != 0;
  }

  void ShowProgress(std::int64_t done, std::int64_t total) override { channel_.Send(ProgressMessage{done, total}); }

  void EndProgress() override { channel_.Send(ProgressEndMessage{}); }

 private:
  Channel& channel_;
  const bool agrees_;
};

}  // namespace brvhost
