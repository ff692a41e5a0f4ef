#include "studio/raytrace/povray/PovRayCatalogue.h"

#include <array>
#include <span>

namespace studio {
namespace {

constexpr std::array kGlass{
    PovRayMaterial{"textures.inc", "M_Glass"},
    PovRayMaterial{"textures.inc", "M_NB_Glass"},
    PovRayMaterial{"textures.inc", "M_Glass2"},
    PovRayMaterial{"textures.inc", "M_Glass3"},
    PovRayMaterial{"textures.inc", "M_Green_Glass"},
    PovRayMaterial{"textures.inc", "M_Dark_Green_Glass"},
    PovRayMaterial{"textures.inc", "M_NB_Old_Glass"},
    PovRayMaterial{"textures.inc", "M_NB_Winebottle_Glass"},
    PovRayMaterial{"textures.inc", "M_NB_Beerbottle_Glass"},
    PovRayMaterial{"textures.inc", "M_Ruby_Glass"},
    PovRayMaterial{"textures.inc", "M_Yellow_Glass"},
    PovRayMaterial{"textures.inc", "M_Orange_Glass"},
    PovRayMaterial{"textures.inc", "M_Vicks_Bottle_Glass"},
};
constexpr std::array kMetal{
    PovRayMaterial{"textures.inc", "texture { Chrome_Metal }"},
    PovRayMaterial{"textures.inc", "texture { Brass_Metal }"},
    PovRayMaterial{"textures.inc", "texture { Bronze_Metal }"},
    PovRayMaterial{"textures.inc", "texture { Gold_Metal }"},
    PovRayMaterial{"textures.inc", "texture { Silver_Metal }"},
    PovRayMaterial{"textures.inc", "texture { Copper_Metal }"},
    PovRayMaterial{"textures.inc", "texture { Polished_Chrome }"},
    PovRayMaterial{"textures.inc", "texture { Polished_Brass }"},
    PovRayMaterial{"textures.inc", "texture { New_Brass }"},
    PovRayMaterial{"textures.inc", "texture { Spun_Brass }", 12.0F},
    PovRayMaterial{"textures.inc", "texture { Brushed_Aluminum }", 4.0F},
    PovRayMaterial{"textures.inc", "texture { Silver1 }"},
    PovRayMaterial{"textures.inc", "texture { Silver2 }"},
    PovRayMaterial{"textures.inc", "texture { Silver3 }"},
    PovRayMaterial{"textures.inc", "texture { Brass_Valley }"},
    PovRayMaterial{"textures.inc", "texture { Rust }"},
    PovRayMaterial{"textures.inc", "texture { Rusty_Iron }"},
    PovRayMaterial{"textures.inc", "texture { Soft_Silver }"},
    PovRayMaterial{"textures.inc", "texture { New_Penny }"},
    PovRayMaterial{"textures.inc", "texture { Tinny_Brass }"},
    PovRayMaterial{"textures.inc", "texture { Gold_Nugget }"},
    PovRayMaterial{"textures.inc", "texture { Aluminum }"},
    PovRayMaterial{"textures.inc", "texture { Bright_Bronze }"},
};
constexpr std::array kStone{
    PovRayMaterial{"stones1.inc", "texture { T_Grnt1 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt2 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt3 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt4 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt5 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt6 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt7 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt8 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt9 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Grnt10 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone1 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone2 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone3 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone4 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone5 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone6 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone7 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone8 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone9 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone10 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone11 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone12 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone13 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone14 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone15 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone16 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone17 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone18 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone19 }"},
    PovRayMaterial{"stones1.inc", "texture { T_Stone20 }"},
    PovRayMaterial{"textures.inc", "texture { PinkAlabaster }"},
};
constexpr std::array kWood{
    PovRayMaterial{"woods.inc", "texture { T_Wood1 }"},
    PovRayMaterial{"woods.inc", "texture { T_Wood2 }"},
    PovRayMaterial{"textures.inc", "texture { Yellow_Pine }"},
    PovRayMaterial{"textures.inc", "texture { Rosewood }"},
    PovRayMaterial{"textures.inc", "texture { Sandalwood }"},
};
constexpr std::array kMiscellaneous{
    PovRayMaterial{"textures.inc", "texture { Shadow_Clouds }"},
    PovRayMaterial{
        "textures.inc",
        "texture { pigment { rgb <0.15, 0.35, 0.75> } finish { ambient 0.7 diffuse 0.2 } } "
        "texture { pigment { Clouds scale 0.5 turbulence 0.5 } finish { ambient 0.9 diffuse 0.1 } "
        "}"},
    PovRayMaterial{"textures.inc", "M_Water"},
    PovRayMaterial{
        "textures.inc",
        "texture { Water pigment { rgbf <0.1, 0.4, 0.5, 0.85> } normal { waves 0.4 frequency 3 } } "
        "interior { Water_Int }"},
    PovRayMaterial{"textures.inc", "texture { Cork }"},
    PovRayMaterial{"textures.inc", "texture { pigment { rgb 0 } } texture { Lightning1 }"},
    PovRayMaterial{"textures.inc", "texture { pigment { rgb 0 } } texture { Lightning2 }"},
    PovRayMaterial{"textures.inc", "texture { Starfield }"},
};
static_assert(kGlass.size() + kMetal.size() + kStone.size() + kWood.size() +
                  kMiscellaneous.size() ==
              80);

constexpr std::array kColourPatterns{
    PovRayPattern{"agate", false, 0.5F},
    PovRayPattern{"boxed", false, 1.2F},
    PovRayPattern{"bozo", false, 0.35F},
    PovRayPattern{"cells", false, 0.35F},
    PovRayPattern{"checker", true, 0.35F},
    PovRayPattern{"crackle", false, 0.4F},
    PovRayPattern{"cylindrical", false, 1.5F},
    PovRayPattern{"dents", false, 0.3F},
    PovRayPattern{"gradient y", false, 2.0F, {0.0F, -1.0F, 0.0F}},
    PovRayPattern{"granite", false, 0.6F},
    PovRayPattern{"leopard", false, 0.12F},
    PovRayPattern{"marble", false, 0.5F},
    PovRayPattern{"onion", false, 0.35F, {0.6F, 0.5F, -0.6F}},
    PovRayPattern{"planar", false, 1.0F},
    PovRayPattern{"quilted", false, 0.4F},
    PovRayPattern{"radial", false, 1.0F},
    PovRayPattern{"ripples", false, 0.35F},
    PovRayPattern{"spherical", false, 2.0F, {0.5F, 0.6F, -0.7F}},
    PovRayPattern{"spiral1 5", false, 0.6F},
    PovRayPattern{"spiral2 5", false, 0.6F},
    PovRayPattern{"waves", false, 0.35F},
    PovRayPattern{"wood", false, 0.4F},
    PovRayPattern{"wrinkles", false, 0.5F},
};
constexpr std::array kNormalPatterns{
    PovRayPattern{"bumps", false, 1.0F, {}, 0.5F},
    PovRayPattern{"dents", false, 0.6F, {}, 1.5F},
    PovRayPattern{"ripples", false, 4.0F, {}, 3.0F, 7.0F},
    PovRayPattern{"wrinkles", false, 1.0F, {}, 0.4F},
    PovRayPattern{"bozo", false, 0.5F, {}, 1.0F},
    PovRayPattern{"pigment_pattern { checker rgb 0 rgb 1 }", true, 1.0F, {}, 0.6F},
    PovRayPattern{"crackle", false, 1.0F, {}, 0.6F},
    PovRayPattern{"granite", false, 1.0F, {}, 0.5F},
    PovRayPattern{
        "pigment_pattern { hexagon rgb 0 rgb 0.5 rgb 1 rotate 90*x }", true, 1.0F, {}, 1.0F},
    PovRayPattern{"pigment_pattern { onion sine_wave color_map { [0 rgb 0] [1 rgb 1] } }",
                  false,
                  1.0F,
                  {0.6F, 0.5F, -0.6F},
                  0.8F},
    PovRayPattern{"quilted", false, 1.0F, {}, 0.6F},
    PovRayPattern{"spiral1 5", false, 1.0F, {}, 0.6F},
    PovRayPattern{"spiral2 5", false, 1.0F, {}, 0.6F},
    PovRayPattern{"waves", false, 4.0F, {}, 0.9F, 20.0F},
};
static_assert(kColourPatterns.size() == 23 && kNormalPatterns.size() == 14);

template <typename Row>
const Row* RowAt(std::span<const Row> rows, std::int32_t position)
{
    const auto index = static_cast<std::size_t>(position);
    return position >= 0 && index < rows.size() ? &rows[index] : nullptr;
}

}  // namespace

const PovRayMaterial* StockMaterialOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    if (attributes.MaterialType != 1) {
        return nullptr;
    }
    using Rows = std::span<const PovRayMaterial>;
    static constexpr std::array<Rows, 5> kTypes{kGlass, kMetal, kStone, kWood, kMiscellaneous};
    const Rows* rows = RowAt<Rows>(kTypes, attributes.PredefinedType);
    return rows == nullptr ? nullptr : RowAt<PovRayMaterial>(*rows, attributes.PreDefinedMaterial);
}

const PovRayPattern* FindColourPattern(std::int32_t pattern)
{
    return RowAt<PovRayPattern>(kColourPatterns, pattern - 1);
}

const PovRayPattern* FindNormalPattern(std::int32_t pattern)
{
    return RowAt<PovRayPattern>(kNormalPatterns, pattern - 1);
}

}  // namespace studio
