#pragma once

#include <Qt>

#include <array>

namespace studio {

/// Which buttons move a view: the studio's own way, and those of programs that people come from.
/// The settings keep the position.
enum class NavigationPreset { Studio, Blender, Maya, Cad };

inline constexpr std::array kNavigationPresets{NavigationPreset::Studio, NavigationPreset::Blender,
                                               NavigationPreset::Maya, NavigationPreset::Cad};

/// What a drag does.
enum class ViewAction { None, Box, Orbit, Pan, Zoom };

/// How a drag begins.
struct PointerPress {
    Qt::MouseButton button = Qt::NoButton;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isOnShape = false;
};

/// Whether shapes are selected in a view, or it is only looked at: then a drag that would draw a
/// box turns it.
enum class ViewUse { Look, Select };

[[nodiscard]] ViewAction ActionOfDrag(NavigationPreset preset, ViewUse use,
                                      const PointerPress& press);

}  // namespace studio
