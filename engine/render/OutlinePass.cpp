#include "OutlinePass.h"

#include "ShaderTexts.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr CorvexMaterial::Colour kOutlineColour = CorvexMaterial::MakeColour({255, 140, 26});
constexpr CorvexMaterial::Colour kGlowColour = CorvexMaterial::MakeColour({90, 190, 255});
constexpr float kWidestPixels = 8.0F;  ///< the pass reads the square of it for every pixel
constexpr float kGlowWidth = 4.0F;     ///< lines

}  // namespace

OutlinePass::OutlinePass() : m_outline(shaders::kOutlineFragment)
{
    m_outline.Use();
    glUniform1i(m_outline.Uniform("mask"), 0);
}

void OutlinePass::DrawMask(const DrawList& list, const DrawGroup& group, SurfaceShaders& shaders,
                           MaskTarget& mask) const
{
    mask.target.Bind();
    glDisable(GL_BLEND);
    glDisable(GL_DEPTH_TEST);
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    list.Draw(group, SurfaceStage::Shape, shaders);
}

void OutlinePass::Draw(const DrawList& list, const DrawGroup& group, Outline outline,
                       SurfaceShaders& shaders, MaskTarget& mask, const RenderTarget& picture,
                       float widthPixels) const
{
    DrawMask(list, group, shaders, mask);
    picture.Bind();
    const bool glows = outline == Outline::Glow;
    const float width =
        std::clamp(glows ? widthPixels * kGlowWidth : widthPixels, 1.0F, kWidestPixels);
    const PixelExtent extent = picture.Extent();
    const int margin = static_cast<int>(std::ceil(width)) + 2;
    const PixelRegion region = list.RegionOf(group, extent, margin);
    const Rgb colour = LightOf(glows ? kGlowColour : kOutlineColour);
    m_outline.Use();
    glUniform3f(m_outline.Uniform("outlineColour"), colour.red, colour.green, colour.blue);
    glUniform1i(m_outline.Uniform("glows"), glows ? 1 : 0);
    glUniform2f(m_outline.Uniform("pictureSize"), static_cast<float>(extent.width),
                static_cast<float>(extent.height));
    glUniform1f(m_outline.Uniform("outlinePixels"), width);
    mask.texture.BindTo(0);
    glEnable(GL_SCISSOR_TEST);
    glScissor(region.left, region.top, region.width, region.height);
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ZERO, GL_ONE);
    m_outline.Draw();
    glDisable(GL_BLEND);
    glDisable(GL_SCISSOR_TEST);
}

}  // namespace studio
