#include "raytrace/SketchLook.h"

#include <span>

namespace CorvexMaterial {

namespace {

/// 0xRRGGBB, as a person writes it.
constexpr Colour Written(std::uint32_t colour)
{
    return MakeColour({static_cast<int>(colour >> 16U), static_cast<int>((colour >> 8U) & 0xFFU),
                       static_cast<int>(colour & 0xFFU)});
}

struct LookRow {
    std::array<std::uint32_t, 4> colours;
    ColorPattern pattern = ColorPattern::None;
    float turbulence = 0.0F;
    float size = 1.0F;
    float reflection = 0.0F;
    float clearness = 0.0F;
    NormalPattern normal = NormalPattern::None;
    float normalDepth = 0.0F;
    float normalSize = 0.2F;
};

constexpr LookRow Glass(std::uint32_t colour, float clearness = 0.9F,
                        NormalPattern normal = NormalPattern::None)
{
    return {{colour, colour, colour, colour},
            ColorPattern::None,
            0.0F,
            1.0F,
            0.2F,
            clearness,
            normal,
            0.15F,
            0.35F};
}

constexpr LookRow Metal(std::uint32_t colour, float reflection,
                        NormalPattern normal = NormalPattern::None, float depth = 0.4F,
                        float size = 0.1F)
{
    return {{colour, colour, colour, colour},
            ColorPattern::None,
            0.0F,
            1.0F,
            reflection,
            0.0F,
            normal,
            depth,
            size};
}

using Colours = std::array<std::uint32_t, 4>;

constexpr LookRow Patterned(ColorPattern pattern, Colours colours, float turbulence, float size)
{
    return {colours, pattern, turbulence, size, 0.04F};
}

constexpr LookRow Granite(Colours colours, float size = 0.9F)
{
    return Patterned(ColorPattern::Granite, colours, 0.3F, size);
}

constexpr LookRow Stone(Colours colours, float size = 1.6F)
{
    return Patterned(ColorPattern::Marble, colours, 0.75F, size);
}

constexpr std::array<LookRow, 13> kGlassLooks{{
    Glass(0xf8fafa),
    Glass(0xeef4f0),
    Glass(0xf2f6fa),
    Glass(0xfafafa, 0.95F),
    Glass(0x9fe0b0),
    Glass(0x3f9a5a),
    Glass(0xd2e6d4, 0.85F, NormalPattern::Bumps),
    Glass(0x6fa06a),
    Glass(0xb0762c),
    Glass(0xd8303c),
    Glass(0xf2e060),
    Glass(0xf29040),
    Glass(0x3c50c8),
}};

constexpr std::array<LookRow, 23> kMetalLooks{{
    Metal(0xb4bac0, 0.65F),
    Metal(0xc8a040, 0.5F),
    Metal(0x9a6a3c, 0.45F),
    Metal(0xe0b040, 0.55F),
    Metal(0xd8d8dc, 0.6F),
    Metal(0xc0704a, 0.5F),
    Metal(0xd0d6dc, 0.85F),
    Metal(0xdcb050, 0.75F),
    Metal(0xe4c060, 0.55F),
    Metal(0xd0a848, 0.4F, NormalPattern::Waves, 0.5F, 0.12F),
    Metal(0xc0c4c8, 0.45F, NormalPattern::Bumps, 0.6F, 0.04F),
    Metal(0xcfcfd4, 0.5F),
    Metal(0xd6d6da, 0.6F),
    Metal(0xc6c6cc, 0.7F),
    Metal(0xb89038, 0.6F, NormalPattern::Dents),
    {{0x4a2a18, 0x8a4420, 0x6a3418, 0x2c1c14}, ColorPattern::Granite, 0.4F, 0.8F},
    {{0x4c4c4e, 0x3a3a3c, 0x7a4426, 0x5a3a26}, ColorPattern::Granite, 0.6F, 1.4F, 0.05F},
    Metal(0xdedee2, 0.3F),
    {{0xc87850, 0xb86040, 0x6a8a70, 0xc87850}, ColorPattern::Leopard, 0.2F, 0.8F, 0.3F},
    Metal(0xc0a860, 0.35F, NormalPattern::Dents, 0.3F, 0.2F),
    Metal(0xe8b83c, 0.5F, NormalPattern::Bumps, 0.9F, 0.35F),
    Metal(0xc8ccd0, 0.4F),
    Metal(0xb87c48, 0.6F),
}};

constexpr std::array<LookRow, 31> kStoneLooks{{
    Granite({0x8a8078, 0xb4a898, 0x6e665e, 0xc8c0b4}),
    Granite({0xe8e0cc, 0xd0c8a8, 0xb8b4a8, 0xf2ecdc}),
    Granite({0xdccab0, 0xd8b0a4, 0xd0b8c8, 0xb89c78}),
    Granite({0xb09878, 0x8c8458, 0xcca898, 0xe0d0b4}),
    Granite({0xc8a8c0, 0xd0bc98, 0x9c7c94, 0xe4d8c8}),
    Granite({0xa4808c, 0xb87878, 0xdcc8a8, 0x8a6874}),
    Granite({0x8c7484, 0x70404c, 0x584c58, 0xa898a0}),
    Granite({0x707880, 0x98a0a8, 0x484e56, 0xc0c6cc}),
    Granite({0x30483c, 0x203028, 0x587058, 0x84948c}),
    Granite({0x3c3438, 0x6c5c54, 0x201c20, 0x988878}),
    Stone({0xa04c5c, 0x487858, 0xe8e0dc, 0x70404c}),
    Patterned(ColorPattern::Agate, {0xb0b090, 0xc8c4a4, 0x90987c, 0xdcd8c0}, 0.4F, 1.2F),
    Stone({0xd09090, 0xd8c080, 0xece8e8, 0xc08080}),
    Stone({0xc8ac84, 0xd0a090, 0xb89870, 0xe0ccac}),
    Stone({0xf0e8dc, 0xe4c0bc, 0xf4eee4, 0xd8a8a8}),
    Stone({0xd8a090, 0xe8d8a8, 0xc89080, 0xf0e4c8}),
    Stone({0xb89878, 0x947454, 0xc8ac8c, 0x7c5c40}),
    Granite({0x808488, 0xa8acb0, 0xe8eaec, 0x5c6064}, 1.6F),
    Stone({0xeaeef4, 0xa8bcd8, 0xc8b8dc, 0xf4f6fa}),
    Patterned(ColorPattern::Granite, {0x4c3424, 0xa48460, 0x6c6460, 0x80604a}, 0.9F, 2.0F),
    Stone({0xd89c9c, 0xf0e8e4, 0x9c7850, 0xe4bcb8}),
    Stone({0xf2ece8, 0xdcbca8, 0xece0d8, 0xd0a898}),
    Stone({0x7888a0, 0x98a8bc, 0x5c6c84, 0xb0bccc}),
    Stone({0xb09c74, 0x787850, 0xdcdcd4, 0x948860}),
    Stone({0x404448, 0x606468, 0xe4e6e8, 0x303438}),
    Stone({0xe8b48c, 0xe8d898, 0xf4f0e8, 0xdca078}),
    Stone({0xf0f0ee, 0xe4e4e4, 0x90949a, 0xf6f6f4}),
    Stone({0x4c8c68, 0x68a880, 0xe4f0e8, 0x306c4c}),
    Granite({0xe4b498, 0xf0d4c0, 0xf4f0ea, 0x6c8868}, 1.6F),
    Stone({0x6c5038, 0x787048, 0xece8dc, 0x543c28}),
    Patterned(ColorPattern::Bozo, {0xe8c4bc, 0xf2dcd6, 0xdcb0a8, 0xf6e8e2}, 0.6F, 1.2F),
}};

constexpr LookRow WoodLook(Colours colours, float size, float turbulence = 0.12F)
{
    return Patterned(ColorPattern::Wood, colours, turbulence, size);
}

constexpr std::array<LookRow, 5> kWoodLooks{{
    WoodLook({0xa8703c, 0x8c5828, 0xb88048, 0x70441c}, 0.5F),
    WoodLook({0xc89c64, 0xa87c48, 0xd4ac78, 0x906434}, 0.45F),
    WoodLook({0xe4c080, 0xd4a860, 0xecd098, 0xc09048}, 0.6F, 0.2F),
    WoodLook({0x5c2418, 0x401810, 0x743020, 0x2c100c}, 0.45F, 0.25F),
    WoodLook({0x9c7450, 0x845c3c, 0xac8460, 0x6c4a30}, 0.35F, 0.3F),
}};

constexpr std::array<LookRow, 8> kMiscellaneousLooks{{
    Patterned(ColorPattern::Bozo, {0x3c5ca0, 0x8ca4d0, 0xe8ecf4, 0x9098a4}, 0.7F, 1.5F),
    Patterned(ColorPattern::Bozo, {0x3468c0, 0x5c8cd8, 0xd8e4f4, 0xffffff}, 0.65F, 1.3F),
    {{0xa8d8e8, 0xa8d8e8, 0xa8d8e8, 0xa8d8e8},
     ColorPattern::None,
     0.0F,
     1.0F,
     0.35F,
     0.8F,
     NormalPattern::Ripples,
     0.35F,
     0.22F},
    {{0x70b8c8, 0x70b8c8, 0x70b8c8, 0x70b8c8},
     ColorPattern::None,
     0.0F,
     1.0F,
     0.35F,
     0.7F,
     NormalPattern::Waves,
     0.5F,
     0.25F},
    Patterned(ColorPattern::Granite, {0xc89c6c, 0xa87844, 0xd8b080, 0x7c5430}, 0.0F, 0.7F),
    Patterned(ColorPattern::Marble, {0x000000, 0x100c30, 0x5848c8, 0xf4f0ff}, 0.9F, 2.4F),
    Patterned(ColorPattern::Marble, {0x000000, 0x300c10, 0xc85848, 0xfff4e0}, 0.9F, 2.0F),
    Patterned(ColorPattern::Dents, {0x000004, 0x02020a, 0x040410, 0xffffff}, 0.0F, 0.12F),
}};

std::span<const LookRow> LooksOf(std::int32_t type)
{
    constexpr std::array<std::span<const LookRow>, 5> kTypes{kGlassLooks, kMetalLooks, kStoneLooks,
                                                             kWoodLooks, kMiscellaneousLooks};
    const auto index = static_cast<std::size_t>(type);
    return type >= 0 && index < kTypes.size() ? kTypes[index] : std::span<const LookRow>();
}

}  // namespace

SketchLook PredefinedLook(std::int32_t type, std::int32_t index)
{
    SketchLook look;
    look.colours.fill(LinearOf(kWhite));
    look.glow = 0.12F;
    look.highlight = 0.5F;
    const std::span<const LookRow> rows = LooksOf(type);
    if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) {
        return look;
    }
    const LookRow& row = rows[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < look.colours.size(); ++i) {
        look.colours[i] = LinearOf(Written(row.colours[i]));
    }
    look.pattern = row.pattern;
    look.patternSetting = {1.0F, row.turbulence, row.size};
    look.normal = row.normal;
    look.normalSetting = {1.0F, 0.0F, row.normalSize};
    look.normalDepth = row.normalDepth;
    look.reflection = row.reflection;
    look.clearness = row.clearness;
    look.metallic = type == static_cast<std::int32_t>(PredefinedType::Metal);
    look.shininess = look.reflection > 0.1F ? 120.0F : 40.0F;
    return look;
}

}  // namespace CorvexMaterial
