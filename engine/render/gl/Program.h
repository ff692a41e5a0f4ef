#pragma once

#include "GlHandles.h"

#include <string>

namespace studio {

/// GLSL text of one stage of one shader.
struct ShaderSources {
    std::string vertex;
    std::string fragment;
};

/// A linked shader program.
class Program {
public:
    /// Errors: GraphicsFailed with the compiler's messages.
    explicit Program(const ShaderSources& sources);

    void Use() const { glUseProgram(m_program.Name()); }
    /// -1, which OpenGL ignores when it is set, for a name that the program does not use.
    [[nodiscard]] GLint Uniform(const char* name) const
    {
        return glGetUniformLocation(m_program.Name(), name);
    }

private:
    GlProgram m_program;
};

}  // namespace studio
