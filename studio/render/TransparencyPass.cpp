#include "studio/render/TransparencyPass.h"

#include "studio/render/ShaderTexts.h"

namespace studio {
namespace {

// Behind this many surfaces nothing is told apart any more; it also bounds a frame's time.
constexpr std::size_t kMostLayers = 64;

TargetTexture PeelTexture(PixelKind kind, PixelExtent extent)
{
    return TargetTexture(kind, extent, Sampling::Nearest);
}

void ClearTo(float depth)
{
    glDepthMask(GL_TRUE);
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    glClearDepth(static_cast<GLdouble>(depth));
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

}  // namespace

PeelTargets::PeelTargets(PixelExtent extent)
    : depths{PeelTexture(PixelKind::Depth, extent), PeelTexture(PixelKind::Depth, extent)},
      layer(PeelTexture(PixelKind::LinearHalf, extent)),
      sum(PeelTexture(PixelKind::LinearHalf, extent)),
      layerTargets{RenderTarget(extent, layer, &depths[0]),
                   RenderTarget(extent, layer, &depths[1])},
      sumTarget(extent, sum, nullptr)
{
}

TransparencyPass::TransparencyPass() : m_copy(shaders::kCopyFragment) {}

void TransparencyPass::Draw(const DrawList& list, SurfaceShaders& shaders, PeelTargets& targets,
                            const RenderTarget& solid, const TargetTexture& solidDepth) const
{
    const PixelRegion region = list.RegionOf(list.Transparent(), solid.Extent(), 1);
    glEnable(GL_SCISSOR_TEST);
    glScissor(region.left, region.top, region.width, region.height);
    targets.sumTarget.Bind();
    ClearTo(1.0F);
    targets.layerTargets[1].Bind();
    ClearTo(0.0F);  // nothing peeled yet
    for (std::size_t i = 0; i < kMostLayers; ++i) {
        solidDepth.BindTo(kSolidDepthUnit);
        targets.depths[(i + 1) % 2].BindTo(kPeeledDepthUnit);
        if (!DrawLayer(list, shaders, targets.layerTargets[i % 2])) {
            break;
        }
        targets.sumTarget.Bind();
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE_MINUS_DST_ALPHA, GL_ONE);
        CopyFrom(targets.layer);
    }
    solid.Bind();
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    CopyFrom(targets.sum);
    glDisable(GL_BLEND);
    glDisable(GL_SCISSOR_TEST);
}

bool TransparencyPass::DrawLayer(const DrawList& list, SurfaceShaders& shaders,
                                 const RenderTarget& target) const
{
    target.Bind();
    ClearTo(1.0F);
    glDisable(GL_BLEND);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glBeginQuery(GL_ANY_SAMPLES_PASSED, m_anything.Name());
    list.Draw(list.Transparent(), SurfaceStage::Peel, shaders);
    glEndQuery(GL_ANY_SAMPLES_PASSED);
    GLuint anything = GL_FALSE;
    glGetQueryObjectuiv(m_anything.Name(), GL_QUERY_RESULT, &anything);
    return anything != GL_FALSE;
}

void TransparencyPass::CopyFrom(const TargetTexture& source) const
{
    m_copy.Use();
    glUniform1i(m_copy.Uniform("source"), 0);
    source.BindTo(0);
    m_copy.Draw();
}

}  // namespace studio
