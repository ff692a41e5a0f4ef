#pragma once

#include "GlHandles.h"
#include "Program.h"

#include <string_view>

namespace studio {

/// One fragment shader over the whole picture.
class ScreenPass {
public:
    explicit ScreenPass(std::string_view fragmentText);

    void Use() const { m_program.Use(); }
    [[nodiscard]] GLint Uniform(const char* name) const { return m_program.Uniform(name); }
    /// With the current program, target, blending and scissor; depth is neither read nor written.
    void Draw() const;

private:
    Program m_program;
    GlVertexArray m_noVertices;
};

}  // namespace studio
