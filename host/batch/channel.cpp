#include "host/batch/channel.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <span>
#include <string_view>
#include <system_error>

#include "host/process/interrupt.h"
#include "host/process/socketpair.h"

namespace brvhost {
namespace {

constexpr std::size_t kMaxDescriptors = 2;  // with one message

// Most messages are small, and of a large one the size is known once its start is there.
constexpr std::size_t kReadSize = std::size_t{1} << 12;
constexpr std::size_t kMaxReadSize = std::size_t{1} << 20;

ino_t IdentityOf(int descriptor) {
  struct stat status;
  return fstat(descriptor, &status) == 0 ? status.st_ino : 0;
}

// The memory of control data is that of its head, which aligns it.
union Control {
  cmsghdr head;
  char bytes[CMSG_SPACE(kMaxDescriptors * sizeof(int))];
};

ssize_t SendSome(int socket, std::string_view bytes, std::span<const int> descriptors) {
  iovec content = {const_cast<char*>(bytes.data()), bytes.size()};
  msghdr message = {};
  message.msg_iov = &content;
  message.msg_iovlen = 1;
  Control control = {};
  if (!descriptors.empty()) {
    const std::size_t size = descriptors.size_bytes();
    message.msg_control = &control;
    message.msg_controllen = CMSG_SPACE(size);
    cmsghdr* const head = CMSG_FIRSTHDR(&message);
    head->cmsg_level = SOL_SOCKET;
    head->cmsg_type = SCM_RIGHTS;
    head->cmsg_len = CMSG_LEN(size);
    std::memcpy(CMSG_DATA(head), descriptors.data(), size);
  }
  return sendmsg(socket, &message, MSG_NOSIGNAL);
}

}  // namespace

Channel::Channel(Descriptor socket) : socket_(std::move(socket)), identity_(IdentityOf(socket_.Get())) {
  if (identity_ == 0) socket_ = {};
}

// The other process may wait for what does not come: it finds the end instead, and ends itself.
void Channel::GiveUp() const { shutdown(socket_.Get(), SHUT_WR); }

bool Channel::Send(const Message& message, std::initializer_list<int> descriptors) const {
  if (const ino_t identity = IdentityOf(socket_.Get()); identity != identity_) {
    if (identity == 0) GiveUp();
    return false;
  }
  const std::string encoded = Encode(message);
  std::span<const int> unsent(descriptors.begin(), descriptors.size());
  for (std::string_view rest = encoded; !rest.empty();) {
    const ssize_t count = SendSome(socket_.Get(), rest, unsent);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      GiveUp();
      return false;
    }
    rest.remove_prefix(static_cast<std::size_t>(count));
    unsent = {};
  }
  return true;
}

bool Channel::FillUntilWritable(int interrupts) {
  while (socket_.Get() >= 0 && InterruptCount() == interrupts) {
    pollfd waiting = {socket_.Get(), POLLIN | POLLOUT, 0};
    if (poll(&waiting, 1, kMaxWaitMs) <= 0) continue;
    if ((waiting.revents & POLLOUT) != 0 || !Fill()) return true;  // Send finds the end, too
  }
  return false;
}

ssize_t Channel::ReadSome(std::span<char> buffer) {
  iovec content = {buffer.data(), buffer.size()};
  Control control = {};
  msghdr message = {};
  message.msg_iov = &content;
  message.msg_iovlen = 1;
  message.msg_control = &control;
  message.msg_controllen = sizeof(control);
  ssize_t count;
  while ((count = recvmsg(socket_.Get(), &message, 0)) < 0 && errno == EINTR) continue;
  if (count < 0) return count;
  for (cmsghdr* head = CMSG_FIRSTHDR(&message); head != nullptr; head = CMSG_NXTHDR(&message, head)) {
    if (head->cmsg_level != SOL_SOCKET || head->cmsg_type != SCM_RIGHTS) continue;
    for (std::size_t offset = 0; offset + sizeof(int) <= head->cmsg_len - CMSG_LEN(0); offset += sizeof(int)) {
      int descriptor;
      std::memcpy(&descriptor, CMSG_DATA(head) + offset, sizeof(descriptor));
      fcntl(descriptor, F_SETFD, FD_CLOEXEC);
      descriptors_.emplace_back(descriptor);
    }
  }
  return count;
}

void Channel::Distrust(std::size_t size) { maxSize_ = size; }

std::size_t Channel::Wanted() const {
  const std::size_t size = EncodedSize(arrived_).value_or(0);
  return std::clamp(size - std::min(size, arrived_.size()), kReadSize, kMaxReadSize);
}

bool Channel::Fill() {
  arrived_.erase(0, std::exchange(taken_, 0));
  const std::size_t before = arrived_.size();
  arrived_.resize(before + Wanted());
  const ssize_t count = ReadSome(std::span(arrived_).subspan(before));
  if (count < 0) GiveUp();
  arrived_.resize(before + static_cast<std::size_t>(count > 0 ? count : 0));
  if (!maxSize_) return count > 0;
  descriptors_.clear();
  return count > 0 && arrived_.size() <= *maxSize_ + kReadSize;
}

std::optional<Message> Channel::Next() {
  for (;;) {
    const std::string_view rest = std::string_view(arrived_).substr(taken_);
    const auto size = EncodedSize(rest);
    if (!size || *size > rest.size()) return std::nullopt;
    taken_ += *size;
    if (auto message = Decode(rest.substr(0, *size))) return message;
  }
}

std::optional<Message> Channel::Receive() {
  for (;;) {
    if (auto message = Next()) return message;
    if (!Fill()) return std::nullopt;
  }
}

bool Channel::HasMore() const {
  pollfd waiting = {socket_.Get(), POLLIN, 0};
  return poll(&waiting, 1, 0) > 0;
}

Descriptor Channel::TakeDescriptor() {
  if (descriptors_.empty()) return {};
  Descriptor first = std::move(descriptors_.front());
  descriptors_.erase(descriptors_.begin());
  return first;
}

std::pair<Channel, Channel> ConnectedChannels() {
  std::pair<Descriptor, Descriptor> ends = SocketPair();
  Channel here(std::move(ends.first));
  Channel there(std::move(ends.second));
  if (here.Get() < 0 || there.Get() < 0) throw std::system_error(errno, std::generic_category(), "fstat");
  return {std::move(here), std::move(there)};
}

}  // namespace brvhost
