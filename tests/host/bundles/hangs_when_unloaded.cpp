#include <unistd.h>

#include "extension.h"

[[gnu::destructor]] static void Hang() {
  for (;;) pause();
}
