#pragma once

#include <string_view>

namespace CorvexMaterial {

// Fixed texts of the texture channels, browser and dialogs.

inline constexpr std::string_view kPrimaryTextureDisabled =
    "The primary texture is disabled because a raytracing material is active.";
inline constexpr std::string_view kTiffReaderMissing =
    "Microsoft's GDI+ must be installed in order to use TIF textures. It can be downloaded free "
    "of charge from Microsoft's web site; on Linux install the package qt6-image-formats-plugins "
    "instead.";
inline constexpr std::string_view kTextureTooTall =
    "The texture is too tall to be displayed with proper dimensions.";

/// The answer of the texture dialog when nothing was chosen.
inline constexpr std::string_view kNothingChosen = "~";

}  // namespace CorvexMaterial
