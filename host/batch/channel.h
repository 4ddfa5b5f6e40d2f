// The line between the process that runs an extension and the one that has the terminal.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/files/descriptor.h"

namespace brvhost {

enum class MessageKind : char {
  kTell,         // text for the user
  kAsk,          // a question; the answer is one byte
  kWarn,         // text about the score
  kProgress,     // "done total"
  kProgressEnd,  // the display is to go
  kFailInput,    // why the score cannot be used; the last message
  kFailOutput,   // why the result could not be written; the last message
  kDone,         // "changed-entries entries"; the last message
};

struct Message {
  MessageKind kind;
  std::string text;
};

class Channel {
 public:
  Channel() = default;
  explicit Channel(Descriptor socket) : socket_(std::move(socket)) {}

  int Get() const { return socket_.Get(); }

  void Send(MessageKind kind, std::string_view text = {}) const;
  void SendAnswer(bool yes) const;
  // Waits; no answer is no.
  bool ReceiveAnswer() const;

  // Takes in what has arrived, waiting for something; false at the end.
  bool Fill();
  // The next whole message that was taken in.
  std::optional<Message> Next();

 private:
  Descriptor socket_;
  std::string arrived_;
};

// The two ends. Throws std::system_error.
std::pair<Channel, Channel> ConnectedChannels();

}  // namespace brvhost
