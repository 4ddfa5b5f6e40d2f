#include "host/code/importcode.h"

#include <cstdint>
#include <string_view>

#include "host/code/macimport.h"

namespace brvhost {
namespace {

// An instruction is the high four bits of a byte, with a value in the low four.
constexpr std::uint8_t kEnd = 0x00;
constexpr std::uint8_t kSetLibrary = 0x10;
constexpr std::uint8_t kSetLargeLibrary = 0x20;
constexpr std::uint8_t kSetOrigin = 0x30;
constexpr std::uint8_t kSetName = 0x40;
constexpr std::uint8_t kSetType = 0x50;
constexpr std::uint8_t kSetAddend = 0x60;
constexpr std::uint8_t kSetPlace = 0x70;
constexpr std::uint8_t kAddToPlace = 0x80;
constexpr std::uint8_t kBind = 0x90;
constexpr std::uint8_t kBindAndAdd = 0xA0;
constexpr std::uint8_t kBindSeveral = 0xC0;  // the last of four that bind
constexpr std::uint8_t kThreaded = 0xD0;

class Reader {
 public:
  Reader(const CodeBytes& code, ImportCode kind, CodeImage& image) : cursor_(code), kind_(kind), image_(image) {}

  void AddImports() {
    while (!cursor_.IsAtEnd()) {
      const std::uint8_t byte = cursor_.Byte();
      const std::uint8_t instruction = byte & 0xF0;
      if (instruction == kEnd && kind_ == ImportCode::kAtStart) return;
      Follow(instruction, byte & 0x0F);
    }
  }

 private:
  void Follow(std::uint8_t instruction, std::uint8_t value) {
    switch (instruction) {
      case kEnd:
      case kSetType:
        return;
      case kSetLibrary:
        origin_ = value;
        return;
      case kSetLargeLibrary:
        origin_ = static_cast<std::int64_t>(cursor_.Leb());
        return;
      case kSetOrigin:
        origin_ = value == 0 ? 0 : value - 16;
        return;
      case kSetName:
        mayBeMissing_ = (value & 1) != 0;
        name_ = cursor_.Text();
        return;
      case kSetAddend:
      case kSetPlace:
      case kAddToPlace:
        cursor_.Leb();
        return;
      case kThreaded:
        if (value == 0) cursor_.Leb();
        return;
      default:
        return FollowBind(instruction);
    }
  }

  void FollowBind(std::uint8_t instruction) {
    if (instruction < kBind || instruction > kBindSeveral) throw CodeError("has imports in a form that is not known");
    if (instruction == kBindSeveral) cursor_.Leb();
    if (instruction == kBindSeveral || instruction == kBindAndAdd) cursor_.Leb();
    Bind();
  }

  // One name is bound in many places.
  void Bind() {
    if (name_.data() == boundName_.data() && origin_ == boundOrigin_) return;
    boundName_ = name_;
    boundOrigin_ = origin_;
    AddImportOfMac(name_, origin_, mayBeMissing_, image_);
  }

  CodeCursor cursor_;
  const ImportCode kind_;
  CodeImage& image_;
  std::int64_t origin_ = 0;
  std::string_view name_;
  bool mayBeMissing_ = false;
  std::string_view boundName_;
  std::int64_t boundOrigin_ = 0;
};

}  // namespace

void AddImportsOfCode(const CodeBytes& code, ImportCode kind, CodeImage& image) {
  Reader(code, kind, image).AddImports();
}

}  // namespace brvhost
