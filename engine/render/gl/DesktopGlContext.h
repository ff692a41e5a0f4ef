#pragma once

#include "GlContext.h"

class QOffscreenSurface;

namespace studio {

/// A context of Qt's platform plug-in. The surface outlives it. Errors: GraphicsFailed.
[[nodiscard]] std::unique_ptr<GlContext> CreateDesktopGlContext(QOffscreenSurface& surface);

}  // namespace studio
