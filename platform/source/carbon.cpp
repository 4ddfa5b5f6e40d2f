#include <Carbon/Carbon.h>
#include <brvplatform.h>

#include <array>
#include <atomic>
#include <cstring>

namespace {

constexpr unsigned kKeys = 128;

// Written by signal handlers too, hence atomic and never locked.
std::array<std::atomic<UInt8>, kKeys / 8> keysDown{};
std::atomic<unsigned long> modifierFlags{0};
std::atomic<CFStringEncoding> applicationEncoding{kCFStringEncodingMacRoman};
static_assert(std::atomic<UInt8>::is_always_lock_free && std::atomic<unsigned long>::is_always_lock_free);

}  // namespace

void GetKeys(KeyMap keys) {
  std::array<UInt8, kKeys / 8> bytes;
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = keysDown[i];
  std::memcpy(keys, bytes.data(), bytes.size());
}

CFStringEncoding GetApplicationTextEncoding() { return applicationEncoding; }

void BrvPlatformSetKeyDown(unsigned char keyCode, bool down) {
  if (keyCode >= kKeys) return;
  std::atomic<UInt8>& byte = keysDown[keyCode / 8u];
  const auto bit = static_cast<UInt8>(1u << keyCode % 8);
  if (down) {
    byte |= bit;
  } else {
    byte &= static_cast<UInt8>(~bit);
  }
}

void BrvPlatformSetModifierFlags(unsigned long flags) { modifierFlags = flags; }

unsigned long BrvPlatformModifierFlags() { return modifierFlags; }

void BrvPlatformSetApplicationTextEncoding(CFStringEncoding encoding) { applicationEncoding = encoding; }
