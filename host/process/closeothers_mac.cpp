#include "host/process/closeothers.h"

#include <unistd.h>

namespace brvhost {

void CloseOthers(int kept) {
  for (int descriptor = getdtablesize() - 1; descriptor > STDERR_FILENO; --descriptor) {
    if (descriptor != kept) close(descriptor);
  }
}

}  // namespace brvhost
