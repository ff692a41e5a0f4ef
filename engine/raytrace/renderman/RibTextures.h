#pragma once

#include "SurfaceImages.h"

#include <QVector2D>
#include <QVector4D>

#include <map>
#include <string>
#include <tuple>

namespace studio {

/// The images of a RIB. The standard shaders take one image as light and leave it to the renderer
/// what lies outside of it, often black. So each shape gets an image of one tile as the material
/// shows it (overlay, crop and all), decoded, with a border of its neighbours around it.
class RibTextures {
public:
    explicit RibTextures(RaytraceImages& images) : m_images(images) {}

    /// The path of the tile that primary and overlay image make. Errors: FileFailed.
    [[nodiscard]] std::string TileOf(const SurfaceImages& layers, float overlayOpacity,
                                     const QVector4D& crop);
    /// Errors: FileFailed.
    [[nodiscard]] std::string EnvironmentOf(const SurfaceImages& layers);

    /// Where a place of the tile, 0 to 1 from its top left, lies in its image.
    [[nodiscard]] static QVector2D InImage(const QVector2D& place);

private:
    using Key = std::tuple<std::uint64_t, std::uint64_t, std::array<float, 5>>;

    [[nodiscard]] std::string Save(const Key& key, const std::function<QImage()>& make);

    RaytraceImages& m_images;
    std::map<Key, std::string> m_paths;
};

}  // namespace studio
