#include "Program.h"

#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

class ShaderStage {
public:
    ShaderStage(GLenum stage, const std::string& source) : m_name(glCreateShader(stage))
    {
        const char* text = source.c_str();
        glShaderSource(m_name, 1, &text, nullptr);
        glCompileShader(m_name);
    }
    ShaderStage(const ShaderStage&) = delete;
    ShaderStage& operator=(const ShaderStage&) = delete;
    ~ShaderStage() { glDeleteShader(m_name); }

    [[nodiscard]] GLuint Name() const { return m_name; }

private:
    GLuint m_name;
};

std::string StageLog(GLuint name)
{
    GLint length = 0;
    glGetShaderiv(name, GL_INFO_LOG_LENGTH, &length);
    std::string log(static_cast<std::size_t>(length), '\0');
    glGetShaderInfoLog(name, length, nullptr, log.data());
    return log;
}

std::string LinkLog(GLuint name)
{
    GLint length = 0;
    glGetProgramiv(name, GL_INFO_LOG_LENGTH, &length);
    std::string log(static_cast<std::size_t>(length), '\0');
    glGetProgramInfoLog(name, length, nullptr, log.data());
    return log;
}

}  // namespace

Program::Program(const ShaderSources& sources)
{
    const ShaderStage vertex(GL_VERTEX_SHADER, sources.vertex);
    const ShaderStage fragment(GL_FRAGMENT_SHADER, sources.fragment);
    glAttachShader(m_program.Name(), vertex.Name());
    glAttachShader(m_program.Name(), fragment.Name());
    glLinkProgram(m_program.Name());
    GLint linked = GL_FALSE;
    glGetProgramiv(m_program.Name(), GL_LINK_STATUS, &linked);
    if (linked == GL_FALSE) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::GraphicsFailed,
            "The graphics driver refuses a shader: " + StageLog(vertex.Name()) +
                StageLog(fragment.Name()) + LinkLog(m_program.Name()));
    }
}

}  // namespace studio
