// Parses XML files with expat, one after another, and does nothing else.
#include "readwithexpat.h"

int main(int argc, char** argv) {
  int status = argc > 1 ? 0 : 2;
  for (int i = 1; i < argc && status == 0; ++i) status = ReadWithExpat(argv[i], XML_ParserCreate(nullptr));
  return status;
}
