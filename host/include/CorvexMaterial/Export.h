#pragma once

#if defined(CORVEX_MATERIAL_LIBRARY)
#define CORVEX_EXPORT __attribute__((visibility("default")))
#else
#define CORVEX_EXPORT
#endif
