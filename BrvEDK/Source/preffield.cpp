#include "preffield.h"

#include <cstdint>
#include <cstring>

namespace {

template <class T>
void Put(void* data, const PrefFieldMap& field, T value) {
  std::memcpy(static_cast<char*>(data) + field.fieldOffset, &value, sizeof(value));
}

template <class T>
T Get(const void* data, const PrefFieldMap& field) {
  T value;
  std::memcpy(&value, static_cast<const char*>(data) + field.fieldOffset, sizeof(value));
  return value;
}

std::uint32_t Joined(std::uint16_t high, std::uint16_t low) { return static_cast<std::uint32_t>(high) << 16 | low; }

// The value of a 32-bit field, or 0 if the conversion is not one for 32 bits.
std::uint32_t LongOf(const PrefFieldMap& field, const LegacyRecord& legacy) {
  const std::uint16_t* const words = legacy.words + field.wordIndex;
  if (field.conversion == kPrefHighWordFirst) return Joined(words[0], words[1]);
  if (field.conversion == kPrefLowWordFirst) return Joined(words[1], words[0]);
  return 0;
}

std::uint16_t WordOf(const PrefFieldMap& field, const LegacyRecord& legacy) {
  const std::uint16_t word = legacy.words[field.wordIndex];
  if (field.conversion == kPrefInverted) return word == 0;
  if (field.conversion == kPrefByte) return word & 0xFF;
  return word;
}

bool StoreLong(const PrefFieldMap& field, std::uint32_t value, LegacyRecord& legacy) {
  if (value == LongOf(field, legacy)) return false;
  std::uint16_t* const words = legacy.words + field.wordIndex;
  const auto high = static_cast<std::uint16_t>(value >> 16);
  const auto low = static_cast<std::uint16_t>(value);
  words[0] = field.conversion == kPrefHighWordFirst ? high : low;
  words[1] = field.conversion == kPrefHighWordFirst ? low : high;
  return true;
}

// Compatibility: a byte is loaded without its sign and stored with it. Hosts keep these settings as small signed
// numbers and expect them back like that. From 128 up a byte therefore always counts as changed.
std::uint16_t StoredValue(const PrefFieldMap& field, std::uint16_t value) {
  return field.conversion == kPrefByte ? static_cast<std::uint16_t>(static_cast<std::int8_t>(value)) : value;
}

bool StoreWord(const PrefFieldMap& field, std::uint16_t value, LegacyRecord& legacy) {
  const std::uint16_t stored = StoredValue(field, value);
  if (stored == WordOf(field, legacy)) return false;
  legacy.words[field.wordIndex] = field.conversion == kPrefInverted ? stored == 0 : stored;
  return true;
}

}  // namespace

void LoadPrefField(const PrefFieldMap& field, const LegacyRecord& legacy, void* data) {
  if (field.fieldSize == sizeof(std::uint32_t)) return Put(data, field, LongOf(field, legacy));
  Put(data, field, WordOf(field, legacy));
}

bool StorePrefField(const PrefFieldMap& field, const void* data, LegacyRecord& legacy) {
  if (field.fieldSize == sizeof(std::uint32_t)) return StoreLong(field, Get<std::uint32_t>(data, field), legacy);
  return StoreWord(field, Get<std::uint16_t>(data, field), legacy);
}
