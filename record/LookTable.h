#pragma once

// The rows themselves, for `Looks.cpp`.

#include <CorvexMaterial/Looks.h>

namespace CorvexMaterial::looks {

using Type = PredefinedType;
using Color = ColorPattern;
using Normal = NormalPattern;

inline constexpr std::string_view kTextures = "textures.inc";
inline constexpr std::string_view kStones = "stones1.inc";
inline constexpr std::string_view kWoods = "woods.inc";

// Colour, reflection and clearness are those of rendered samples. "Lightening" is how users know
// these two.
// clang-format off
inline constexpr auto kPredefined = std::to_array<PredefinedLook>({
    {Type::Glass, 0, "Clear", 0xF8FAFA, 0.2F, 0.9F, {kTextures, "M_Glass"}},
    {Type::Glass, 1, "Clear #2", 0xEEF4F0, 0.2F, 0.9F, {kTextures, "M_NB_Glass"}},
    {Type::Glass, 2, "Plexiglas", 0xF2F6FA, 0.2F, 0.9F, {kTextures, "M_Glass2"}},
    {Type::Glass, 3, "Lead Crystal", 0xFAFAFA, 0.2F, 0.95F, {kTextures, "M_Glass3"}},
    {Type::Glass, 4, "Green", 0x9FE0B0, 0.2F, 0.9F, {kTextures, "M_Green_Glass"}},
    {Type::Glass, 5, "Dark Green", 0x3F9A5A, 0.2F, 0.9F, {kTextures, "M_Dark_Green_Glass"}},
    {Type::Glass, 6, "Old Glass", 0xD2E6D4, 0.2F, 0.85F, {kTextures, "M_NB_Old_Glass"}},
    {Type::Glass, 7, "Wine Bottle", 0x6FA06A, 0.2F, 0.9F, {kTextures, "M_NB_Winebottle_Glass"}},
    {Type::Glass, 8, "Beer Bottle", 0xB0762C, 0.2F, 0.9F, {kTextures, "M_NB_Beerbottle_Glass"}},
    {Type::Glass, 9, "Ruby", 0xD8303C, 0.2F, 0.9F, {kTextures, "M_Ruby_Glass"}},
    {Type::Glass, 10, "Yellow", 0xF2E060, 0.2F, 0.9F, {kTextures, "M_Yellow_Glass"}},
    {Type::Glass, 11, "Orange", 0xF29040, 0.2F, 0.9F, {kTextures, "M_Orange_Glass"}},
    {Type::Glass, 12, "Vicks", 0x3C50C8, 0.2F, 0.9F, {kTextures, "M_Vicks_Bottle_Glass"}},
    {Type::Metal, 0, "Chrome", 0xB4BAC0, 0.65F, 0.0F, {kTextures, "texture { Chrome_Metal }"}},
    {Type::Metal, 1, "Brass", 0xC8A040, 0.5F, 0.0F, {kTextures, "texture { Brass_Metal }"}},
    {Type::Metal, 2, "Bronze", 0x9A6A3C, 0.45F, 0.0F, {kTextures, "texture { Bronze_Metal }"}},
    {Type::Metal, 3, "Gold", 0xE0B040, 0.55F, 0.0F, {kTextures, "texture { Gold_Metal }"}},
    {Type::Metal, 4, "Silver", 0xD8D8DC, 0.6F, 0.0F, {kTextures, "texture { Silver_Metal }"}},
    {Type::Metal, 5, "Copper", 0xC0704A, 0.5F, 0.0F, {kTextures, "texture { Copper_Metal }"}},
    {Type::Metal, 6, "Polished Chrome", 0xD0D6DC, 0.85F, 0.0F,
     {kTextures, "texture { Polished_Chrome }"}},
    {Type::Metal, 7, "Polished Brass", 0xDCB050, 0.75F, 0.0F,
     {kTextures, "texture { Polished_Brass }"}},
    {Type::Metal, 8, "New Brass", 0xE4C060, 0.55F, 0.0F, {kTextures, "texture { New_Brass }"}},
    {Type::Metal, 9, "Spun Brass", 0xD0A848, 0.4F, 0.0F,
     {kTextures, "texture { Spun_Brass }", 12.0F}},
    {Type::Metal, 10, "Brushed Aluminum", 0xC0C4C8, 0.45F, 0.0F,
     {kTextures, "texture { Brushed_Aluminum }", 4.0F}},
    {Type::Metal, 11, "Silver #1", 0xCFCFD4, 0.5F, 0.0F, {kTextures, "texture { Silver1 }"}},
    {Type::Metal, 12, "Silver #2", 0xD6D6DA, 0.6F, 0.0F, {kTextures, "texture { Silver2 }"}},
    {Type::Metal, 13, "Silver #3", 0xC6C6CC, 0.7F, 0.0F, {kTextures, "texture { Silver3 }"}},
    {Type::Metal, 14, "Brass Valley", 0xB89038, 0.6F, 0.0F,
     {kTextures, "texture { Brass_Valley }"}},
    {Type::Metal, 15, "Rust", 0x623219, 0.0F, 0.0F, {kTextures, "texture { Rust }"}},
    {Type::Metal, 16, "Rusty Iron", 0x5A4238, 0.05F, 0.0F, {kTextures, "texture { Rusty_Iron }"}},
    {Type::Metal, 17, "Soft Silver", 0xDEDEE2, 0.3F, 0.0F, {kTextures, "texture { Soft_Silver }"}},
    {Type::Metal, 18, "New Penny", 0xB27856, 0.3F, 0.0F, {kTextures, "texture { New_Penny }"}},
    {Type::Metal, 19, "Tinny Brass", 0xC0A860, 0.35F, 0.0F, {kTextures, "texture { Tinny_Brass }"}},
    {Type::Metal, 20, "Gold Nugget", 0xE8B83C, 0.5F, 0.0F, {kTextures, "texture { Gold_Nugget }"}},
    {Type::Metal, 21, "Aluminum", 0xC8CCD0, 0.4F, 0.0F, {kTextures, "texture { Aluminum }"}},
    {Type::Metal, 22, "Bright Bronze", 0xB87C48, 0.6F, 0.0F,
     {kTextures, "texture { Bright_Bronze }"}},
    {Type::Stone, 0, "Granite #1", 0xBCBBAF, 0.04F, 0.0F, {kStones, "texture { T_Grnt1 }"}},
    {Type::Stone, 1, "Granite #2", 0xBDAA8C, 0.04F, 0.0F, {kStones, "texture { T_Grnt2 }"}},
    {Type::Stone, 2, "Granite #3", 0xB69C8C, 0.04F, 0.0F, {kStones, "texture { T_Grnt3 }"}},
    {Type::Stone, 3, "Granite #4", 0xAE8D6E, 0.04F, 0.0F, {kStones, "texture { T_Grnt4 }"}},
    {Type::Stone, 4, "Granite #5", 0xA98572, 0.04F, 0.0F, {kStones, "texture { T_Grnt5 }"}},
    {Type::Stone, 5, "Granite #6", 0x92735C, 0.04F, 0.0F, {kStones, "texture { T_Grnt6 }"}},
    {Type::Stone, 6, "Granite #7", 0x6E503A, 0.04F, 0.0F, {kStones, "texture { T_Grnt7 }"}},
    {Type::Stone, 7, "Granite #8", 0xB7A18F, 0.04F, 0.0F, {kStones, "texture { T_Grnt8 }"}},
    {Type::Stone, 8, "Granite #9", 0xA1A0A0, 0.04F, 0.0F, {kStones, "texture { T_Grnt9 }"}},
    {Type::Stone, 9, "Granite #10", 0xAF978B, 0.04F, 0.0F, {kStones, "texture { T_Grnt10 }"}},
    {Type::Stone, 10, "Stone #1", 0x8C7261, 0.04F, 0.0F, {kStones, "texture { T_Stone1 }"}},
    {Type::Stone, 11, "Stone #2", 0x9F897A, 0.04F, 0.0F, {kStones, "texture { T_Stone2 }"}},
    {Type::Stone, 12, "Stone #3", 0xA78A7B, 0.04F, 0.0F, {kStones, "texture { T_Stone3 }"}},
    {Type::Stone, 13, "Stone #4", 0xA18873, 0.04F, 0.0F, {kStones, "texture { T_Stone4 }"}},
    {Type::Stone, 14, "Stone #5", 0xB19383, 0.04F, 0.0F, {kStones, "texture { T_Stone5 }"}},
    {Type::Stone, 15, "Stone #6", 0x878080, 0.04F, 0.0F, {kStones, "texture { T_Stone6 }"}},
    {Type::Stone, 16, "Stone #7", 0x9D857D, 0.04F, 0.0F, {kStones, "texture { T_Stone7 }"}},
    {Type::Stone, 17, "Stone #8", 0xCBC6C2, 0.04F, 0.0F, {kStones, "texture { T_Stone8 }"}},
    {Type::Stone, 18, "Stone #9", 0x9F9897, 0.04F, 0.0F, {kStones, "texture { T_Stone9 }"}},
    {Type::Stone, 19, "Stone #10", 0x81746E, 0.04F, 0.0F, {kStones, "texture { T_Stone10 }"}},
    {Type::Stone, 20, "Stone #11", 0x9E836F, 0.04F, 0.0F, {kStones, "texture { T_Stone11 }"}},
    {Type::Stone, 21, "Stone #12", 0xB79F92, 0.04F, 0.0F, {kStones, "texture { T_Stone12 }"}},
    {Type::Stone, 22, "Stone #13", 0x8F8E93, 0.04F, 0.0F, {kStones, "texture { T_Stone13 }"}},
    {Type::Stone, 23, "Stone #14", 0xA88E78, 0.04F, 0.0F, {kStones, "texture { T_Stone14 }"}},
    {Type::Stone, 24, "Stone #15", 0xCECECF, 0.04F, 0.0F, {kStones, "texture { T_Stone15 }"}},
    {Type::Stone, 25, "Stone #16", 0xA7A7A7, 0.04F, 0.0F, {kStones, "texture { T_Stone16 }"}},
    {Type::Stone, 26, "Stone #17", 0xDDDFDD, 0.04F, 0.0F, {kStones, "texture { T_Stone17 }"}},
    {Type::Stone, 27, "Stone #18", 0x78A096, 0.04F, 0.0F, {kStones, "texture { T_Stone18 }"}},
    {Type::Stone, 28, "Stone #19", 0xB3A79D, 0.04F, 0.0F, {kStones, "texture { T_Stone19 }"}},
    {Type::Stone, 29, "Stone #20", 0x88756B, 0.04F, 0.0F, {kStones, "texture { T_Stone20 }"}},
    {Type::Stone, 30, "Pink Alabaster", 0xA49191, 0.04F, 0.0F,
     {kTextures, "texture { PinkAlabaster }"}},
    {Type::Wood, 0, "Wood #1", 0x9E6341, 0.04F, 0.0F, {kWoods, "texture { T_Wood1 }"}},
    {Type::Wood, 1, "Wood #2", 0x4A281A, 0.04F, 0.0F, {kWoods, "texture { T_Wood2 }"}},
    {Type::Wood, 2, "Yellow Pine", 0xA68532, 0.04F, 0.0F, {kTextures, "texture { Yellow_Pine }"}},
    {Type::Wood, 3, "Rosewood", 0x4C281C, 0.04F, 0.0F, {kTextures, "texture { Rosewood }"}},
    {Type::Wood, 4, "SandalWood", 0x938265, 0.04F, 0.0F, {kTextures, "texture { Sandalwood }"}},
    {Type::Miscellaneous, 0, "Shadow Clouds", 0x9FABC6, 0.04F, 0.0F,
     {kTextures, "texture { Shadow_Clouds }"}},
    {Type::Miscellaneous, 1, "Clouds", 0x86ADE2, 0.04F, 0.0F,
     {kTextures, "texture { pigment { rgb <0.15, 0.35, 0.75> } finish { ambient 0.7 diffuse "
      "0.2 } } texture { pigment { Clouds scale 0.5 turbulence 0.5 } finish { ambient 0.9 "
      "diffuse 0.1 } }"}},
    {Type::Miscellaneous, 2, "Water", 0xA8D8E8, 0.35F, 0.8F, {kTextures, "M_Water"}},
    {Type::Miscellaneous, 3, "Water #2", 0x70B8C8, 0.35F, 0.7F,
     {kTextures, "texture { Water pigment { rgbf <0.1, 0.4, 0.5, 0.85> } normal { waves 0.4 "
      "frequency 3 } } interior { Water_Int }"}},
    {Type::Miscellaneous, 4, "Cork", 0xB58C5F, 0.04F, 0.0F, {kTextures, "texture { Cork }"}},
    {Type::Miscellaneous, 5, "Lightening #1", 0x6C5A78, 0.04F, 0.0F,
     {kTextures, "texture { pigment { rgb 0 } } texture { Lightning1 }"}},
    {Type::Miscellaneous, 6, "Lightening #2", 0x705482, 0.04F, 0.0F,
     {kTextures, "texture { pigment { rgb 0 } } texture { Lightning2 }"}},
    {Type::Miscellaneous, 7, "Starfield", 0x2C2C2C, 0.04F, 0.0F,
     {kTextures, "texture { Starfield }"}},
});

inline constexpr auto kColorPatterns = std::to_array<ColorPatternLook>({
    {Color::None, "None", {}},
    {Color::Agate, "Agate", {"agate", false, 0.5F}},
    {Color::Boxed, "Boxed", {"boxed", false, 1.2F}},
    {Color::Bozo, "Bozo", {"bozo", false, 0.35F}},
    {Color::Cells, "Cells", {"cells", false, 0.35F}},
    {Color::Checker, "Checker", {"checker", true, 0.35F}},
    {Color::Crackle, "Crackle", {"crackle", false, 0.4F}},
    {Color::Cylindrical, "Cylindrical", {"cylindrical", false, 1.5F}},
    {Color::Dents, "Dents", {"dents", false, 0.3F}},
    {Color::Gradient, "Gradient", {"gradient y", false, 2.0F, {0.0F, -1.0F, 0.0F}}},
    {Color::Granite, "Granite", {"granite", false, 0.6F}},
    {Color::Leopard, "Leopard", {"leopard", false, 0.12F}},
    {Color::Marble, "Marble", {"marble", false, 0.5F}},
    {Color::Onion, "Onion", {"onion", false, 0.35F, {0.6F, 0.5F, -0.6F}}},
    {Color::Planar, "Planar", {"planar", false, 1.0F}},
    {Color::Quilted, "Quilted", {"quilted", false, 0.4F}},
    {Color::Radial, "Radial", {"radial", false, 1.0F}},
    {Color::Ripples, "Ripples", {"ripples", false, 0.35F}},
    {Color::Spherical, "Spherical", {"spherical", false, 2.0F, {0.5F, 0.6F, -0.7F}}},
    {Color::Spiral1, "Spiral #1", {"spiral1 5", false, 0.6F}},
    {Color::Spiral2, "Spiral #2", {"spiral2 5", false, 0.6F}},
    {Color::Waves, "Waves", {"waves", false, 0.35F}},
    {Color::Wood, "Wood", {"wood", false, 0.4F}},
    {Color::Wrinkles, "Wrinkles", {"wrinkles", false, 0.5F}},
});

inline constexpr auto kNormalPatterns = std::to_array<NormalPatternLook>({
    {Normal::None, "None", {}},
    {Normal::Bumps, "Bumps", {"bumps", false, 1.0F, {}, 0.5F}},
    {Normal::Dents, "Dents", {"dents", false, 0.6F, {}, 1.5F}},
    {Normal::Ripples, "Ripples", {"ripples", false, 4.0F, {}, 3.0F, 7.0F}},
    {Normal::Wrinkles, "Wrinkles", {"wrinkles", false, 1.0F, {}, 0.4F}},
    {Normal::Bozo, "Bozo", {"bozo", false, 0.5F, {}, 1.0F}},
    {Normal::Checker, "Checker",
     {"pigment_pattern { checker rgb 0 rgb 1 }", true, 1.0F, {}, 0.6F}},
    {Normal::Crackle, "Crackle", {"crackle", false, 1.0F, {}, 0.6F}},
    {Normal::Granite, "Granite", {"granite", false, 1.0F, {}, 0.5F}},
    {Normal::Hexagon, "Hexagon",
     {"pigment_pattern { hexagon rgb 0 rgb 0.5 rgb 1 rotate 90*x }", true, 1.0F, {}, 1.0F}},
    {Normal::Onion, "Onion",
     {"pigment_pattern { onion sine_wave color_map { [0 rgb 0] [1 rgb 1] } }", false, 1.0F,
      {0.6F, 0.5F, -0.6F}, 0.8F}},
    {Normal::Quilted, "Quilted", {"quilted", false, 1.0F, {}, 0.6F}},
    {Normal::Spiral1, "Spiral #1", {"spiral1 5", false, 1.0F, {}, 0.6F}},
    {Normal::Spiral2, "Spiral #2", {"spiral2 5", false, 1.0F, {}, 0.6F}},
    {Normal::Waves, "Waves", {"waves", false, 4.0F, {}, 0.9F, 20.0F}},
});
// clang-format on

}  // namespace CorvexMaterial::looks
