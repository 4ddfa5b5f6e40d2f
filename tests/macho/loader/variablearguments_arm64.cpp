#include "variablearguments_arm64.h"

#include <cstring>

namespace macho {
namespace {

// A std::va_list as the convention of Linux lays it out.
struct ListRecord {
  const void* stack;
  const void* generalRegistersEnd;
  const void* vectorRegistersEnd;
  int generalRegistersOffset;  // 0: none is left
  int vectorRegistersOffset;
};
static_assert(sizeof(ListRecord) == sizeof(std::va_list));

thread_local const ArgumentsOnTheirWay* innermost = nullptr;

}  // namespace

std::va_list ArgumentsOnStack(const void* first) {
  const ListRecord record = {first, nullptr, nullptr, 0, 0};
  std::va_list list;
  std::memcpy(&list, &record, sizeof(list));
  return list;
}

ArgumentsOnTheirWay::ArgumentsOnTheirWay(const std::va_list& list) : list_(list), outer_(innermost) {
  innermost = this;
}

ArgumentsOnTheirWay::~ArgumentsOnTheirWay() { innermost = outer_; }

std::va_list ArgumentsHandedOn(const void* list) {
  const void* first;
  std::memcpy(&first, list, sizeof(first));
  // No argument of the image's own is this address: it never learns it but in such a list.
  if (innermost != nullptr && first == innermost) return innermost->List();
  return ArgumentsOnStack(list);
}

}  // namespace macho
