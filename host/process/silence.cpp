#include "host/process/silence.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

#include "host/process/descriptor.h"

namespace brvhost {

void SilenceStreams() {
  const Descriptor nowhere(open("/dev/null", O_RDWR));
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere.Get(), stream);
}

}  // namespace brvhost
