#pragma once

#include "ChannelIcons.h"
#include <CorvexMaterial/EnumEnd.h>
#include <CorvexMaterial/TextureLayers.h>

#include <array>

namespace CorvexMaterial {

/// Tabs count from 1. Those of the texture layers stand together and share one page.
enum class ChannelTab {
    Surface = 1,
    Primary,
    Overlay,
    Alpha,
    Bump,
    Specular,
    Environment,
    CustomFields,
    Advanced,
    Plugin,
};

struct ChannelTabRow {
    ChannelTab tab;
    const char* title;
    ChannelSign sign;
    AttributeGroup group;         ///< what of the material it is about
    bool titleAbovePage = false;  ///< of a page that has no heading of its own
};

inline constexpr std::array kChannelTabs{
    ChannelTabRow{ChannelTab::Surface, QT_TRANSLATE_NOOP("ChannelPanel", "Surface"),
                  ChannelSign::Surface, AttributeGroup::Surface},
    ChannelTabRow{ChannelTab::Primary, QT_TRANSLATE_NOOP("ChannelPanel", "Primary Texture"),
                  ChannelSign::Primary, AttributeGroup::Textures},
    ChannelTabRow{ChannelTab::Overlay, QT_TRANSLATE_NOOP("ChannelPanel", "Overlay Texture"),
                  ChannelSign::Overlay, AttributeGroup::Textures},
    ChannelTabRow{ChannelTab::Alpha, QT_TRANSLATE_NOOP("ChannelPanel", "Alpha (Translucency) Map"),
                  ChannelSign::Alpha, AttributeGroup::Textures},
    ChannelTabRow{ChannelTab::Bump, QT_TRANSLATE_NOOP("ChannelPanel", "Bump Map"),
                  ChannelSign::Bump, AttributeGroup::Textures},
    ChannelTabRow{ChannelTab::Specular, QT_TRANSLATE_NOOP("ChannelPanel", "Specular Map"),
                  ChannelSign::Specular, AttributeGroup::Textures},
    ChannelTabRow{ChannelTab::Environment, QT_TRANSLATE_NOOP("ChannelPanel", "Environment Map"),
                  ChannelSign::Environment, AttributeGroup::Textures},
    ChannelTabRow{ChannelTab::CustomFields,
                  QT_TRANSLATE_NOOP("ChannelPanel", "Custom Material Fields"),
                  ChannelSign::CustomFields, AttributeGroup::CustomFields, true},
    ChannelTabRow{ChannelTab::Advanced, QT_TRANSLATE_NOOP("ChannelPanel", "Advanced Options"),
                  ChannelSign::Advanced, AttributeGroup::Blending},
    ChannelTabRow{ChannelTab::Plugin, QT_TRANSLATE_NOOP("ChannelPanel", "Plug-in Material"),
                  ChannelSign::Plugin, AttributeGroup::Plugin, true}};

consteval bool TabsFollowEnumAndLayers()
{
    for (std::size_t i = 0; i < kChannelTabs.size(); ++i) {
        if (static_cast<std::size_t>(kChannelTabs[i].tab) != i + 1) {
            return false;
        }
    }
    const auto first = static_cast<int>(ChannelTab::Primary);
    const auto last = static_cast<int>(ChannelTab::Environment);
    return kTextureLayers.front().tab == first && kTextureLayers.back().tab == last &&
           !IsNamed<static_cast<ChannelTab>(kChannelTabs.size() + 1)>();
}
static_assert(TabsFollowEnumAndLayers(),
              "a tab without a row, or out of step with TextureLayers.h");

}  // namespace CorvexMaterial
