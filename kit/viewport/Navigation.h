#pragma once

#include "BoxPicking.h"

#include <QString>

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
/// CAD programs take all that a box to the left touches, and what is whole in one to the right.
[[nodiscard]] BoxRule RuleOfBox(NavigationPreset preset, QPointF from, QPointF to);

/// What it is called, and which buttons move the view, for a person.
[[nodiscard]] QString TitleOf(NavigationPreset preset);
[[nodiscard]] QString HintOf(NavigationPreset preset);
/// As it is stored; the studio's own for any other number.
[[nodiscard]] NavigationPreset PresetOf(int number);

}  // namespace studio
