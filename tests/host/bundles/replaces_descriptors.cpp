#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  // Into the file that the environment names, as an extension does that opens a log after it has closed too much.
  const char* const log = std::getenv("BRV_TEST_LOG");
  const int file = open(log, O_WRONLY | O_CREAT, 0600);
  for (int descriptor = 0; descriptor < 1024; ++descriptor) dup2(file, descriptor);
  return HideFirstFrame(*region);
}
