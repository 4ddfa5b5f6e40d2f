#include "host/check/guarded.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace brvhost {
namespace {

constexpr std::uint8_t kPattern = 0xA5;
constexpr std::size_t kFence = 256;
constexpr std::size_t kSize = sizeof(MenuItemTexts) + kFence;
constexpr std::size_t kPage = 4096;

}  // namespace

GuardedTexts::GuardedTexts() : bytes_(new std::uint8_t[kSize]) { std::fill_n(bytes_.get(), kSize, kPattern); }

bool GuardedTexts::HasPattern(std::size_t from) const {
  return std::all_of(bytes_.get() + from, bytes_.get() + kSize, [](std::uint8_t byte) { return byte == kPattern; });
}

InaccessiblePage::InaccessiblePage() : address_(mmap(nullptr, kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
  if (address_ == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
}

InaccessiblePage::~InaccessiblePage() { munmap(address_, kPage); }

}  // namespace brvhost
