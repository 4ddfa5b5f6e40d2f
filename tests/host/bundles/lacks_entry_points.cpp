// Nothing but a main: no entry point of an extension.
extern "C" __attribute__((visibility("default"))) int Main(int, void*) __asm__("main");
extern "C" int Main(int, void*) { return 1; }
