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
    Granite({0xc0c0b9, 0xacaca5, 0xcac9c2, 0xd3d3c7}),
    Granite({0xc1b3a8, 0xac9f96, 0xcabeaf, 0xd5cdb3}),
    Granite({0xbdaba5, 0xa99892, 0xc5b6ae, 0xcec4b9}),
    Granite({0xb8a696, 0xa59387, 0xc1af9e, 0xcbbba5}),
    Granite({0xb29d96, 0x9d8b85, 0xbea99e, 0xc8b7a7}),
    Granite({0xa69282, 0x938273, 0xb09c8f, 0xbcad9e}),
    Granite({0x958171, 0x847264, 0x9d8877, 0xa6917a}),
    Granite({0xbdb0a8, 0xaa9e97, 0xc7b9b1, 0xcdc3b6}),
    Granite({0xababae, 0x96969a, 0xbbbab8, 0xc9c9c5}),
    Granite({0xb4a6a5, 0xa09391, 0xc2b3ad, 0xd3c3b9}),
    Stone({0xa08f81, 0x8c7d70, 0xaa9b92, 0xb9aba1}),
    Patterned(ColorPattern::Agate, {0xb1a49a, 0x9e9188, 0xb8aca2, 0xc4b9b2}, 0.4F, 1.2F),
    Stone({0xb4a39b, 0xa1928b, 0xbcada4, 0xcabbb1}),
    Stone({0xac9d92, 0x9b8e82, 0xb5a79c, 0xc1b5a9}),
    Stone({0xb5a39b, 0xa3918a, 0xbeaca4, 0xc9bab1}),
    Stone({0x7d7676, 0x706767, 0x847c7c, 0xa49f9f}),
    Stone({0x9f8f8a, 0x897977, 0xab9b96, 0xb7a9a2}),
    Granite({0xd2cecb, 0xbcb8b6, 0xe0ddda, 0xf1f0ef}, 1.6F),
    Stone({0xa7a1a4, 0x959092, 0xb6b1af, 0xc5c3c0}),
    Patterned(ColorPattern::Granite, {0x7d7471, 0x625b57, 0x948a85, 0xaba39e}, 0.9F, 2.0F),
    Stone({0xa18d85, 0x8d7a73, 0xaa998d, 0xbaab9d}),
    Stone({0xc2b4ad, 0xaea19b, 0xcbbdb6, 0xd8cdc6}),
    Stone({0xa8a8ab, 0x929196, 0xb3b2b5, 0xcbcbcd}),
    Stone({0xb0a298, 0x998c82, 0xc3b0a2, 0xd7c7b9}),
    Stone({0xd3d2d4, 0x9d9c9e, 0xe8e9e9, 0xfeffff}),
    Stone({0x979797, 0x848484, 0xa4a4a4, 0xd0d0d0}),
    Stone({0xdee0de, 0x9d9f9d, 0xedeeed, 0xfdfefd}),
    Stone({0x599787, 0x5f7d75, 0x69a595, 0xb2beba}),
    Granite({0xb6afa5, 0xa2978d, 0xc4bbb4, 0xd2d2d3}, 1.6F),
    Stone({0x8f7f75, 0x7b6e66, 0x9c8b80, 0xb3aba7}),
    Patterned(ColorPattern::Bozo, {0xb3aaaa, 0x9b9595, 0xbeb4b4, 0xcbbfbf}, 0.6F, 1.2F),
}};

constexpr LookRow WoodLook(Colours colours, float size, float turbulence = 0.12F)
{
    return Patterned(ColorPattern::Wood, colours, turbulence, size);
}

constexpr std::array<LookRow, 5> kWoodLooks{{
    WoodLook({0xa8806a, 0x946f5b, 0xb69279, 0xc8a78b}, 0.5F),
    WoodLook({0x6a5044, 0x5d4238, 0x75594b, 0x93735f}, 0.45F),
    WoodLook({0xaf9a5f, 0x9a7d3e, 0xbbab71, 0xc4b57b}, 0.6F, 0.2F),
    WoodLook({0x876656, 0x060302, 0x926f5f, 0x9e7968}, 0.45F, 0.25F),
    WoodLook({0xa79e8a, 0x968b77, 0xb3aa96, 0xbcb3a5}, 0.35F, 0.3F),
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
