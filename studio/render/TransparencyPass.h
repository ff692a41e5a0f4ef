#pragma once

#include "studio/render/DrawList.h"
#include "studio/render/RenderTarget.h"
#include "studio/render/ScreenPass.h"

#include <array>

namespace studio {

/// Where the layers of one picture size are taken apart and put together again.
struct PeelTargets {
    explicit PeelTargets(PixelExtent extent);

    std::array<TargetTexture, 2> depths;  ///< of this layer and of the one before, in turn
    TargetTexture layer;
    TargetTexture sum;  ///< premultiplied light of all layers so far; alpha is what they hide
    std::array<RenderTarget, 2> layerTargets;
    RenderTarget sumTarget;
};

/// Draws transparent items in the right order for every pixel, whatever shapes do to each other:
/// layer by layer from the eye, each pass taking the nearest surface behind the pass before, until
/// none is left.
class TransparencyPass {
public:
    TransparencyPass();
    /// `solid` holds the picture of everything else, `solidDepth` its depths.
    void Draw(const DrawList& list, SurfaceShaders& shaders, PeelTargets& targets,
              const RenderTarget& solid, const TargetTexture& solidDepth) const;

private:
    /// False when there was no further surface.
    bool DrawLayer(const DrawList& list, SurfaceShaders& shaders, const RenderTarget& target) const;
    void CopyFrom(const TargetTexture& source) const;

    ScreenPass m_copy;
    GlQuery m_anything;
};

}  // namespace studio
