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

// The colours of stones and woods are those of rendered samples.
constexpr std::array<LookRow, 31> kStoneLooks{{
    Granite({0xb9b9aa, 0x909083, 0xcac9bd, 0xd3d3c7}),
    Granite({0xbb9e89, 0x90796a, 0xcab596, 0xd5cd9e}),
    Granite({0xb28e83, 0x8a6d64, 0xc4a494, 0xcec2aa}),
    Granite({0xa68368, 0x816452, 0xb99475, 0xcbac81}),
    Granite({0x9e776b, 0x775a52, 0xb78c79, 0xc8a889}),
    Granite({0x87654e, 0x664e3b, 0x9a7560, 0xb39479}),
    Granite({0x684b38, 0x4f392a, 0x75553f, 0x856242}),
    Granite({0xb29889, 0x8c776b, 0xc7aa9a, 0xcdc0a4}),
    Granite({0x8e8e94, 0x6a6a70, 0xaeaca8, 0xc9c9c4}),
    Granite({0xa08583, 0x7a6562, 0xbd9e92, 0xd3c0aa}),
    Stone({0x80634e, 0x5e4939, 0x927768, 0xb19481}),
    Patterned(ColorPattern::Agate, {0x98806f, 0x756154, 0xa68e7c, 0xbfa89a}, 0.4F, 1.2F),
    Stone({0x9e7e70, 0x7a6258, 0xae9080, 0xcaac98}),
    Stone({0x967a68, 0x776150, 0xa98d78, 0xc1a990}),
    Stone({0xab8778, 0x87685d, 0xbe9989, 0xc9b6a3}),
    Stone({0x7d7676, 0x706767, 0x847c7c, 0xa49f9f}),
    Stone({0x98776e, 0x6c524f, 0xab8f85, 0xb7a99f}),
    Granite({0xbdb5af, 0x938c89, 0xdbd4ce, 0xf1f0ef}, 1.6F),
    Stone({0x8d8187, 0x6d6568, 0xaba09c, 0xc5c3c0}),
    Patterned(ColorPattern::Granite, {0x655550, 0x3a312c, 0x947f74, 0xaba39e}, 0.9F, 2.0F),
    Stone({0x997163, 0x715247, 0xaa8871, 0xbaab91}),
    Stone({0xae9286, 0x887269, 0xc0a496, 0xd8c5b6}),
    Stone({0x7c7c81, 0x5a5960, 0x8f8d93, 0xbebec2}),
    Stone({0x907868, 0x695649, 0xb69078, 0xd7bfa1}),
    Stone({0xc3c1c5, 0x646366, 0xe8e9e9, 0xfeffff}),
    Stone({0x979797, 0x848484, 0xa4a4a4, 0xd0d0d0}),
    Stone({0xdee0de, 0x9d9f9d, 0xedeeed, 0xfdfefd}),
    Stone({0x4a9787, 0x567d75, 0x69a595, 0xb2beba}),
    Granite({0xa69885, 0x806d5d, 0xc4b1a2, 0xd2d2d3}, 1.6F),
    Stone({0x75594a, 0x534036, 0x8f6e5b, 0xb3aba6}),
    Patterned(ColorPattern::Bozo, {0x988787, 0x6e6464, 0xae9a9a, 0xcab0b0}, 0.6F, 1.2F),
}};

constexpr LookRow WoodLook(Colours colours, float size, float turbulence = 0.12F)
{
    return Patterned(ColorPattern::Wood, colours, turbulence, size);
}

constexpr std::array<LookRow, 5> kWoodLooks{{
    WoodLook({0x8c4c32, 0x693723, 0xa86643, 0xc88b5c}, 0.5F),
    WoodLook({0x351c13, 0x28120c, 0x432418, 0x70402a}, 0.45F),
    WoodLook({0x9c7527, 0x75490f, 0xb6943a, 0xc4a946}, 0.6F, 0.2F),
    WoodLook({0x47261a, 0x000000, 0x552e21, 0x663828}, 0.45F, 0.25F),
    WoodLook({0x877758, 0x6a593f, 0x9e8c6a, 0xb09e83}, 0.35F, 0.3F),
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

SketchLook SketchOf(std::int32_t type, std::int32_t index)
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
