#pragma once

#include "DrawList.h"
#include "RenderTarget.h"
#include "ScreenPass.h"

#include <array>

namespace studio {

/// Where the layers of one picture size are taken apart and put together again.
struct PeelTargets {
    explicit PeelTargets(PixelExtent extent);

    std::array<TargetTexture, 2> depths;  ///< of this layer and of the one before, in turn
    TargetTexture sum;  ///< premultiplied light of all layers so far; alpha is what they hide
    std::array<RenderTarget, 2> targets;  ///< the sum with either of the depths
};

/// Draws transparent items in the right order for every pixel, whatever shapes do to each other:
/// layer by layer from the eye. For each layer the depths of the nearest surfaces behind the layer
/// before are found first; then what lies exactly there is lit and added to the sum. It ends when
/// there are no more.
class TransparencyPass {
public:
    TransparencyPass();
    /// `solid` holds the picture of everything else, with its depths.
    void Draw(const DrawList& list, SurfaceShaders& shaders, PeelTargets& peel,
              const RenderTarget& solid) const;

private:
    /// False when there was no further surface.
    bool FindLayer(const DrawList& list, SurfaceShaders& shaders, const RenderTarget& target,
                   const RenderTarget& solid) const;
    void AddSumTo(const RenderTarget& solid, const TargetTexture& sum) const;

    ScreenPass m_copy;
    GlQuery m_anything;
};

}  // namespace studio
