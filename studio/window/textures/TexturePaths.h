#pragma once

#include "MaterialCommand.h"
#include "MissingTextures.h"

namespace studio {

/// Texture paths of all layers, each once, in the order of the shapes.
[[nodiscard]] std::vector<std::string> TexturePathsOf(const ShapeList& shapes);
/// Those that are no files.
[[nodiscard]] std::vector<std::string> MissingTexturePaths(const ShapeList& shapes);

/// What putting the found paths in place of the missing ones does to each shape concerned; nothing
/// is applied yet. Shapes that share a material share the new one. Missing paths with nothing
/// found stay.
[[nodiscard]] std::vector<ShapeChange>
TextureChanges(const ShapeList& shapes, const std::vector<TextureReplacement>& replacements);

}  // namespace studio
