#include <unistd.h>

#include "extension.h"

[[gnu::constructor]] static void Hang() {
  for (;;) pause();
}
