#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace CorvexMaterial {

/// Which files a texture may be made of.
enum class TextureTypeList {
    All,
    /// Without the two types that carry a translucency layer.
    WithoutTranslucency,
};

/// In the dialog's order, lower case, without a dot.
[[nodiscard]] std::span<const std::string_view> ExtensionsOf(TextureTypeList list);

inline constexpr std::string_view kTextureDescription = "Texture";
inline constexpr std::string_view kTiffExtension = "TIF";

/// In upper case, without the dot; empty when the file's name has none.
[[nodiscard]] std::string UpperExtensionOf(std::string_view path);
[[nodiscard]] bool IsListed(std::string_view path, TextureTypeList list);

/// The file dialog's filter: the description with the upper-case patterns, "|", and the lower-case
/// patterns that are applied.
[[nodiscard]] std::string DialogFilter(std::string_view description,
                                       std::span<const std::string_view> extensions);

/// What the desktop's chooser needs of a filter.
struct FilterParts {
    std::string description;
    std::vector<std::string> extensions;
};
[[nodiscard]] FilterParts SplitDialogFilter(std::string_view filter);

}  // namespace CorvexMaterial
