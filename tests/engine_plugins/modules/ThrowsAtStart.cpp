#include "ThrowsAtStart.h"
