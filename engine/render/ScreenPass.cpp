#include "ScreenPass.h"

#include "ShaderTexts.h"
#include "SurfaceShaders.h"

namespace studio {

ScreenPass::ScreenPass(std::string_view fragmentText)
    : m_program({kGlslVersion + std::string(shaders::kScreenVertex),
                 kGlslVersion + std::string(fragmentText)})
{
}

void ScreenPass::Draw() const
{
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glBindVertexArray(m_noVertices.Name());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

}  // namespace studio
