#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <QImage>

#include <memory>
#include <string>

namespace studio {

class PluginTextures;
class RenderService;
struct Mesh;
struct Texture;

/// Pixels of a side of a stored thumbnail.
inline constexpr int kThumbnailSide = 128;

/// Draws what a library browser shows. User-interface thread only.
class Thumbnailer {
public:
    /// Both outlive this object. Without plug-ins, materials that need one are drawn without it.
    explicit Thumbnailer(RenderService& rendering, PluginTextures* plugins = nullptr);

    /// The material on a sphere, 128 by 128, read to the end of all textures; a transparent one
    /// before a wall of checks. Errors: those of
    /// drawing; texture files that cannot be read are drawn as the usual placeholder.
    [[nodiscard]] QImage OfMaterial(const CorvexDB::udtMaterial& material) const;

    /// The same as PNG; empty when no picture can be drawn, as without a graphics driver.
    [[nodiscard]] std::string PngIfPossible(const CorvexDB::udtMaterial& material) const;

    struct TexturePicture {
        QImage thumbnail;   ///< 128 by 128 at most; null when the file cannot be read
        QSize size;         ///< of the image itself
        std::string error;  ///< for a person; empty on success
    };
    [[nodiscard]] static TexturePicture OfTexture(const std::string& file);

    [[nodiscard]] static std::string Png(const QImage& image);  ///< empty for a null image

private:
    RenderService& m_rendering;
    PluginTextures* m_plugins;
    std::shared_ptr<const Mesh> m_sphere;
    std::shared_ptr<const Texture> m_checks;  ///< behind transparent materials
};

}  // namespace studio
