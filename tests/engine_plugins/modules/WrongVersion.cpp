#include "WrongVersion.h"
