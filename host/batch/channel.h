// The line between two processes of a run.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/batch/message.h"
#include "host/process/descriptor.h"

namespace brvhost {

class Channel {
 public:
  Channel() = default;
  explicit Channel(Descriptor socket);

  int Get() const { return socket_.Get(); }

  // Sends a message, and with it descriptors, which the caller may close then. False when it did not get through: the
  // other process is gone or finds the end of the line now, or the descriptor is no longer this line, because an
  // extension closed or replaced it.
  bool Send(const Message& message, std::initializer_list<int> descriptors = {}) const;

  // Waits until a message can be sent without waiting, and takes in what arrives meanwhile: two processes of which each
  // waits for the other to read would do so for ever. `interrupts` is the number of interrupts that the caller
  // knows of: false as soon as there are others.
  [[nodiscard]] bool FillUntilWritable(int interrupts);

  // For a line to a process that runs foreign code: descriptors that it sends are closed, and a message of more than
  // `size` bytes counts as the end.
  void Distrust(std::size_t size);

  // Waits for something to arrive and takes it in; false at the end.
  [[nodiscard]] bool Fill();
  // The next whole message that was taken in, or nothing. Passes over what an extension may have sent that writes to
  // any descriptor.
  [[nodiscard]] std::optional<Message> Next();
  // Waits for the next message; nothing at the end.
  [[nodiscard]] std::optional<Message> Receive();
  // Whether more can be taken in without waiting.
  bool HasMore() const;

  // The next of the descriptors that came with messages.
  Descriptor TakeDescriptor();

 private:
  ssize_t ReadSome(std::span<char> buffer);
  // How much is worth taking in at once.
  std::size_t Wanted() const;
  void GiveUp() const;

  Descriptor socket_;
  ino_t identity_ = 0;
  std::string arrived_;
  std::size_t taken_ = 0;                // of what has arrived
  std::vector<Descriptor> descriptors_;  // none needs no memory
  std::optional<std::size_t> maxSize_;   // of messages from a process that is not trusted
};

// The two ends. Throws std::system_error.
[[nodiscard]] std::pair<Channel, Channel> ConnectedChannels();

}  // namespace brvhost
