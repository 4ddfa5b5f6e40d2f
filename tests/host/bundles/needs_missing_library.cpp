// Code that cannot be loaded: what it calls is nowhere.
extern "C" int DefinedNowhere();
extern "C" __attribute__((visibility("default"))) int Main(int, void*) __asm__("main");
extern "C" int Main(int, void*) { return DefinedNowhere(); }
