#include "host/xml/starttag.h"

namespace brvhost {
namespace {

constexpr unsigned char kNotAscii = 0x80;

bool IsBlank(unsigned char unit) { return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n'; }
bool EndsName(unsigned char unit) { return IsBlank(unit) || unit == '=' || unit == '/' || unit == '>' || unit == 0; }

}  // namespace

StartTag::StartTag(std::string_view document, CodeUnits units, std::uint64_t offset)
    : document_(document), units_(units), width_(units == CodeUnits::kBytes ? 1 : 2), start_(offset / width_) {}

std::optional<StartTag> StartTag::At(std::string_view document, CodeUnits units, std::uint64_t offset) {
  const StartTag tag(document, units, offset);
  if (tag.UnitAt(tag.start_) != '<') return std::nullopt;
  return tag;
}

ByteEdit StartTag::Add(std::string_view attribute, std::string_view value) const {
  std::string added(" ");
  added.append(attribute).append("=\"").append(value).append("\"");
  const std::uint64_t place = AfterName();
  return Edit(place, place, added);
}

ByteEdit StartTag::Change(std::string_view attribute, std::string_view value) const {
  const auto found = Find(attribute);
  return found ? Edit(found->value, found->quote, value) : Edit(start_, start_, "");
}

ByteEdit StartTag::Remove(std::string_view attribute) const {
  const auto found = Find(attribute);
  return found ? Edit(found->blanks, found->quote + 1, "") : Edit(start_, start_, "");
}

std::optional<StartTag::Attribute> StartTag::Find(std::string_view name) const {
  std::uint64_t blanks = AfterName();
  for (;;) {
    const std::uint64_t nameStart = SkipBlanks(blanks);
    std::uint64_t index = nameStart;
    while (!EndsName(UnitAt(index))) ++index;
    if (index == nameStart) return std::nullopt;
    const bool found = NameIs(nameStart, index, name);
    index = SkipBlanks(index);  // "="
    const std::uint64_t value = SkipBlanks(index + 1) + 1;
    const unsigned char quote = UnitAt(value - 1);
    for (index = value; UnitAt(index) != quote && UnitAt(index) != 0;) ++index;
    if (found) return Attribute{blanks, value, index};
    blanks = index + 1;
  }
}

std::uint64_t StartTag::AfterName() const {
  std::uint64_t index = start_ + 1;
  while (!EndsName(UnitAt(index))) ++index;
  return index;
}

std::uint64_t StartTag::SkipBlanks(std::uint64_t index) const {
  while (IsBlank(UnitAt(index))) ++index;
  return index;
}

bool StartTag::NameIs(std::uint64_t from, std::uint64_t to, std::string_view name) const {
  if (to - from != name.size()) return false;
  for (const char character : name) {
    if (UnitAt(from++) != static_cast<unsigned char>(character)) return false;
  }
  return true;
}

unsigned char StartTag::UnitAt(std::uint64_t index) const {
  const std::uint64_t offset = index * width_;
  if (offset + width_ > document_.size()) return 0;
  const auto byte = [&](std::uint64_t i) { return static_cast<unsigned char>(document_[offset + i]); };
  if (units_ == CodeUnits::kBytes) return byte(0) < kNotAscii ? byte(0) : kNotAscii;
  const unsigned char high = units_ == CodeUnits::kUtf16BigEndian ? byte(0) : byte(1);
  const unsigned char low = units_ == CodeUnits::kUtf16BigEndian ? byte(1) : byte(0);
  return high == 0 && low < kNotAscii ? low : kNotAscii;
}

std::string StartTag::Encoded(std::string_view ascii) const {
  if (units_ == CodeUnits::kBytes) return std::string(ascii);
  std::string bytes;
  for (const char character : ascii) {
    if (units_ == CodeUnits::kUtf16BigEndian) bytes += '\0';
    bytes += character;
    if (units_ == CodeUnits::kUtf16LittleEndian) bytes += '\0';
  }
  return bytes;
}

ByteEdit StartTag::Edit(std::uint64_t from, std::uint64_t to, std::string_view ascii) const {
  return {from * width_, (to - from) * width_, Encoded(ascii)};
}

}  // namespace brvhost
