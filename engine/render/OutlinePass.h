#pragma once

#include "DrawList.h"
#include "RenderTarget.h"
#include "ScreenPass.h"

namespace studio {

/// The silhouette of the outlined items of one picture.
struct MaskTarget {
    explicit MaskTarget(PixelExtent extent)
        : texture(PixelKind::Mask8, extent, Sampling::Smooth), target(extent, texture, nullptr)
    {
    }

    TargetTexture texture;
    RenderTarget target;
};

enum class Outline : std::uint8_t { Line, Glow };

/// Draws a line or a glow around the silhouette of a group, also where another item hides it. The
/// items themselves keep their look.
class OutlinePass {
public:
    OutlinePass();
    /// The mask may be finer than the picture.
    void Draw(const DrawList& list, const DrawGroup& group, Outline outline,
              SurfaceShaders& shaders, MaskTarget& mask, const RenderTarget& picture,
              float widthPixels) const;

private:
    void DrawMask(const DrawList& list, const DrawGroup& group, SurfaceShaders& shaders,
                  MaskTarget& mask) const;

    ScreenPass m_outline;
};

}  // namespace studio
