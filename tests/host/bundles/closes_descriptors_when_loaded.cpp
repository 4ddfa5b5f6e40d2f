#include <unistd.h>

#include "extension.h"

[[gnu::constructor]] static void CloseAll() {
  for (int descriptor = 0; descriptor < 1024; ++descriptor) close(descriptor);
}
