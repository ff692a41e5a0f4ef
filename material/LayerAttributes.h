#pragma once

#include "material/Attributes.h"
#include "textures/TextureLayers.h"

#include <optional>

namespace CorvexMaterial {

/// The attribute that holds a layer's file.
[[nodiscard]] Attribute AttributeOf(TextureLayer layer);
/// Nothing for an attribute that is not a texture file.
[[nodiscard]] std::optional<TextureLayer> LayerOf(Attribute attribute);

}  // namespace CorvexMaterial
