#include "host/process/remains.h"

#include <dirent.h>
#include <malloc.h>

namespace brvhost {

int ThreadCount() {
  DIR* const tasks = opendir("/proc/self/task");
  if (tasks == nullptr) return 0;
  int count = 0;
  while (const dirent* const task = readdir(tasks)) count += task->d_name[0] == '.' ? 0 : 1;
  closedir(tasks);
  return count;
}

std::uint64_t AllocatedBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

}  // namespace brvhost
