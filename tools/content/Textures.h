#pragma once

#include "Field.h"
#include "Paint.h"

#include <array>
#include <string_view>

namespace media {

Texel GreyGranite(Point p);
Texel RoseGranite(Point p);
Texel BluePearlGranite(Point p);
Texel WhiteMarble(Point p);
Texel BlackMarble(Point p);
Texel GreenMarble(Point p);
Texel Travertine(Point p);
Texel Slate(Point p);
Texel Sandstone(Point p);
Texel Terrazzo(Point p);

Texel Facets(Point p);
Texel Lapis(Point p);
Texel Malachite(Point p);
Texel Agate(Point p);
Texel Jade(Point p);
Texel Turquoise(Point p);
Texel TigersEye(Point p);
Texel Opal(Point p);
Texel Amber(Point p);

Texel Oak(Point p);
Texel Walnut(Point p);
Texel Cherry(Point p);
Texel Ebony(Point p);
Texel Pine(Point p);
Texel Parquet(Point p);
Texel Bark(Point p);

Texel BrushedAluminium(Point p);
Texel BrushedBrass(Point p);
Texel HammeredCopper(Point p);
Texel RustedIron(Point p);
Texel Verdigris(Point p);
Texel DiamondPlate(Point p);
Texel DamascusSteel(Point p);
Texel GalvanizedSteel(Point p);
Texel PerforatedSteel(Point p);
Texel GoldLeaf(Point p);

Texel Linen(Point p);
Texel Denim(Point p);
Texel Tartan(Point p);
Texel Burlap(Point p);
Texel KnittedWool(Point p);
Texel BrownLeather(Point p);
Texel CarbonFibre(Point p);
Texel DamaskSilk(Point p);
Texel Wicker(Point p);

Texel CrackedGlaze(Point p);
Texel Terracotta(Point p);
Texel PaintedTiles(Point p);
Texel Mosaic(Point p);
Texel HexTiles(Point p);

Texel BrickWall(Point p);
Texel Cobblestones(Point p);
Texel Concrete(Point p);
Texel Stucco(Point p);
Texel RoofSlates(Point p);

Texel DesertSand(Point p);
Texel WaterRipples(Point p);
Texel Lava(Point p);
Texel Moss(Point p);
Texel Cork(Point p);
Texel Frost(Point p);
Texel HandmadePaper(Point p);
Texel RubberGrain(Point p);

/// Which images a texture has beside its colours.
enum class Companions : unsigned { None = 0, Bump = 1, Specular = 2, BumpAndSpecular = 3 };

[[nodiscard]] constexpr bool Has(Companions companions, Companions one)
{
    return (static_cast<unsigned>(companions) & static_cast<unsigned>(one)) != 0;
}

/// File `name`.jpg, or .png with an alpha channel; companions `name`-bump.png and
/// `name`-specular.png.
struct TextureRow {
    std::string_view name;
    Texel (*paint)(Point);
    Companions companions = Companions::None;
    int size = 512;  ///< pixels, both sides
    bool hasAlpha = false;
};

inline constexpr auto kBump = Companions::Bump;
inline constexpr auto kSpecular = Companions::Specular;
inline constexpr auto kBoth = Companions::BumpAndSpecular;

inline constexpr std::array kTextures{
    TextureRow{"agate", Agate},
    TextureRow{"aluminium-brushed", BrushedAluminium, kBoth},
    TextureRow{"amber", Amber},
    TextureRow{"bark", Bark, kBump},
    TextureRow{"brass-brushed", BrushedBrass, kBoth},
    TextureRow{"brick-wall", BrickWall, kBump},
    TextureRow{"burlap", Burlap, kBump},
    TextureRow{"carbon-fibre", CarbonFibre, kBoth},
    TextureRow{"cherry", Cherry},
    TextureRow{"cobblestones", Cobblestones, kBump},
    TextureRow{"concrete", Concrete, kBump},
    TextureRow{"copper-hammered", HammeredCopper, kBoth},
    TextureRow{"cork", Cork, kBump},
    TextureRow{"damascus-steel", DamascusSteel, kSpecular},
    TextureRow{"damask-silk", DamaskSilk, kSpecular},
    TextureRow{"denim", Denim, kBump},
    TextureRow{"diamond-plate", DiamondPlate, kBoth},
    TextureRow{"ebony", Ebony},
    TextureRow{"facets", Facets, kBump},
    TextureRow{"frost", Frost, kBump},
    TextureRow{"glaze-cracked", CrackedGlaze, kBump},
    TextureRow{"gold-leaf", GoldLeaf, kBoth},
    TextureRow{"granite-blue-pearl", BluePearlGranite},
    TextureRow{"granite-grey", GreyGranite},
    TextureRow{"granite-rose", RoseGranite},
    TextureRow{"hexagon-tiles", HexTiles, kBoth},
    TextureRow{"iron-rusted", RustedIron, kBoth},
    TextureRow{"jade", Jade},
    TextureRow{"lapis-lazuli", Lapis, kSpecular},
    TextureRow{"lava", Lava, kBump},
    TextureRow{"leather-brown", BrownLeather, kBoth},
    TextureRow{"linen", Linen, kBump},
    TextureRow{"malachite", Malachite},
    TextureRow{"marble-black", BlackMarble},
    TextureRow{"marble-green", GreenMarble},
    TextureRow{"marble-white", WhiteMarble},
    TextureRow{"mosaic", Mosaic, kBoth},
    TextureRow{"moss", Moss, kBump},
    TextureRow{"oak", Oak, kBump},
    TextureRow{"opal", Opal, kSpecular},
    TextureRow{"painted-tiles", PaintedTiles, kBoth},
    TextureRow{"paper-handmade", HandmadePaper, kBump},
    TextureRow{"parquet", Parquet, kBump},
    TextureRow{"pine", Pine},
    TextureRow{"roof-slates", RoofSlates, kBump},
    TextureRow{"rubber", RubberGrain, kBump},
    TextureRow{"sand", DesertSand, kBump},
    TextureRow{"sandstone", Sandstone, kBump},
    TextureRow{"slate", Slate, kBoth},
    TextureRow{"steel-galvanized", GalvanizedSteel, kSpecular},
    TextureRow{"steel-perforated", PerforatedSteel, Companions::None, 512, true},
    TextureRow{"stucco", Stucco, kBump},
    TextureRow{"tartan", Tartan, kBump},
    TextureRow{"terracotta", Terracotta, kBump},
    TextureRow{"terrazzo", Terrazzo},
    TextureRow{"tigers-eye", TigersEye, kSpecular},
    TextureRow{"travertine", Travertine, kBump},
    TextureRow{"turquoise", Turquoise, kBump},
    TextureRow{"verdigris", Verdigris, kBoth},
    TextureRow{"walnut", Walnut, kBump},
    TextureRow{"water", WaterRipples, kBump},
    TextureRow{"wicker", Wicker, kBump},
    TextureRow{"wool-knitted", KnittedWool, kBump},
};

}  // namespace media
