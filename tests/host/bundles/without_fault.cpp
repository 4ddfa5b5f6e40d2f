#include "extension.h"
