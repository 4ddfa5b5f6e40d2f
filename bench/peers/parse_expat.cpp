// Parses an XML file with expat, and does nothing else.
#include "readwithexpat.h"

int main(int argc, char** argv) { return ReadWithExpat(argc, argv, XML_ParserCreate(nullptr)); }
