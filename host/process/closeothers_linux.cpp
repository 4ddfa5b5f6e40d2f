#include "host/process/closeothers.h"

#include <unistd.h>

namespace brvhost {

void CloseOthers(int kept) {
  const auto number = static_cast<unsigned>(kept);
  if (number > STDERR_FILENO + 1) close_range(STDERR_FILENO + 1, number - 1, 0);
  close_range(number + 1, ~0U, 0);
}

}  // namespace brvhost
