#include "TransparencyPass.h"

#include "ShaderTexts.h"

namespace studio {
namespace {

// Behind this many surfaces nothing is told apart any more; it also bounds a frame's time.
constexpr std::size_t kMostLayers = 64;

TargetTexture PeelTexture(PixelKind kind, PixelExtent extent)
{
    return TargetTexture(kind, extent, Sampling::Nearest);
}

void Clear(const RenderTarget& target, float depth)
{
    target.Bind();
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    glClearDepth(static_cast<GLdouble>(depth));
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

/// Adds the surfaces at the target's depths, behind those that are in the sum already.
void LightLayer(const DrawList& list, SurfaceShaders& shaders)
{
    glDepthMask(GL_FALSE);
    glDepthFunc(GL_EQUAL);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE_MINUS_DST_ALPHA, GL_ONE);
    list.Draw(list.Transparent(), SurfaceStage::Lit, shaders);
    glDisable(GL_BLEND);
}

}  // namespace

PeelTargets::PeelTargets(PixelExtent extent)
    : depths{PeelTexture(PixelKind::Depth, extent), PeelTexture(PixelKind::Depth, extent)},
      sum(PeelTexture(PixelKind::LinearHalf, extent)), targets{
                                                           RenderTarget(extent, sum, &depths[0]),
                                                           RenderTarget(extent, sum, &depths[1])}
{
}

TransparencyPass::TransparencyPass() : m_copy(shaders::kCopyFragment) {}

void TransparencyPass::Draw(const DrawList& list, SurfaceShaders& shaders, PeelTargets& peel,
                            const RenderTarget& solid) const
{
    const PixelRegion region = list.RegionOf(list.Transparent(), solid.Extent(), 1);
    glEnable(GL_SCISSOR_TEST);
    glScissor(region.left, region.top, region.width, region.height);
    Clear(peel.targets[1], 0.0F);  // nothing is peeled yet
    for (std::size_t i = 0; i < kMostLayers; ++i) {
        peel.depths[(i + 1) % 2].BindTo(kPeeledDepthUnit);
        if (!FindLayer(list, shaders, peel.targets[i % 2], solid)) {
            break;
        }
        LightLayer(list, shaders);
    }
    AddSumTo(solid, peel.sum);
    glDisable(GL_SCISSOR_TEST);
}

bool TransparencyPass::FindLayer(const DrawList& list, SurfaceShaders& shaders,
                                 const RenderTarget& target, const RenderTarget& solid) const
{
    glDepthMask(GL_TRUE);
    glDisable(GL_SCISSOR_TEST);
    target.CopyDepthFrom(solid);
    glEnable(GL_SCISSOR_TEST);
    target.Bind();
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glBeginQuery(GL_ANY_SAMPLES_PASSED, m_anything.Name());
    list.Draw(list.Transparent(), SurfaceStage::Peel, shaders);
    glEndQuery(GL_ANY_SAMPLES_PASSED);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    GLuint anything = GL_FALSE;
    glGetQueryObjectuiv(m_anything.Name(), GL_QUERY_RESULT, &anything);
    return anything != GL_FALSE;
}

void TransparencyPass::AddSumTo(const RenderTarget& solid, const TargetTexture& sum) const
{
    solid.Bind();
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    m_copy.Use();
    glUniform1i(m_copy.Uniform("source"), 0);
    sum.BindTo(0);
    m_copy.Draw();
    glDisable(GL_BLEND);
}

}  // namespace studio
