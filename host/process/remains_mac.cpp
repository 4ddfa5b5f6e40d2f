#include "host/process/remains.h"

#include <mach/mach.h>
#include <malloc/malloc.h>

namespace brvhost {

int ThreadCount() {
  thread_act_array_t threads = nullptr;
  mach_msg_type_number_t count = 0;
  if (task_threads(mach_task_self(), &threads, &count) != KERN_SUCCESS) return 0;
  for (mach_msg_type_number_t i = 0; i < count; ++i) mach_port_deallocate(mach_task_self(), threads[i]);
  vm_deallocate(mach_task_self(), reinterpret_cast<vm_address_t>(threads), count * sizeof(*threads));
  return static_cast<int>(count);
}

std::uint64_t AllocatedBytes() {
  malloc_statistics_t statistics = {};
  malloc_zone_statistics(nullptr, &statistics);
  return statistics.size_in_use;
}

}  // namespace brvhost
