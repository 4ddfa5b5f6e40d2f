#include "host/score/musicxmlelements.h"

#include "host/score/score.h"
#include "host/text/blanks.h"
#include "host/text/inputerror.h"
#include "host/text/printable.h"
#include "host/xml/xmlreader.h"

namespace brvhost {
namespace {

[[noreturn]] void ThrowBadNumber(const char* what, const std::string& text) {
  throw InputError(std::string(what).append(" is \"").append(Excerpt(WithoutBlanks(text))).append("\""));
}

}  // namespace

bool IsRootOfScore(const std::string& name) { return name == "score-partwise" || name == "score-timewise"; }

Child ChildNamed(const char* name) {
  if (SameName(name, "note")) return Child::kNote;
  if (SameName(name, "backup")) return Child::kBackup;
  if (SameName(name, "forward")) return Child::kForward;
  if (SameName(name, "attributes")) return Child::kAttributes;
  return Child::kOther;
}

Leaf LeafNamed(Child parent, const char* name) {
  switch (parent) {
    case Child::kNote:
      if (SameName(name, "voice")) return Leaf::kVoice;
      if (SameName(name, "staff")) return Leaf::kStaff;
      [[fallthrough]];
    case Child::kBackup:
    case Child::kForward:
      return SameName(name, "duration") ? Leaf::kDuration : Leaf::kNone;
    case Child::kAttributes:
      if (SameName(name, "divisions")) return Leaf::kDivisions;
      return SameName(name, "staves") ? Leaf::kStaves : Leaf::kNone;
    case Child::kOther:
      break;
  }
  return Leaf::kNone;
}

Fraction PositiveNumber(const char* what, const std::string& text) {
  const auto number = ParseDecimal(text);
  if (!number || number->numerator <= 0) ThrowBadNumber(what, text);
  return *number;
}

Fraction NumberFrom0(const char* what, const std::string& text) {
  const auto number = ParseDecimal(text);
  if (!number || number->IsNegative()) ThrowBadNumber(what, text);
  return *number;
}

int StaffNumber(const char* what, const std::string& text, int min) {
  const auto number = ParseDecimal(text);
  if (!number || number->denominator != 1 || number->numerator < min) ThrowBadNumber(what, text);
  if (number->numerator > kMaxStaves) throw InputError("more than 32767 staves");
  return static_cast<int>(number->numerator);
}

}  // namespace brvhost
