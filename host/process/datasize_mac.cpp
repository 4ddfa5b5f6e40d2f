#include "host/process/datasize.h"

#include <mach/mach.h>

namespace brvhost {

// All that is mapped, which is never less.
std::uint64_t DataSize() {
  mach_task_basic_info info = {};
  mach_msg_type_number_t count = MACH_TASK_BASIC_INFO_COUNT;
  task_info(mach_task_self(), MACH_TASK_BASIC_INFO, reinterpret_cast<task_info_t>(&info), &count);
  return info.virtual_size;
}

}  // namespace brvhost
