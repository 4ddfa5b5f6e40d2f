#include "host/batch/channel.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace brvhost {
namespace {

// A message is its kind, the length of its text, and the text.
constexpr std::size_t kHead = 1 + sizeof(std::uint32_t);

void WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return;  // whoever listened is gone, which must not end this process too
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

ssize_t ReadSome(int descriptor, char* room, std::size_t size) {
  for (;;) {
    const ssize_t count = read(descriptor, room, size);
    if (count >= 0 || errno != EINTR) return count;
  }
}

}  // namespace

void Channel::Send(MessageKind kind, std::string_view text) const {
  std::string bytes(1, static_cast<char>(kind));
  const auto length = static_cast<std::uint32_t>(text.size());
  bytes.append(reinterpret_cast<const char*>(&length), sizeof length).append(text);
  WriteAll(socket_.Get(), bytes);
}

void Channel::SendAnswer(bool yes) const { WriteAll(socket_.Get(), yes ? "y" : "n"); }

bool Channel::ReceiveAnswer() const {
  char answer = 'n';
  return ReadSome(socket_.Get(), &answer, 1) == 1 && answer == 'y';
}

bool Channel::Fill() {
  char room[4096];
  const ssize_t count = ReadSome(socket_.Get(), room, sizeof room);
  if (count <= 0) return false;
  arrived_.append(room, static_cast<std::size_t>(count));
  return true;
}

std::optional<Message> Channel::Next() {
  if (arrived_.size() < kHead) return std::nullopt;
  std::uint32_t length;
  std::memcpy(&length, arrived_.data() + 1, sizeof length);
  if (arrived_.size() - kHead < length) return std::nullopt;
  Message message{static_cast<MessageKind>(arrived_[0]), arrived_.substr(kHead, length)};
  arrived_.erase(0, kHead + length);
  return message;
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
