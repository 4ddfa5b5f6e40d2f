// What extensions find when they look a function of their host up.
#pragma once

namespace brvhost {

// Returns what is found of that name in this program, which has it at `address`, or null. Throws nothing.
using FunctionFinder = void* (*)(const char* name, void* address);

// Whether the system lets a program choose what its extensions find.
extern const bool kFunctionsCanBeChosen;

// From now on extensions find what the finder returns. Only where that can be chosen.
void SetFunctionFinder(FunctionFinder finder);

}  // namespace brvhost
