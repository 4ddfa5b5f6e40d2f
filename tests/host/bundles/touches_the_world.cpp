#include <arpa/inet.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "extension.h"

namespace {

bool StartsTrue() {
  char program[] = "/bin/true";
  char* const arguments[] = {program, nullptr};
  char* const environment[] = {nullptr};
  pid_t process = 0;
  if (posix_spawn(&process, program, nullptr, nullptr, arguments, environment) != 0) return false;
  return waitpid(process, nullptr, 0) == process;
}

}  // namespace

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  // What it can do to the folder that the environment names, and beyond.
  const std::string folder = std::getenv("BRV_TEST_FOLDER");
  const std::string file = folder + "/file";
  std::printf("reads %d\n", open(file.c_str(), O_RDONLY) >= 0);
  std::printf("writes %d\n", open(file.c_str(), O_WRONLY) >= 0);
  std::printf("truncates %d\n", open(file.c_str(), O_RDONLY | O_TRUNC) >= 0);
  std::printf("creates %d\n", open((folder + "/new").c_str(), O_RDONLY | O_CREAT, 0600) >= 0);
  std::printf("makes folders %d\n", mkdir((folder + "/folder").c_str(), 0700) == 0);
  std::printf("renames %d\n", rename(file.c_str(), (folder + "/other").c_str()) == 0);
  std::printf("removes %d\n", unlink(file.c_str()) == 0);
  std::printf("connects %d\n", socket(AF_INET, SOCK_STREAM, 0) >= 0);
  std::fflush(stdout);
  std::printf("starts programs %d\n", StartsTrue());
  return HideFirstFrame(*region);
}
