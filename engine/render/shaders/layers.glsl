// The images of a surface and what they change.
#if defined(COORDINATES_MESH) || defined(COORDINATES_WRAP)
#define TEXTURED

uniform vec4 flip;
uniform vec4 crop;
uniform float overlayOpacity;

uniform sampler2D primary;
uniform sampler2D overlay;
uniform sampler2D alphaMap;
uniform sampler2D bumpMap;
uniform sampler2D specularMap;

#ifndef ENDS_BELOW
#define ENDS_BELOW false
#endif

// Where one axis of a tile is taken from. Where its borders do not meet it stays half a texel
// inside, so that nothing from beyond them is mixed in.
float Cropped(float at, float origin, float scale, float blur, bool ends)
{
    float inside = fract(at);
    if (ends || abs(scale) < 1.0) {
        float margin = min(0.5, 0.5 * blur / max(abs(scale), 1.0e-6));
        inside = clamp(inside, margin, 1.0 - margin);
    }
    return origin + scale * inside;
}

vec4 Texel(sampler2D image, Place place)
{
    vec2 at = flip.xy * place.at + flip.zw;
    vec2 dx = flip.xy * crop.zw * place.dx;
    vec2 dy = flip.xy * crop.zw * place.dy;
    vec2 blur = max(1.0 / vec2(textureSize(image, 0)), max(abs(dx), abs(dy)));
    vec2 inside = vec2(Cropped(at.x, crop.x, crop.z, blur.x, false),
                       Cropped(at.y, crop.y, crop.w, blur.y, ENDS_BELOW));
    return textureGrad(image, inside, dx, dy);
}

float Luminance(vec3 colour)
{
    return dot(colour, luminanceWeights);
}

vec4 PrimaryTexel(Place place)
{
#ifdef LAYER_primary
    return Texel(primary, place);
#else
    return vec4(1.0);
#endif
}

vec3 SurfaceColour(Place place, vec4 primaryTexel)
{
    vec3 colour = primaryTexel.rgb;
#ifdef LAYER_overlay
    vec4 over = Texel(overlay, place);
    colour = mix(colour, over.rgb, over.a * overlayOpacity);
#endif
    return colour;
}

// How much of the surface is there at all.
float Coverage(Place place, vec4 primaryTexel)
{
    float coverage = 1.0;
#ifdef ALPHA_IS_OPACITY
    coverage *= primaryTexel.a;
#endif
#ifdef ALPHA_IS_TRANSPARENCY
    coverage *= 1.0 - primaryTexel.a;
#endif
#ifdef LAYER_alphaMap
    coverage *= Luminance(Texel(alphaMap, place).rgb);
#endif
    return coverage;
}

float HighlightAmount(Place place, vec4 primaryTexel)
{
    float amount = 1.0;
#ifdef ALPHA_IS_HIGHLIGHT
    amount *= primaryTexel.a;
#endif
#ifdef LAYER_specularMap
    amount *= Luminance(Texel(specularMap, place).rgb);
#endif
    return amount;
}

#if defined(LAYER_bumpMap) || defined(ALPHA_IS_HEIGHT)
#define HEIGHT

#ifdef LAYER_bumpMap
#define FINEST_HEIGHTS bumpMap
#else
#define FINEST_HEIGHTS primary
#endif

float Height(Place place, vec2 offset)
{
    Place shifted = Place(place.at + offset, place.dx, place.dy);
    float height = 0.0;
#ifdef LAYER_bumpMap
    height += Luminance(Texel(bumpMap, shifted).rgb);
#endif
#ifdef ALPHA_IS_HEIGHT
    height += Texel(primary, shifted).a;
#endif
    return height;
}

// How the height changes over one tile; over a texel or a pixel, whichever is larger.
vec2 HeightSlope(Place place)
{
    vec2 texel = 1.0 / (vec2(textureSize(FINEST_HEIGHTS, 0)) * max(abs(crop.zw), vec2(1.0e-3)));
    vec2 reach = max(texel, 0.5 * (abs(place.dx) + abs(place.dy)));
    return vec2(Height(place, vec2(reach.x, 0.0)) - Height(place, vec2(-reach.x, 0.0)),
                Height(place, vec2(0.0, reach.y)) - Height(place, vec2(0.0, -reach.y))) /
           (2.0 * reach);
}

// The normal of the surface raised by its heights. Both directions of the image on the surface
// follow from how positions and places change from pixel to pixel.
vec3 BumpedNormal(vec3 n, vec3 position, Place place)
{
    vec3 px = dFdx(position);
    vec3 py = dFdy(position);
    vec3 acrossX = cross(py, n);
    vec3 acrossY = cross(n, px);
    float area = dot(px, acrossX);
    float tiles = abs(place.dx.x * place.dy.y - place.dx.y * place.dy.x);
    if (abs(area) < 1.0e-20 || tiles < 1.0e-20) {
        return n;
    }
    vec2 slope = HeightSlope(place);
    vec3 gradient =
        (dot(slope, place.dx) * acrossX + dot(slope, place.dy) * acrossY) / area;
    float side = sqrt(abs(area) / tiles);
    return normalize(n - bumpHeight * side * gradient);
}
#endif

#ifdef LAYER_environment
uniform sampler2D environment;
uniform mat4 worldFromEye;

float ReflectionAmount(vec3 n, vec3 towardsEye, vec4 primaryTexel)
{
    float grazing = pow(1.0 - clamp(dot(n, towardsEye), 0.0, 1.0), reflectionFalloff);
    float amount = mix(reflectionAtFront, 1.0, grazing);
#ifdef ALPHA_IS_REFLECTION
    amount *= primaryTexel.a;
#endif
    return amount;
}

// The surroundings in this direction of the eye's space. The middle of the image lies towards +z;
// whoever stands inside and looks there has -x at his right.
vec3 Surroundings(vec3 direction)
{
    vec3 world = mat3(worldFromEye) * direction;
    vec3 p = vec3(-world.x, world.yz);
    Place place = OnSphere(p, dFdx(p), dFdy(p));
    return textureGrad(environment, place.at, place.dx, place.dy).rgb;
}
#endif
#endif
