#include "host/bundle/otherprocessor.h"

#include <elf.h>

#include <cstring>
#include <fstream>
#include <optional>
#include <tuple>

namespace brvhost {
namespace {

// The size of its words, the order of their bytes, and its number. Null for what is no file of code.
using Processor = std::optional<std::tuple<int, int, int>>;

Processor ProcessorOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  Elf32_Ehdr head;  // that of 64 bits begins in the same way
  if (!file.read(reinterpret_cast<char*>(&head), sizeof(head))) return std::nullopt;
  if (std::memcmp(head.e_ident, ELFMAG, SELFMAG) != 0) return std::nullopt;
  return std::tuple(head.e_ident[EI_CLASS], head.e_ident[EI_DATA], head.e_machine);
}

}  // namespace

bool IsForAnotherProcessor(const std::string& path) {
  const Processor own = ProcessorOf("/proc/self/exe");
  const Processor other = ProcessorOf(path);
  return own && other && *own != *other;
}

}  // namespace brvhost
