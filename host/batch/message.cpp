#include "host/batch/message.h"

#include <cstring>
#include <iterator>
#include <type_traits>
#include <utility>

namespace brvhost {
namespace {

// A message is its kind, which is its index among the alternatives, the size of its content, and the content: its text,
// or the bytes of its struct.
struct Head {
  std::uint32_t kind = 0;
  std::uint32_t size = 0;
};

template <class Body>
constexpr bool kIsText = !std::is_trivially_copyable_v<Body>;

template <class Plain>
std::string_view BytesOf(const Plain& plain) {
  static_assert(std::has_unique_object_representations_v<Plain>);
  return {reinterpret_cast<const char*>(&plain), sizeof(plain)};
}

template <class Body>
std::string_view ContentOf(const Body& body) {
  if constexpr (kIsText<Body>) {
    return body.text;
  } else if constexpr (std::is_empty_v<Body>) {
    return {};
  } else {
    return BytesOf(body);
  }
}

template <class Body>
std::optional<Message> BodyFrom(std::string_view content) {
  if constexpr (kIsText<Body>) {
    return Body{std::string(content)};
  } else if constexpr (std::is_empty_v<Body>) {
    return content.empty() ? std::optional<Message>(Body{}) : std::nullopt;
  } else {
    Body body;
    if (content.size() != sizeof(body)) return std::nullopt;
    std::memcpy(&body, content.data(), sizeof(body));
    return body;
  }
}

Head HeadOf(std::string_view bytes) {
  Head head;
  std::memcpy(&head, bytes.data(), sizeof(head));
  return head;
}

using Reader = std::optional<Message> (*)(std::string_view content);

// The reader of each alternative, in their order.
template <std::size_t... index>
std::optional<Message> BodyOfKind(std::size_t kind, std::string_view content, std::index_sequence<index...>) {
  constexpr Reader kReaders[] = {BodyFrom<std::variant_alternative_t<index, Message>>...};
  return kind < std::size(kReaders) ? kReaders[kind](content) : std::nullopt;
}

}  // namespace

std::string Encode(const Message& message) {
  return std::visit(
      [&message](const auto& body) {
        const std::string_view content = ContentOf(body);
        const Head head{static_cast<std::uint32_t>(message.index()), static_cast<std::uint32_t>(content.size())};
        return std::string(BytesOf(head)).append(content);
      },
      message);
}

std::optional<std::size_t> EncodedSize(std::string_view bytes) {
  if (bytes.size() < sizeof(Head)) return std::nullopt;
  return sizeof(Head) + HeadOf(bytes).size;
}

std::optional<Message> Decode(std::string_view bytes) {
  return BodyOfKind(HeadOf(bytes).kind, bytes.substr(sizeof(Head)),
                    std::make_index_sequence<std::variant_size_v<Message>>());
}

}  // namespace brvhost
