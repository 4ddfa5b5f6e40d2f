#include "host/batch/channel.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>

namespace brvhost {
namespace {

constexpr std::string_view kYes("\1", 1);
constexpr std::string_view kNo("\0", 1);

void WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return;  // the other process is gone, which must not end this one too
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

ssize_t ReadSome(int descriptor, char* buffer, std::size_t size) {
  for (;;) {
    const ssize_t count = read(descriptor, buffer, size);
    if (count >= 0 || errno != EINTR) return count;
  }
}

}  // namespace

void Channel::Send(const Message& message) const { WriteAll(socket_.Get(), Encode(message)); }

void Channel::SendAnswer(bool yes) const { WriteAll(socket_.Get(), yes ? kYes : kNo); }

bool Channel::ReceiveAnswer() const {
  char answer;
  return ReadSome(socket_.Get(), &answer, 1) == 1 && answer == kYes[0];
}

bool Channel::Fill() {
  char buffer[4096];
  const ssize_t count = ReadSome(socket_.Get(), buffer, sizeof(buffer));
  if (count <= 0) return false;
  arrived_.append(buffer, static_cast<std::size_t>(count));
  return true;
}

// Passes over what an extension may have sent that writes to any descriptor.
std::optional<Message> Channel::Next() {
  while (const auto size = EncodedSize(arrived_)) {
    auto message = Decode(std::string_view(arrived_).substr(0, *size));
    arrived_.erase(0, *size);
    if (message) return message;
  }
  return std::nullopt;
}

std::pair<Channel, Channel> ConnectedChannels() {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) {
    throw std::system_error(errno, std::generic_category(), "socketpair");
  }
  // Programs that an extension starts have no part in it.
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  return {Channel(Descriptor(ends[0])), Channel(Descriptor(ends[1]))};
}

}  // namespace brvhost
