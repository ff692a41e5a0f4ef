#pragma once

#include <memory>

namespace studio {

/// An OpenGL 3.3 core context without a window. Current on the thread that created it until it is
/// destroyed there.
class GlContext {
public:
    virtual ~GlContext() = default;
};

/// Creates contexts. Made on the user-interface thread, used on the render thread.
class GlContextProvider {
public:
    virtual ~GlContextProvider() = default;
    /// The context is current on the calling thread. Errors: GraphicsFailed.
    [[nodiscard]] virtual std::unique_ptr<GlContext> Create() = 0;
};

/// EGL without a surface, which needs no window system; where that fails, the one of the desktop.
[[nodiscard]] std::unique_ptr<GlContextProvider> MakeGlContextProvider();

}  // namespace studio
