// The call table as the host's documentation has it, typed apart from the product's own.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

struct DocumentedCall {
  std::string name;
  std::vector<std::string> arguments;  // classes: short16, ushort16, flag8, int32, ptr; without the version
  std::string result;                  // short16, ushort16 or "as host"
  long defaultResult;
};

inline std::ostream& operator<<(std::ostream& out, const DocumentedCall& call) { return out << call.name; }

const std::vector<DocumentedCall>& DocumentedCalls();

// The names of the kit's host calls, in the order of its own table.
std::vector<std::string> KitFunctionNames();

// The kit's function of that name, as the program sees it.
void* KitFunction(const std::string& name);

// Calls a function with integers and pointers in the registers and stack places of the calling convention.
std::uint64_t CallWithRegisters(void* function, const std::vector<std::uint64_t>& registers);
