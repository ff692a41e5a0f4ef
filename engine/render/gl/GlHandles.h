#pragma once

#include <epoxy/gl.h>

#include <utility>

namespace studio {

struct GlBufferKind {
    static void Create(GLuint& name) { glGenBuffers(1, &name); }
    static void Delete(GLuint name) { glDeleteBuffers(1, &name); }
};
struct GlVertexArrayKind {
    static void Create(GLuint& name) { glGenVertexArrays(1, &name); }
    static void Delete(GLuint name) { glDeleteVertexArrays(1, &name); }
};
struct GlTextureKind {
    static void Create(GLuint& name) { glGenTextures(1, &name); }
    static void Delete(GLuint name) { glDeleteTextures(1, &name); }
};
struct GlFramebufferKind {
    static void Create(GLuint& name) { glGenFramebuffers(1, &name); }
    static void Delete(GLuint name) { glDeleteFramebuffers(1, &name); }
};
struct GlQueryKind {
    static void Create(GLuint& name) { glGenQueries(1, &name); }
    static void Delete(GLuint name) { glDeleteQueries(1, &name); }
};
struct GlProgramKind {
    static void Create(GLuint& name) { name = glCreateProgram(); }
    static void Delete(GLuint name) { glDeleteProgram(name); }
};

/// Owns one name of the current context, from its construction.
template <typename Kind>
class GlHandle {
public:
    GlHandle() { Kind::Create(m_name); }
    ~GlHandle() { Release(); }
    GlHandle(GlHandle&& other) noexcept : m_name(std::exchange(other.m_name, 0)) {}
    GlHandle& operator=(GlHandle&& other) noexcept
    {
        if (this != &other) {
            Release();
            m_name = std::exchange(other.m_name, 0);
        }
        return *this;
    }
    GlHandle(const GlHandle&) = delete;
    GlHandle& operator=(const GlHandle&) = delete;

    [[nodiscard]] GLuint Name() const { return m_name; }

private:
    void Release()
    {
        if (m_name != 0) {
            Kind::Delete(m_name);
        }
    }

    GLuint m_name = 0;
};

using GlBuffer = GlHandle<GlBufferKind>;
using GlVertexArray = GlHandle<GlVertexArrayKind>;
using GlTexture = GlHandle<GlTextureKind>;
using GlFramebuffer = GlHandle<GlFramebufferKind>;
using GlQuery = GlHandle<GlQueryKind>;
using GlProgram = GlHandle<GlProgramKind>;

}  // namespace studio
