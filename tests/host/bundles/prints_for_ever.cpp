#include <unistd.h>

#include <string>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  const std::string lines(65536, '\n');
  for (;;) {
    if (write(STDOUT_FILENO, lines.data(), lines.size()) < 0) return 0;
  }
}
