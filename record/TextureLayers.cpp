#include <CorvexMaterial/EnumEnd.h>
#include <CorvexMaterial/TextureLayers.h>

#include <algorithm>

namespace CorvexMaterial {

namespace {

// Tabs and thumbnails count on with the layers; tab 1 comes before them.
constexpr bool LayersFollowEnum()
{
    for (std::size_t i = 0; i < kTextureLayers.size(); ++i) {
        const TextureLayerRow& row = kTextureLayers[i];
        const int place = static_cast<int>(i);
        if (row.layer != static_cast<TextureLayer>(i) || row.image != place ||
            row.tab != place + 2) {
            return false;
        }
    }
    return true;
}
static_assert(LayersFollowEnum() && EndsAt<TextureLayer, kTextureLayers.size()>());

}  // namespace

TextureLayer LayerOfTab(int tab)
{
    const int first = kTextureLayers.front().tab;
    const int last = kTextureLayers.back().tab;
    return kTextureLayers[static_cast<std::size_t>(std::clamp(tab, first, last) - first)].layer;
}

}  // namespace CorvexMaterial
