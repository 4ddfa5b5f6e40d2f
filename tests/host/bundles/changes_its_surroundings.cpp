#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  std::atexit([] { _exit(0); });
  if (chdir("/") != 0) return 0;
  umask(0777);
  const rlimit none = {0, 0};
  setrlimit(RLIMIT_FSIZE, &none);
  setrlimit(RLIMIT_NOFILE, &none);
  setenv("TMPDIR", "/nowhere", 1);
  setenv("HOME", "/nowhere", 1);
  std::signal(SIGCHLD, SIG_IGN);
  return HideFirstFrame(*region);
}
