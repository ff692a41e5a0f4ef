#pragma once

namespace CorvexMaterial {

// Names in the settings store that more than one part uses.

/// Section of the state, the user's defaults and the layout.
inline constexpr const char* kApplicationSection = "Application";

inline constexpr const char* kMaterialPanelKey = "MaterialPanel";
inline constexpr const char* kBackgroundMaterialKey = "ColorBackgroundMaterial";
inline constexpr const char* kBackgroundTextureKey = "ColorBackgroundTexture";

}  // namespace CorvexMaterial
