#include "Materials.h"

#include "Textures.h"

#include <array>

namespace media {
namespace {

/// How a texture lies on a shape. A ball is twice as long around as from pole to pole, so half an
/// image's height keeps its proportions there.
struct Lay {
    CorvexDB::WrapType wrap = CorvexDB::WrapType::Spherical;
    float heightShare = 1.0F;
    float tilesPerUnit = 1.0F;
};

constexpr Lay kWhole{};
constexpr Lay kAround{CorvexDB::WrapType::Spherical, 0.5F};
constexpr Lay kBlock{CorvexDB::WrapType::Flat, 1.0F, 0.5F};  // as if cut from it

/// What a raytracer makes of it.
enum class Finish { Dull, Satin, Polished, Metal, Mirror, Clear };

struct Amounts {
    int ambient;
    int emissive;
    int specular;
    int transparency = 0;
};

struct Row {
    std::string_view name;
    std::uint32_t colour;  ///< 0xRRGGBB
    Amounts amounts;       ///< per cent
    Finish finish;
    std::string_view texture = {};  ///< with all its companions
    Lay lay = kWhole;
    std::string_view environment = {};
    bool doubleSided = false;
};

constexpr std::string_view kStudio = "studio-lights";
constexpr std::string_view kSky = "open-sky";
constexpr std::string_view kSunset = "sunset";

constexpr std::array kRows{
    // Gems
    Row{"Ruby", 0xFF1136, {60, 38, 100}, Finish::Clear, "facets", kAround, kStudio},
    Row{"Emerald", 0x0CC860, {60, 36, 100}, Finish::Clear, "facets", kAround, kStudio},
    Row{"Sapphire", 0x1C50FF, {60, 38, 100}, Finish::Clear, "facets", kAround, kStudio},
    Row{"Amethyst", 0xB24CFF, {60, 36, 100}, Finish::Clear, "facets", kAround, kStudio},
    Row{"Citrine", 0xFFBE1E, {60, 34, 100}, Finish::Clear, "facets", kAround, kSunset},
    Row{"Diamond", 0xF6FAFF, {50, 30, 100, 30}, Finish::Clear, "facets", kAround, kSky},
    Row{"Amber", 0xFFFFFF, {60, 28, 90, 12}, Finish::Clear, "amber", kAround, kSunset},
    Row{"Jade", 0xFFFFFF, {60, 14, 75}, Finish::Polished, "jade", kAround},
    Row{"Lapis Lazuli", 0xFFFFFF, {40, 8, 70}, Finish::Polished, "lapis-lazuli", kAround},
    Row{"Malachite", 0xFFFFFF, {40, 8, 80}, Finish::Polished, "malachite", kAround},
    Row{"Turquoise", 0xFFFFFF, {40, 10, 60}, Finish::Polished, "turquoise", kAround},
    Row{"Tiger's Eye", 0xFFFFFF, {30, 12, 100}, Finish::Polished, "tigers-eye", kBlock},
    Row{"Agate", 0xFFFFFF, {40, 10, 85}, Finish::Polished, "agate", kAround},
    Row{"Opal", 0xFFFFFF, {40, 16, 100}, Finish::Polished, "opal", kAround, kStudio},
    Row{"Pearl", 0xF4ECE2, {60, 12, 55}, Finish::Polished, {}, kWhole, kSunset},

    // Metals
    Row{"Gold", 0xFFB41E, {5, 8, 100}, Finish::Mirror, {}, kWhole, kSunset},
    Row{"Silver", 0x94979A, {10, 0, 100}, Finish::Mirror, {}, kWhole, kStudio},
    Row{"Chrome", 0x5C636B, {0, 0, 100}, Finish::Mirror, {}, kWhole, kSky},
    Row{"Black Chrome", 0x16181B, {0, 0, 100}, Finish::Mirror, {}, kWhole, kStudio},
    Row{"Brushed Brass", 0xFFFFFF, {15, 4, 90}, Finish::Metal, "brass-brushed", kAround, kSunset},
    Row{"Brushed Aluminium",
        0xFFFFFF,
        {15, 4, 90},
        Finish::Metal,
        "aluminium-brushed",
        kAround,
        kStudio},
    Row{"Hammered Copper",
        0xFFFFFF,
        {15, 6, 100},
        Finish::Metal,
        "copper-hammered",
        kBlock,
        kSunset},
    Row{"Gold Leaf", 0xFFFFFF, {20, 8, 90}, Finish::Metal, "gold-leaf", kBlock, kSunset},
    Row{"Damascus Steel",
        0xFFFFFF,
        {15, 4, 100},
        Finish::Metal,
        "damascus-steel",
        kAround,
        kStudio},
    Row{"Galvanized Steel", 0xFFFFFF, {25, 4, 70}, Finish::Metal, "steel-galvanized", kAround},
    Row{"Diamond Plate", 0xFFFFFF, {20, 4, 80}, Finish::Metal, "diamond-plate", kBlock},
    Row{"Perforated Steel",
        0xFFFFFF,
        {25, 4, 80},
        Finish::Metal,
        "steel-perforated",
        kAround,
        {},
        true},
    Row{"Rusted Iron", 0xFFFFFF, {35, 4, 55}, Finish::Dull, "iron-rusted", kAround},
    Row{"Aged Bronze", 0xFFFFFF, {35, 4, 70}, Finish::Satin, "verdigris", kAround},

    // Stones
    Row{"Grey Granite", 0xFFFFFF, {40, 4, 55}, Finish::Polished, "granite-grey", kBlock},
    Row{"Rose Granite", 0xFFFFFF, {40, 4, 55}, Finish::Polished, "granite-rose", kBlock},
    Row{"Blue Pearl Granite",
        0xFFFFFF,
        {40, 6, 80},
        Finish::Polished,
        "granite-blue-pearl",
        kBlock},
    Row{"White Marble", 0xFFFFFF, {50, 4, 60}, Finish::Polished, "marble-white", kAround},
    Row{"Black Marble", 0xFFFFFF, {40, 4, 90}, Finish::Polished, "marble-black", kBlock, kStudio},
    Row{"Green Marble", 0xFFFFFF, {40, 6, 80}, Finish::Polished, "marble-green", kAround},
    Row{"Travertine", 0xFFFFFF, {45, 4, 15}, Finish::Satin, "travertine", kAround},
    Row{"Sandstone", 0xFFFFFF, {45, 4, 0}, Finish::Dull, "sandstone", kAround},
    Row{"Slate", 0xFFFFFF, {40, 4, 25}, Finish::Dull, "slate", kAround},
    Row{"Terrazzo", 0xFFFFFF, {45, 4, 65}, Finish::Polished, "terrazzo", kBlock},
    Row{"Concrete", 0xFFFFFF, {45, 4, 0}, Finish::Dull, "concrete", kAround},
    Row{"Brick Wall", 0xFFFFFF, {45, 4, 0}, Finish::Dull, "brick-wall", kAround},
    Row{"Cobblestones", 0xFFFFFF, {45, 4, 20}, Finish::Dull, "cobblestones", kBlock},

    // Woods
    Row{"Oak", 0xFFFFFF, {45, 4, 15}, Finish::Satin, "oak", kBlock},
    Row{"Walnut", 0xFFFFFF, {45, 4, 30}, Finish::Satin, "walnut", kBlock},
    Row{"Lacquered Cherry", 0xFFFFFF, {40, 4, 90}, Finish::Polished, "cherry", kBlock},
    Row{"Ebony", 0xFFFFFF, {40, 4, 60}, Finish::Satin, "ebony", kBlock},
    Row{"Pine", 0xFFFFFF, {45, 4, 20}, Finish::Satin, "pine", kBlock},
    Row{"Parquet", 0xFFFFFF, {40, 4, 45}, Finish::Satin, "parquet", kBlock},
    Row{"Cork", 0xFFFFFF, {45, 4, 0}, Finish::Dull, "cork", kBlock},

    // Plastics and rubber
    Row{"ABS Red", 0xC81E1E, {45, 4, 85}, Finish::Polished},
    Row{"ABS Yellow", 0xF2B705, {45, 4, 85}, Finish::Polished},
    Row{"ABS Blue", 0x1254B4, {45, 4, 85}, Finish::Polished},
    Row{"Polished Acrylic", 0x101113, {20, 0, 100}, Finish::Polished, {}, kWhole, kStudio},
    Row{"Rubber", 0xFFFFFF, {40, 4, 20}, Finish::Dull, "rubber", kAround},
    Row{"Carbon Fibre", 0xFFFFFF, {30, 2, 100}, Finish::Polished, "carbon-fibre", kBlock, kStudio},

    // Glass and water
    Row{"Clear Glass", 0xE6F2F0, {10, 0, 100, 85}, Finish::Clear, {}, kWhole, kStudio, true},
    Row{"Bottle Glass", 0x1F6B34, {20, 4, 100, 45}, Finish::Clear, {}, kWhole, kStudio, true},
    Row{"Cobalt Glass", 0x1B35B8, {20, 6, 100, 40}, Finish::Clear, {}, kWhole, kSky, true},
    Row{"Frosted Glass", 0xDDEBF0, {60, 10, 35, 30}, Finish::Clear, "frost", kAround, {}, true},
    Row{"Water", 0xFFFFFF, {40, 6, 100, 20}, Finish::Clear, "water", kAround, kSky},

    // Ceramics
    Row{"Porcelain", 0xFFFDF8, {80, 14, 100}, Finish::Polished, {}, kWhole, kStudio},
    Row{"Celadon", 0xFFFFFF, {45, 6, 95}, Finish::Polished, "glaze-cracked", kAround},
    Row{"Terracotta", 0xFFFFFF, {45, 4, 0}, Finish::Dull, "terracotta", kAround},
    Row{"Painted Tiles", 0xFFFFFF, {45, 4, 90}, Finish::Polished, "painted-tiles", kBlock},
    Row{"Hexagon Tiles", 0xFFFFFF, {45, 4, 90}, Finish::Polished, "hexagon-tiles", kBlock},
    Row{"Mosaic", 0xFFFFFF, {40, 6, 100}, Finish::Polished, "mosaic", kBlock},

    // Fabrics
    Row{"Linen", 0xFFFFFF, {55, 4, 0}, Finish::Dull, "linen", kAround},
    Row{"Denim", 0xFFFFFF, {50, 4, 0}, Finish::Dull, "denim", kAround},
    Row{"Tartan", 0xFFFFFF, {50, 6, 0}, Finish::Dull, "tartan", kBlock},
    Row{"Knitted Wool", 0xFFFFFF, {50, 6, 0}, Finish::Dull, "wool-knitted", kAround},
    Row{"Damask Silk", 0xFFFFFF, {40, 6, 60}, Finish::Satin, "damask-silk", kBlock},
    Row{"Brown Leather", 0xFFFFFF, {45, 4, 45}, Finish::Satin, "leather-brown", kAround},
    Row{"Wicker", 0xFFFFFF, {45, 4, 20}, Finish::Satin, "wicker", kAround},

    // Nature
    Row{"Lava", 0xFFFFFF, {40, 55, 0}, Finish::Dull, "lava", kBlock},
    Row{"Moss", 0xFFFFFF, {50, 4, 0}, Finish::Dull, "moss", kAround},
    Row{"Desert Sand", 0xFFFFFF, {45, 4, 0}, Finish::Dull, "sand", kAround},
};

/// By `Finish`: how brilliant, mirroring and rough, and whether a metal.
struct Tracing {
    float brilliance;
    float reflection;
    float roughness;
    bool metallic = false;
};
constexpr std::array<Tracing, 6> kTracing{{{2.0F, 0.0F, 9.0F},
                                           {3.0F, 0.0F, 6.0F},
                                           {4.0F, 1.0F, 2.0F},
                                           {6.0F, 2.0F, 4.0F, true},
                                           {7.0F, 6.0F, 2.0F, true},
                                           {5.0F, 2.0F, 1.0F}}};

CorvexMaterial::Colour ColourOf(std::uint32_t rgb)
{
    return CorvexMaterial::MakeColour({static_cast<int>((rgb >> 16) & 0xFFU),
                                       static_cast<int>((rgb >> 8) & 0xFFU),
                                       static_cast<int>(rgb & 0xFFU)});
}

void SetTextures(CorvexDB::TextureFiles& files, const Row& row, const std::string& folder)
{
    const std::string base = folder + "/Textures/" + std::string(row.texture);
    for (const TextureRow& texture : kTextures) {
        if (texture.name == row.texture) {
            files.primary = base + (texture.hasAlpha ? ".png" : ".jpg");
            files.bump = Has(texture.companions, Companions::Bump) ? base + "-bump.png" : "";
            files.specular =
                Has(texture.companions, Companions::Specular) ? base + "-specular.png" : "";
        }
    }
    if (!row.environment.empty()) {
        files.environment = folder + "/Environments/" + std::string(row.environment) + ".jpg";
    }
}

CorvexDB::udtMaterial MaterialOf(const Row& row, const std::string& folder)
{
    CorvexDB::udtMaterial material;
    material.Color = ColourOf(row.colour);
    material.Ambient = row.amounts.ambient;
    material.Emissive = row.amounts.emissive;
    material.Specular = row.amounts.specular;
    material.Transparency = row.amounts.transparency;
    material.DoubleSided = row.doubleSided;
    material.Wrap = row.lay.wrap;
    material.FlatWrap = CorvexDB::FlatWrapType::TileToFit;
    material.TilesPerUnit = row.lay.tilesPerUnit;
    material.Placement.scaleV = row.lay.heightShare;
    SetTextures(material.Textures, row, folder);
    const Tracing& tracing = kTracing[static_cast<std::size_t>(row.finish)];
    material.RayTrace.Brilliance = tracing.brilliance;
    material.RayTrace.Reflection = tracing.reflection;
    material.RayTrace.Roughness = tracing.roughness;
    material.RayTrace.Metallic = tracing.metallic;
    return material;
}

}  // namespace

std::vector<LibraryMaterial> ShippedMaterials(const std::string& folder)
{
    std::vector<LibraryMaterial> materials;
    for (const Row& row : kRows) {
        materials.push_back({std::string(row.name), MaterialOf(row, folder)});
    }
    return materials;
}

}  // namespace media
