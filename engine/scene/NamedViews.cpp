#include "NamedViews.h"
