#pragma once

#include <QImage>

#include "SurfaceLayers.h"

#include <cstdint>
#include <memory>

namespace studio {

struct Frame;
class GlContext;

/// Draws frames into a picture in memory. Lives and dies on the thread on which its context was
/// created. Keeps shader variants and the meshes and textures of earlier frames on the graphics
/// device.
class Renderer {
public:
    /// Errors: GraphicsFailed.
    explicit Renderer(std::unique_ptr<GlContext> context);
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    /// An sRGB picture of the frame's size, Format_RGB32. Errors: InvalidArgument for a size or
    /// a number of samples outside its range, GraphicsFailed, OutOfMemory; the next frame can be
    /// drawn after any of them but a lost context.
    /// Without a lookup, or where it knows no texture yet, materials are drawn without it.
    [[nodiscard]] QImage Draw(const Frame& frame, const TextureLookup& textures = {});

    /// How often pixels of a texture went to the graphics device.
    [[nodiscard]] std::uint64_t TextureUploads() const;

private:
    struct Parts;
    std::unique_ptr<GlContext> m_context;  ///< dies after everything that is made with it
    std::unique_ptr<Parts> m_parts;
};

}  // namespace studio
