#pragma once

#include "NamedViews.h"
#include "SourceModel.h"
#include "StudioShape.h"

#include <QSize>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace studio {

/// Where a document keeps textures: inside itself, or as paths to files, relative to it where they
/// are below or beside its folder.
enum class TexturePlace : std::uint8_t { Referenced, Embedded };

/// A material of the scene, however the coordinates of its shapes are made.
struct MaterialKey {
    std::shared_ptr<const CorvexSG::GatheredMaterial> gathered;
    std::shared_ptr<const SceneMaterial> identity;

    auto operator<=>(const MaterialKey&) const = default;
};

[[nodiscard]] inline MaterialKey KeyOf(const AppliedMaterial& applied)
{
    return {applied.gathered, applied.identity};
}

inline constexpr QSize kDocumentPicture(320, 240);  ///< pixels at most

/// A scene as it is kept in a document: a value that costs little, since meshes and materials are
/// shared and never changed once made.
struct SceneContent {
    std::vector<ShapeState> shapes;
    std::vector<std::size_t> selection;  ///< places of shapes, in the order they were chosen
    std::optional<Camera> camera;
    std::vector<NamedView> views;
    SourceModel source;
    TexturePlace textures = TexturePlace::Referenced;
    std::string picture;    ///< a small one of the scene, PNG; may be empty
    std::int64_t mark = 0;  ///< that saving leaves in the file; 0: what is there stays
};

}  // namespace studio
