#include "host/calls/calltexts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cctype>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <variant>

#include "BrvEDK/Source/hostrecords.h"
#include "BrvEDK/Source/hosttypes.h"
#include "host/text/printable.h"
#include "host/text/utf8.h"

namespace brvhost {
namespace {

constexpr const char* kNull = "null";

std::string Quoted(const std::string& text) { return '"' + Printable(text) + '"'; }

std::string TagText(std::uint32_t tag) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(tag >> shift);
  for (const char character : text) {
    if (std::isprint(static_cast<unsigned char>(character)) == 0) return fmt::format("0x{:08X}", tag);
  }
  return text;
}

std::string RegionText(const EREGION& region) {
  return fmt::format("(scope {}, staves {} to {}, measures {} to {}, positions {} to {})", +region.regionScope,
                     +region.startStaff, +region.endStaff, +region.startMeasure, +region.endMeasure,
                     int{region.startPosition}, int{region.endPosition});
}

std::string KeyText(const EDataKey& key) { return fmt::format("({}, {})", +key.recordNumber, +key.recordIndex); }

bool IsUtf16(const HostFunction& function) { return std::string_view(function.name).ends_with("_UTF16"); }

// Arguments of these names are zero-terminated, in the encoding that the name of the function tells.
bool IsText(const HostParameter& parameter) {
  return parameter.kind == ValueKind::kPointer && (parameter.name == "text" || parameter.name == "name");
}

// Of a frame, by the arguments that it was loaded with.
std::string PlaceOf(const InterceptedCall& call) {
  std::vector<std::string> words;
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    const std::string& name = call.function.parameters[i].name;
    if (name == "staff" || name == "measure" || name == "layer")
      words.push_back(fmt::format("{} {}", name, call.Number(i)));
  }
  return fmt::format("{}", fmt::join(words, ", "));
}

// What the host may have written to.
bool IsOutput(ValueKind kind) {
  return kind == ValueKind::kRegion || kind == ValueKind::kRecordKey || kind == ValueKind::kSize;
}

std::string OutputText(const InterceptedCall& call, std::size_t index) {
  switch (call.function.parameters[index].kind) {
    case ValueKind::kRegion:
      return RegionText(*call.Pointer<EREGION>(index));
    case ValueKind::kRecordKey:
      return KeyText(*call.Pointer<EDataKey>(index));
    default:
      return std::to_string(*call.Pointer<std::int32_t>(index));
  }
}

struct EntryValueText {
  bool isBefore;  // the extension writes to its arguments

  std::string operator()(int number) const { return std::to_string(number); }
  std::string operator()(std::uint32_t bits) const { return fmt::format("0x{:08X}", bits); }
  std::string operator()(const void* address) const { return address == nullptr ? kNull : "pointer"; }
  std::string operator()(const std::uint32_t* word) const {
    return isBefore ? "pointer" : fmt::format("0x{:08X}", *word);
  }
  std::string operator()(const EREGION* region) const { return region == nullptr ? kNull : RegionText(*region); }
  std::string operator()(const MenuItemTexts* texts) const {
    if (isBefore) return "pointer";
    std::vector<std::string> shown;
    for (const UniChar* const text : {texts->text1, texts->text2, texts->text3}) {
      shown.push_back(Quoted(Utf8FromUnits(text, MenuItemTexts::kUnits)));
    }
    return fmt::format("{}", fmt::join(shown, ", "));
  }
};

template <class... Types>
bool IsAny(const EntryPointValue& value) {
  return (std::holds_alternative<Types>(value) || ...);
}

}  // namespace

std::string CallTexts::TextOf(const InterceptedCall& call) {
  shown_.clear();
  std::vector<std::string> named;
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    shown_.push_back(ArgumentText(call, i));
    named.push_back(call.function.parameters[i].name + ": " + shown_.back());
  }
  return fmt::format("{}({})", call.function.name, fmt::join(named, ", "));
}

std::string CallTexts::ArgumentText(const InterceptedCall& call, std::size_t index) const {
  const HostParameter& parameter = call.function.parameters[index];
  const bool isNull = call.arguments[index] == 0;
  switch (parameter.kind) {
    case ValueKind::kFrame:
      return FrameText(call.Pointer<EXTGF2005a>(index));
    case ValueKind::kRegion:  // which the host is to fill
      return isNull ? kNull : "pointer";
    case ValueKind::kRecordKey:
      return isNull ? kNull : KeyText(*call.Pointer<EDataKey>(index));
    case ValueKind::kSize:  // of a buffer: without one it is what the host is asked for
      if (isNull) return kNull;
      return index > 0 && call.arguments[index - 1] == 0 ? "pointer" : OutputText(call, index);
    case ValueKind::kPointer:
      if (isNull || !IsText(parameter)) return PointerText(call.arguments[index]);
      return Quoted(IsUtf16(call.function) ? Utf8FromUnits(call.Pointer<UniChar>(index))
                                           : Utf8FromApplicationText(call.Pointer<char>(index)));
    case ValueKind::kUInt32:
      if (parameter.name == "tag") return TagText(static_cast<std::uint32_t>(call.Number(index)));
      [[fallthrough]];
    default:
      return std::to_string(call.Number(index));
  }
}

std::string CallTexts::FrameText(const EXTGF2005a* frame) const {
  if (frame == nullptr) return kNull;
  const auto found = frames_.find(frame);
  if (found == frames_.end()) return "pointer";
  if (found->second.isFreed) return fmt::format("freed ({})", found->second.place);
  return fmt::format("({}, entries {})", found->second.place, +frame->entryCount);
}

std::string CallTexts::PointerText(Register address) const {
  if (address == 0) return kNull;
  const auto found = handles_.find(address);
  return found == handles_.end() ? "pointer" : fmt::format("handle {}", found->second);
}

std::string CallTexts::OutcomeOf(const InterceptedCall& call, Register result) {
  Learn(call, result);
  std::string text = call.function.result == ValueKind::kNothing ? "" : " = " + ResultText(call, result);
  if (result == 0) return text;
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    const HostParameter& parameter = call.function.parameters[i];
    if (!IsOutput(parameter.kind) || call.arguments[i] == 0) continue;
    const std::string now = OutputText(call, i);
    if (now != shown_.at(i)) text += fmt::format(", {}: {}", parameter.name, now);
  }
  return text;
}

std::string CallTexts::ResultText(const InterceptedCall& call, Register result) const {
  const ValueKind kind = call.function.result;
  if (kind == ValueKind::kFrame) return FrameText(reinterpret_cast<const EXTGF2005a*>(result));
  if (kind == ValueKind::kPointer) return PointerText(result);
  return std::to_string(NumberIn(result, kind));
}

void CallTexts::Learn(const InterceptedCall& call, Register result) {
  if (result == 0) return;
  const ValueKind kind = call.function.result;
  if (kind == ValueKind::kFrame) frames_[reinterpret_cast<const EXTGF2005a*>(result)] = {PlaceOf(call)};
  if (kind == ValueKind::kPointer) handles_.emplace(result, handles_.size() + 1);
  if (call.function.name != std::string_view("BX_FreeTGF")) return;
  const auto freed = frames_.find(call.Pointer<EXTGF2005a>(0));
  if (freed != frames_.end()) freed->second.isFreed = true;
}

std::string TextOfEntry(const char* entryPoint, std::span<const EntryPointArgument> arguments) {
  std::vector<std::string> named;
  for (const EntryPointArgument& argument : arguments) {
    named.push_back(fmt::format("{}: {}", argument.name, std::visit(EntryValueText{true}, argument.value)));
  }
  return fmt::format("{}({})", entryPoint, fmt::join(named, ", "));
}

std::string OutcomeOfEntry(std::span<const EntryPointArgument> arguments, const EntryPointValue* result) {
  std::string text = result == nullptr ? "" : " = " + std::visit(EntryValueText{false}, *result);
  const bool hasFailed = result != nullptr && *result == EntryPointValue(0);
  if (hasFailed) return text;
  for (const EntryPointArgument& argument : arguments) {
    if (!IsAny<const std::uint32_t*, const MenuItemTexts*>(argument.value)) continue;
    text += fmt::format(", {}: {}", argument.name, std::visit(EntryValueText{false}, argument.value));
  }
  return text;
}

}  // namespace brvhost
