#include "RenderTarget.h"

#include <CorvexMaterial/Status.h>

#include <array>
#include <new>

namespace studio {
namespace {

struct PixelFormat {
    PixelKind kind;
    GLint internalFormat;
    GLenum format;
    GLenum type;
};

// Depth is a float so that what a pass reads is, bit for bit, what another one wrote.
constexpr std::array kPixelFormats{
    PixelFormat{PixelKind::Srgb8, GL_SRGB8_ALPHA8, GL_RGBA, GL_UNSIGNED_BYTE},
    PixelFormat{PixelKind::LinearHalf, GL_RGBA16F, GL_RGBA, GL_HALF_FLOAT},
    PixelFormat{PixelKind::Mask8, GL_R8, GL_RED, GL_UNSIGNED_BYTE},
    PixelFormat{PixelKind::Depth, GL_DEPTH_COMPONENT32F, GL_DEPTH_COMPONENT, GL_FLOAT},
};

}  // namespace

TargetTexture::TargetTexture(PixelKind kind, PixelExtent extent, Sampling sampling)
{
    const PixelFormat& format = kPixelFormats[static_cast<std::size_t>(kind)];
    const GLint filter = sampling == Sampling::Smooth ? GL_LINEAR : GL_NEAREST;
    glBindTexture(GL_TEXTURE_2D, m_texture.Name());
    glTexImage2D(GL_TEXTURE_2D, 0, format.internalFormat, extent.width, extent.height, 0,
                 format.format, format.type, nullptr);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    if (glGetError() == GL_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
}

void TargetTexture::BindTo(GLuint unit) const
{
    glActiveTexture(GL_TEXTURE0 + unit);
    glBindTexture(GL_TEXTURE_2D, m_texture.Name());
}

RenderTarget::RenderTarget(PixelExtent extent, const TargetTexture& colour,
                           const TargetTexture* depth)
    : m_extent(extent)
{
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.Name());
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, colour.Name(), 0);
    if (depth != nullptr) {
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, depth->Name(),
                               0);
    }
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::GraphicsFailed,
                                    "The graphics device cannot draw a picture of this size.");
    }
}

void RenderTarget::Bind() const
{
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.Name());
    glViewport(0, 0, m_extent.width, m_extent.height);
}

void RenderTarget::CopyDepthFrom(const RenderTarget& source) const
{
    glBindFramebuffer(GL_READ_FRAMEBUFFER, source.m_framebuffer.Name());
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_framebuffer.Name());
    glBlitFramebuffer(0, 0, m_extent.width, m_extent.height, 0, 0, m_extent.width, m_extent.height,
                      GL_DEPTH_BUFFER_BIT, GL_NEAREST);
}

}  // namespace studio
