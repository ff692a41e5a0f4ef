#pragma once

#include "DrawList.h"
#include "RenderTarget.h"
#include "ScreenPass.h"

namespace studio {

/// The silhouette of the selected items of one picture.
struct MaskTarget {
    explicit MaskTarget(PixelExtent extent)
        : texture(PixelKind::Mask8, extent, Sampling::Smooth), target(extent, texture, nullptr)
    {
    }

    TargetTexture texture;
    RenderTarget target;
};

/// Draws a line around the silhouette of the selected items, also where another item hides it. The
/// items themselves keep their look.
class OutlinePass {
public:
    OutlinePass();
    /// The mask may be finer than the picture.
    void Draw(const DrawList& list, SurfaceShaders& shaders, MaskTarget& mask,
              const RenderTarget& picture, float widthPixels) const;

private:
    void DrawMask(const DrawList& list, SurfaceShaders& shaders, MaskTarget& mask) const;

    ScreenPass m_outline;
};

}  // namespace studio
