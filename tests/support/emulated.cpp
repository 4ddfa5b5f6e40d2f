// Runs the program that it was compiled for under an emulator, with its own arguments. For the processor of the
// machine, and linked statically: what is to be loaded before the program is for the emulated processor.
#include <unistd.h>

#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
  static char emulator[] = BRV_EMULATOR;
  static char program[] = BRV_PROGRAM;
  std::vector<char*> command(argv, argv + argc + 1);  // with the null pointer after the last
  command[0] = program;
  command.insert(command.begin(), emulator);
  execvp(emulator, command.data());
  std::perror(emulator);
  return 126;
}
