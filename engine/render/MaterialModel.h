#pragma once

// What a material means as light. The renderer's shader and every exporter follow this file, so
// that a material looks the same wherever it is drawn.
//
// All light is linear, with the primaries of sRGB; a finished picture is encoded as sRGB. Percent
// amounts are cut to 0..100 here and nowhere else. With decode() the sRGB decoding, the terms are
//
//     E = decode(emissive / 100)             what the surface glows by itself
//     A = kShadowFill * decode(ambient / 100) how far light from everywhere fills the shadows
//     S = specular / 100
//     base = decode(colour)
//
//     emission = E + (1 - E) * A
//     diffuse  = (1 - E) * (1 - A) * (1 - kSpecularCost * S)
//     opacity  = 1 - transparency / 100
//
// and a surface with unit normal n, seen along the unit vector v towards the eye, gives
//
//     direct(n) = key.intensity * max(0, n.key) + fill.intensity * max(0, n.fill)
//               + kSkyIntensity * (1 + n.up) / 2
//     body      = base * (emission + diffuse * direct(n))
//     highlight = S * kShine * max(0, n.h)^shininess  where n.key > 0; h halfway between key and v
//     picture   = behind * (1 - opacity) + body * opacity + highlight
//
// Textures change base, S, n and the opacity per point, and add a mirror; see
// docs/material-model.md.
//
// direct(n) stays below 1, so that a white surface is never burnt out by body light. The sky can be
// made of a constant and two opposed lights of half its intensity, one of them negative.

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/MaterialRecord.h>

#include <array>
#include <string_view>

namespace studio {

using CorvexMaterial::EncodedFromLinear;
using CorvexMaterial::LightOf;
using CorvexMaterial::LinearFromEncoded;
using CorvexMaterial::Rgb;

/// A distant white light that moves with the camera.
struct Light {
    std::array<float, 3> towards{};  ///< unit vector in eye space: x right, y up, z to the viewer
    float intensity = 0.0F;
};

inline constexpr Light kKeyLight{{-0.4472F, 0.6099F, 0.6542F}, 0.78F};
inline constexpr Light kFillLight{{0.9035F, -0.1643F, 0.3958F}, 0.13F};
inline constexpr float kSkyIntensity = 0.12F;
inline constexpr float kShadowFill = 0.42F;
inline constexpr float kSpecularCost = 0.3F;
inline constexpr float kShine = 0.9F;
inline constexpr float kShininess = 60.0F;
/// Height of white over black, as a part of the length that one image has on the surface.
inline constexpr float kBumpHeight = 0.03F;
/// What an environment-mapped surface mirrors that is looked at straight on.
inline constexpr float kReflectionAtFront = 0.3F;
inline constexpr float kReflectionFalloff = 5.0F;
/// Data images count by the luminance of what they store.
inline constexpr std::array<float, 3> kLuminance{0.2126F, 0.7152F, 0.0722F};

struct SurfaceTerms {
    Rgb base;
    float emission = 0.0F;
    float diffuse = 0.0F;
    float highlight = 0.0F;      ///< S * kShine
    float highlightCost = 0.0F;  ///< S * kSpecularCost
    float shininess = kShininess;
    float opacity = 1.0F;
};

/// How the alpha test compares: a fragment is kept when alpha (0 to 255) OP reference holds.
struct AlphaTest {
    std::string_view comparison;  ///< an operator of C and GLSL; empty keeps every fragment
    int reference = 0;            ///< 0 to 255
};

[[nodiscard]] SurfaceTerms SurfaceTermsOf(const CorvexDB::udtMaterial& material);
/// With a texture that scales the specular amount; where that is 0 the texture alone decides.
[[nodiscard]] SurfaceTerms HighlightMappedTermsOf(const CorvexDB::udtMaterial& material);

/// How much of the overlay texture covers the primary one, 0 to 1.
[[nodiscard]] float OverlayOpacityOf(const CorvexDB::udtMaterial& material);

/// Positions 0 ("Never" tests) and 7 ("Always" passes) keep every fragment, as does a position that
/// is not in the list. A reference outside 0..255 is cut to that range.
[[nodiscard]] AlphaTest AlphaTestOf(const CorvexDB::udtMaterial& material);

/// Whether anything behind the surface shows through it, textures aside.
[[nodiscard]] bool IsTransparent(const CorvexDB::udtMaterial& material);

}  // namespace studio
