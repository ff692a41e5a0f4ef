#pragma once

// The interface of a material plug-in: a shared library that turns a few parameters into a texture.
//
// A plug-in is a class that derives from QObject and CorvexPlugin::MaterialPlugin:
//
//     class StripesPlugin : public QObject, public CorvexPlugin::MaterialPlugin {
//         Q_OBJECT
//         Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
//         Q_INTERFACES(CorvexPlugin::MaterialPlugin)
//     public:
//         std::string Name() const override;
//         std::vector<CorvexPlugin::Parameter> Parameters() const override;
//         void Generate(const CorvexPlugin::Request&, CorvexPlugin::Texture&) const override;
//     };
//
// built as a shared library (a MODULE in CMake) with the same compiler and Qt as the program, and
// dropped into a folder that the program looks into. The interface identifier carries the version;
// a library that was built for another version is refused before any of its code runs.
//
// A plug-in may throw: the program shows the exception's text with the library's file name. It must
// not touch widgets, and it must give the same picture for the same request every time.

#include <QtPlugin>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace CorvexPlugin {

/// Which editor a parameter gets, and what its value means.
enum class ParameterKind : std::int32_t {
    List = 1,          ///< position in `choices`
    Tick = 2,          ///< 0 or 1
    Slider = 3,        ///< a whole number from `minimum` to `maximum`
    Number = 4,        ///< any number from `minimum` to `maximum`
    Shape = 5,         ///< 0 box, 1 cylinder, 2 sphere
    SimpleShape = 6,   ///< 0 box, 1 cylinder
    PackedColour = 7,  ///< see `ColourOf`
};

inline constexpr std::size_t kMostParameters = 10;

/// Ranges must be finite, with the minimum not above the maximum and the default inside.
struct Parameter {
    std::string name;  ///< caption, not empty
    ParameterKind kind = ParameterKind::Slider;
    float minimum = 0.0F;  ///< of Slider and Number
    float maximum = 1.0F;
    std::int32_t decimals = 2;         ///< of Number: digits shown, 0 to 6
    std::vector<std::string> choices;  ///< of List, at least one
    float defaultValue = 0.0F;
    float step = 0.0F;  ///< large change of a Slider (0 = automatic), step of a Number
};

/// Red, green and blue as a picture file holds them (sRGB), 0 to 1; values outside are cut.
struct Colour {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
};

/// The value of a PackedColour: red in seven bits, green and blue in eight each.
[[nodiscard]] inline float Packed(const Colour& colour)
{
    const auto scaled = [](float part, float most) {
        return std::nearbyint(std::clamp(part, 0.0F, 1.0F) * most);
    };
    return scaled(colour.red, 127.0F) * 65536.0F + scaled(colour.green, 255.0F) * 256.0F +
           scaled(colour.blue, 255.0F);
}

[[nodiscard]] inline Colour ColourOf(float packed)
{
    const auto bits = static_cast<std::uint32_t>(std::clamp(packed, 0.0F, 8388607.0F));
    return {static_cast<float>(bits >> 16) / 127.0F,
            static_cast<float>((bits >> 8) & 0xFFU) / 255.0F,
            static_cast<float>(bits & 0xFFU) / 255.0F};
}

/// One point of a texture.
struct Point {
    Colour colour;
    float alpha = 1.0F;   ///< 0 transparent to 1 solid
    float height = 0.5F;  ///< 0 deepest to 1 highest; used when the texture has heights
};

/// What to produce. The texture repeats, so its left edge continues its right one and its top its
/// bottom. u runs from 0 at the left to 1 at the right, v from 0 at the top to 1 at the bottom.
struct Request {
    int width = 0;  ///< pixels, 1 to 4096; small while the user drags a slider
    int height = 0;
    std::vector<float> values;  ///< one per parameter, in their order, inside their ranges
    /// Whether nobody waits for this texture any more; then `Generate` may return at once. Never
    /// empty, may be called from any thread.
    std::function<bool()> isCancelled;
};

/// Rows from the top, without gaps.
struct Texture {
    std::vector<std::uint8_t> rgba;    ///< width * height * 4
    std::vector<std::uint8_t> height;  ///< width * height, or empty for a surface without relief
};

/// Called from one worker thread, one call at a time per plug-in.
class MaterialPlugin {
public:
    virtual ~MaterialPlugin() = default;
    /// As the list of plug-ins shows it, in one language, the same every time: saved materials
    /// refer to it.
    virtual std::string Name() const = 0;
    /// At most ten, the same every time.
    virtual std::vector<Parameter> Parameters() const = 0;
    /// The texture comes empty.
    virtual void Generate(const Request& request, Texture& texture) const = 0;
};

enum class Relief { None, Heights };

[[nodiscard]] inline std::uint8_t ByteOf(float fraction)
{
    // The comparison sends what is no number to 0.
    const float inRange = fraction > 0.0F ? std::min(fraction, 1.0F) : 0.0F;
    return static_cast<std::uint8_t>(inRange * 255.0F + 0.5F);
}

/// Fills a texture from a function `Point at(float u, float v)`, asked at the centre of each pixel;
/// ends early when the request is cancelled.
template <typename At>
void Fill(const Request& request, Relief relief, Texture& texture, At&& at)
{
    const auto pixels =
        static_cast<std::size_t>(request.width) * static_cast<std::size_t>(request.height);
    texture.rgba.resize(pixels * 4);
    texture.height.resize(relief == Relief::Heights ? pixels : 0);
    std::size_t pixel = 0;
    for (int y = 0; y < request.height && !request.isCancelled(); ++y) {
        const float v = (static_cast<float>(y) + 0.5F) / static_cast<float>(request.height);
        for (int x = 0; x < request.width; ++x, ++pixel) {
            const float u = (static_cast<float>(x) + 0.5F) / static_cast<float>(request.width);
            const Point point = at(u, v);
            texture.rgba[pixel * 4] = ByteOf(point.colour.red);
            texture.rgba[pixel * 4 + 1] = ByteOf(point.colour.green);
            texture.rgba[pixel * 4 + 2] = ByteOf(point.colour.blue);
            texture.rgba[pixel * 4 + 3] = ByteOf(point.alpha);
            if (relief == Relief::Heights) {
                texture.height[pixel] = ByteOf(point.height);
            }
        }
    }
}

}  // namespace CorvexPlugin

#define CorvexMaterialPlugin_iid "org.corvex.MaterialPlugin/1"
Q_DECLARE_INTERFACE(CorvexPlugin::MaterialPlugin, CorvexMaterialPlugin_iid)
