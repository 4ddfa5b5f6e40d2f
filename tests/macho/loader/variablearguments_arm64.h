// Variable arguments between the two systems: on macOS for arm64 a list of them is the address of the next one, on
// Linux a record of where they are in registers and on the stack.
#pragma once

#include <cstdarg>

namespace macho {

// The list as Linux has it of arguments that the image has put on the stack.
std::va_list ArgumentsOnStack(const void* first);

// Those of a call from Linux, for as long as it is on its way through the image. The image hands on where its variable
// arguments begin, and reads none of them: it is given the address of this as the only one.
class ArgumentsOnTheirWay {
 public:
  explicit ArgumentsOnTheirWay(const std::va_list& list);
  ~ArgumentsOnTheirWay();
  ArgumentsOnTheirWay(const ArgumentsOnTheirWay&) = delete;
  ArgumentsOnTheirWay& operator=(const ArgumentsOnTheirWay&) = delete;

  const std::va_list& List() const { return list_; }

 private:
  const std::va_list& list_;
  const ArgumentsOnTheirWay* const outer_;
};

// The list that the image hands on: of a call's that is on its way, or of its own arguments.
std::va_list ArgumentsHandedOn(const void* list);

}  // namespace macho
