#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace CorvexMaterial {

struct PreviewPrimitive {
    std::int32_t code;
    std::string_view meshFile;
    std::string_view pictureKey;
    std::string_view title;  ///< for a person, untranslated
};

/// In code order. Codes beyond the table are legal and mean the shape that has no mesh file.
inline constexpr std::array<PreviewPrimitive, 5> kPreviewPrimitives{{
    {0, "previewcube.x", "cube", "Cube"},
    {1, "previewcylinder.x", "cylinder", "Cylinder"},
    {2, "previewsphere.x", "sphere", "Sphere"},
    {3, "previewtorus.x", "torus", "Torus"},
    {4, "previewcone.x", "cone", "Cone"},
}};

/// Folder of the mesh files, beside the loaded library.
inline constexpr std::string_view kPreviewMeshFolder = "System";

/// Null for a code beyond the table.
[[nodiscard]] const PreviewPrimitive* FindPreviewPrimitive(std::int32_t code);

}  // namespace CorvexMaterial
