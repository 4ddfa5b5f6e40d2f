#include "host/process/datasize.h"

#include <unistd.h>

#include <fstream>

namespace brvhost {

std::uint64_t DataSize() {
  std::ifstream file("/proc/self/statm");
  std::uint64_t passedOver = 0;
  std::uint64_t pages = 0;
  file >> passedOver >> passedOver >> passedOver >> passedOver >> passedOver >> pages;
  return pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace brvhost
