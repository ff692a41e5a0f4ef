#pragma once

#include <string_view>

// The shaders' GLSL without version line and variants; the build makes the source from shaders/.

namespace studio::shaders {

extern const std::string_view kSurfaceVertex;
extern const std::string_view kSurfaceCoordinates;
extern const std::string_view kSurfaceLayers;
extern const std::string_view kSurfaceFragment;
extern const std::string_view kScreenVertex;
extern const std::string_view kBackdropFragment;
extern const std::string_view kCopyFragment;
extern const std::string_view kShrinkFragment;
extern const std::string_view kOutlineFragment;

}  // namespace studio::shaders
