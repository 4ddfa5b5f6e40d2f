#include "stringsfile.h"

#include <cstddef>
#include <string>
#include <utility>

#include "cfstring.h"
#include "nextstep.h"
#include "propertyvalue.h"

namespace brvplatform {
namespace {

bool IsBlank(char16_t unit) {
  return (unit >= u'\t' && unit <= u'\r') || unit == u' ' || unit == 0x2028 || unit == 0x2029;
}

bool IsLineEnd(char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == 0x2028 || unit == 0x2029; }

bool IsUnquoted(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9') ||
         std::u16string_view(u"_$/:.-").find(unit) != std::u16string_view::npos;
}

int HexValue(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return -1;
}

class Parser {
 public:
  explicit Parser(std::u16string_view text) : text_(text) {}

  // The rest after the last pair is ignored.
  std::optional<Dictionary> Top() {
    if (!TakeAfterBlanks(u'{')) return Pairs();
    std::optional<Dictionary> dictionary = Pairs();
    return dictionary && TakeAfterBlanks(u'}') ? std::move(dictionary) : std::nullopt;
  }

 private:
  bool AtEnd() const { return at_ == text_.size(); }
  // The unit at this distance from here, or 0 after the end.
  char16_t Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0'; }

  bool Take(char16_t unit) {
    if (AtEnd() || Peek() != unit) return false;
    ++at_;
    return true;
  }

  bool TakeAfterBlanks(char16_t unit) {
    SkipBlanks();
    return Take(unit);
  }

  void SkipBlanks() {
    while (!AtEnd()) {
      if (IsBlank(Peek())) {
        ++at_;
      } else if (Peek() == u'/' && Peek(1) == u'/') {
        while (!AtEnd() && !IsLineEnd(Peek())) ++at_;
      } else if (Peek() == u'/' && Peek(1) == u'*') {
        const std::size_t end = text_.find(u"*/", at_ + 2);
        at_ = end == text_.npos ? text_.size() : end + 2;
      } else {
        return;
      }
    }
  }

  // Pairs, up to the first thing that is not a key. The value of a key without one is the key.
  std::optional<Dictionary> Pairs() {
    Dictionary dictionary;
    while (true) {
      std::optional<std::u16string> key = String();
      if (!key) return dictionary;
      Owned<CFTypeRef> value;
      if (TakeAfterBlanks(u'=')) {
        value = Value();
      } else {
        value = Owned<CFTypeRef>(NewString(*key));
      }
      if (!value || !TakeAfterBlanks(u';')) return std::nullopt;
      dictionary[std::move(*key)] = std::move(value);
    }
  }

  // Values may be nested to this depth: a file must not exhaust the stack.
  Owned<CFTypeRef> Value() {
    constexpr int kDeepest = 200;
    if (depth_ == kDeepest) return Owned<CFTypeRef>();
    ++depth_;
    Owned<CFTypeRef> value = ValueHere();
    --depth_;
    return value;
  }

  Owned<CFTypeRef> ValueHere() {
    SkipBlanks();
    if (Take(u'{')) return Pairs() && TakeAfterBlanks(u'}') ? NewOtherValue() : Owned<CFTypeRef>();
    if (Take(u'(')) return Array() ? NewOtherValue() : Owned<CFTypeRef>();
    if (Take(u'<')) return Data() ? NewOtherValue() : Owned<CFTypeRef>();
    std::optional<std::u16string> string = String();
    return string ? Owned<CFTypeRef>(NewString(std::move(*string))) : Owned<CFTypeRef>();
  }

  bool Array() {
    while (!TakeAfterBlanks(u')')) {
      if (!Value()) return false;
      if (!TakeAfterBlanks(u',')) return TakeAfterBlanks(u')');
    }
    return true;
  }

  bool Data() {
    while (!TakeAfterBlanks(u'>')) {
      if (HexValue(Peek()) < 0) return false;
      ++at_;
    }
    return true;
  }

  std::optional<std::u16string> String() {
    SkipBlanks();
    if (Peek() == u'"' || Peek() == u'\'') return Quoted(text_[at_++]);
    const std::size_t begin = at_;
    while (!AtEnd() && IsUnquoted(Peek())) ++at_;
    if (at_ == begin) return std::nullopt;
    return std::u16string(text_.substr(begin, at_ - begin));
  }

  std::optional<std::u16string> Quoted(char16_t quote) {
    std::u16string string;
    while (!AtEnd()) {
      const char16_t unit = text_[at_++];
      if (unit == quote) return string;
      if (unit != u'\\') {
        string.push_back(unit);
      } else if (AtEnd()) {
        return std::nullopt;
      } else {
        string.push_back(Escaped());
      }
    }
    return std::nullopt;
  }

  char16_t Escaped() {
    const char16_t unit = text_[at_++];
    switch (unit) {
      case u'a':
        return u'\a';
      case u'b':
        return u'\b';
      case u'f':
        return u'\f';
      case u'n':
        return u'\n';
      case u'r':
        return u'\r';
      case u't':
        return u'\t';
      case u'v':
        return u'\v';
      case u'U':
        return Digits(4, 16);
      default:
        break;
    }
    if (unit < u'0' || unit > u'7') return unit;
    --at_;
    return NextStepUnit(static_cast<unsigned char>(Digits(3, 8)));
  }

  char16_t Digits(int most, int base) {
    int value = 0;
    for (int i = 0; i < most && HexValue(Peek()) >= 0 && HexValue(Peek()) < base; ++i) {
      value = value * base + HexValue(text_[at_++]);
    }
    return static_cast<char16_t>(value);
  }

  std::u16string_view text_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

}  // namespace

std::optional<Dictionary> ParseOldStyle(std::u16string_view text) { return Parser(text).Top(); }

}  // namespace brvplatform
