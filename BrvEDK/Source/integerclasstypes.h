// The integer classes as types that templates can tell apart. To be included before brevixpdk.h, by those who define
// its functions from the call table.
#pragma once

#define BRV_INTEGER_CLASSES
enum short16 : int {};
enum ushort16 : int {};
enum flag8 : int {};
enum int32 : int {};

#include "brevixpdk.h"
