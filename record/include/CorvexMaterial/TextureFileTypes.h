#pragma once

#include <CorvexMaterial/RowRange.h>

#include <string_view>

namespace CorvexMaterial {

/// Which files a texture may be made of.
enum class TextureTypeList {
    All,
    /// Without the two types that carry a translucency layer.
    WithoutTranslucency,
};

/// In the dialog's order, lower case, without a dot.
[[nodiscard]] RowRange<std::string_view> ExtensionsOf(TextureTypeList list);

inline constexpr std::string_view kTextureDescription = "Texture";

[[nodiscard]] bool IsListed(std::string_view path, TextureTypeList list);

}  // namespace CorvexMaterial
