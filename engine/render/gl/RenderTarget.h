#pragma once

#include "GlHandles.h"

namespace studio {

struct PixelExtent {
    int width = 0;
    int height = 0;

    bool operator==(const PixelExtent&) const = default;
};

enum class PixelKind { Srgb8, LinearHalf, Mask8, Depth };
enum class Sampling { Nearest, Smooth };

/// A texture to draw into and to read from in a later pass.
class TargetTexture {
public:
    TargetTexture(PixelKind kind, PixelExtent extent, Sampling sampling);
    [[nodiscard]] GLuint Name() const { return m_texture.Name(); }
    void BindTo(GLuint unit) const;

private:
    GlTexture m_texture;
};

/// A framebuffer over textures that outlive it.
class RenderTarget {
public:
    /// `depth` may be null. Errors: GraphicsFailed.
    RenderTarget(PixelExtent extent, const TargetTexture& colour, const TargetTexture* depth);
    /// Also sets the part of it that is drawn to, all of it.
    void Bind() const;
    /// Takes over the depths of a target of the same size. Drivers do it as a plain copy of memory
    /// when no scissor is set.
    void CopyDepthFrom(const RenderTarget& source) const;
    [[nodiscard]] PixelExtent Extent() const { return m_extent; }

private:
    PixelExtent m_extent;
    GlFramebuffer m_framebuffer;
};

}  // namespace studio
