#pragma once

#include "GlContext.h"

namespace studio {

/// Null where this system has no EGL without a surface, or no OpenGL 3.3 core with it.
[[nodiscard]] std::unique_ptr<GlContext> CreateEglContext();

}  // namespace studio
