#include "Navigation.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace studio {
namespace {

enum class Begins { Anywhere, OnShape };

struct DragRow {
    Qt::MouseButton button;
    Qt::KeyboardModifiers modifiers;
    ViewAction action;
    Begins begins = Begins::Anywhere;
};

constexpr Qt::KeyboardModifiers kPlain = Qt::NoModifier;

using Drags = std::vector<DragRow>;

/// What no row names is a box with the left button, and nothing with others.
const Drags& DragsOf(NavigationPreset preset)
{
    using enum ViewAction;
    static const std::array<Drags, kNavigationPresets.size()> kDrags{
        // Of the studio.
        Drags{{Qt::LeftButton, kPlain, Orbit, Begins::OnShape},
              {Qt::LeftButton, Qt::ShiftModifier, Pan, Begins::OnShape},
              {Qt::LeftButton, Qt::AltModifier, Orbit},
              {Qt::LeftButton, Qt::AltModifier | Qt::ShiftModifier, Pan},
              {Qt::LeftButton, Qt::AltModifier | Qt::ControlModifier, Zoom},
              {Qt::MiddleButton, kPlain, Pan},
              {Qt::MiddleButton, Qt::ShiftModifier, Pan},
              {Qt::MiddleButton, Qt::ControlModifier, Zoom},
              {Qt::RightButton, kPlain, Orbit},
              {Qt::RightButton, Qt::ShiftModifier, Pan},
              {Qt::RightButton, Qt::ControlModifier, Zoom}},
        // Of Blender.
        Drags{{Qt::MiddleButton, kPlain, Orbit},
              {Qt::MiddleButton, Qt::ShiftModifier, Pan},
              {Qt::MiddleButton, Qt::ControlModifier, Zoom},
              {Qt::LeftButton, Qt::AltModifier, Orbit},
              {Qt::LeftButton, Qt::AltModifier | Qt::ShiftModifier, Pan},
              {Qt::LeftButton, Qt::AltModifier | Qt::ControlModifier, Zoom}},
        // Of Maya.
        Drags{{Qt::LeftButton, Qt::AltModifier, Orbit},
              {Qt::MiddleButton, Qt::AltModifier, Pan},
              {Qt::RightButton, Qt::AltModifier, Zoom}},
        // Of most CAD programs.
        Drags{{Qt::MiddleButton, kPlain, Orbit},
              {Qt::MiddleButton, Qt::ControlModifier, Pan},
              {Qt::MiddleButton, Qt::ShiftModifier, Zoom}},
    };
    return kDrags.at(static_cast<std::size_t>(preset));
}

struct PresetTexts {
    const char* title;
    const char* hint;
};

constexpr std::array<PresetTexts, kNavigationPresets.size()> kTexts{{
    {QT_TRANSLATE_NOOP("Navigation", "Corvex Studio"),
     QT_TRANSLATE_NOOP("Navigation", "Turn: drag a shape, or drag with the right button. Pan: drag "
                                     "with the middle button. Zoom: wheel. Select: click, or drag "
                                     "a box on the background.")},
    {"Blender",
     QT_TRANSLATE_NOOP("Navigation",
                       "Turn: drag with the middle button. Pan: Shift and the middle button. Zoom: "
                       "wheel, or Ctrl and the middle button. Select: click, or drag a box.")},
    {"Maya", QT_TRANSLATE_NOOP("Navigation",
                               "Turn: Alt and drag. Pan: Alt and the middle button. Zoom: wheel, "
                               "or Alt and the right button. Select: click, or drag a box.")},
    {QT_TRANSLATE_NOOP("Navigation", "CAD"),
     QT_TRANSLATE_NOOP("Navigation",
                       "Turn: drag with the middle button. Pan: Ctrl and the middle button. Zoom: "
                       "wheel, or Shift and the middle button. Select: click, or drag a box; to "
                       "the left it takes what it touches, to the right what is whole in it.")},
}};

QString Translated(const char* text)
{
    return QCoreApplication::translate("Navigation", text);
}

}  // namespace

QString TitleOf(NavigationPreset preset)
{
    return Translated(kTexts.at(static_cast<std::size_t>(preset)).title);
}

QString HintOf(NavigationPreset preset)
{
    return Translated(kTexts.at(static_cast<std::size_t>(preset)).hint);
}

NavigationPreset PresetOf(int number)
{
    const auto preset = static_cast<NavigationPreset>(number);
    return std::ranges::find(kNavigationPresets, preset) != kNavigationPresets.end()
               ? preset
               : NavigationPreset::Studio;
}

BoxRule RuleOfBox(NavigationPreset preset, QPointF from, QPointF to)
{
    return preset == NavigationPreset::Cad && to.x() > from.x() ? BoxRule::Inside
                                                                : BoxRule::Touching;
}

ViewAction ActionOfDrag(NavigationPreset preset, ViewUse use, const PointerPress& press)
{
    const auto modifiers =
        press.modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    const Drags& drags = DragsOf(preset);
    const auto row = std::ranges::find_if(drags, [&](const DragRow& drag) {
        return drag.button == press.button && drag.modifiers == modifiers &&
               (drag.begins == Begins::Anywhere || press.isOnShape);
    });
    if (row != drags.end()) {
        return row->action;
    }
    if (press.button != Qt::LeftButton) {
        return ViewAction::None;
    }
    if (use == ViewUse::Select) {
        return ViewAction::Box;
    }
    return modifiers.testFlag(Qt::ShiftModifier) ? ViewAction::Pan : ViewAction::Orbit;
}

}  // namespace studio
