// The line between the process that runs an extension and the one that has the terminal.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "host/batch/message.h"
#include "host/process/descriptor.h"

namespace brvhost {

class Channel {
 public:
  Channel() = default;
  explicit Channel(Descriptor socket) : socket_(std::move(socket)) {}

  int Get() const { return socket_.Get(); }

  void Send(const Message& message) const;
  void SendAnswer(bool yes) const;
  // Waits. Returns false, too, if the channel closes without an answer.
  [[nodiscard]] bool ReceiveAnswer() const;

  // Waits for something to arrive and takes it in; false at the end.
  [[nodiscard]] bool Fill();
  // The next whole message that was taken in, or nothing.
  [[nodiscard]] std::optional<Message> Next();

 private:
  Descriptor socket_;
  std::string arrived_;
};

// The two ends. Throws std::system_error.
[[nodiscard]] std::pair<Channel, Channel> ConnectedChannels();

}  // namespace brvhost
