#pragma once

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/PluginParameter.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace CorvexMaterial {

// The arithmetic behind the parameter rows of a material plug-in. What a plug-in gives is foreign:
// numbers that are no numbers and ranges upside down end in an Error, never in a widget.

/// Most parameters that a material can carry.
inline constexpr std::size_t kPluginParameterLimit = 10;

// Lengths in twips. A row is an editor and the gap below it.
inline constexpr int kFirstParameterRowTwips = 390;
inline constexpr int kParameterEditorTwips = 285;
inline constexpr int kParameterRowTwips = kParameterEditorTwips + 45;
inline constexpr int kParameterCaptionDropTwips = 15;

/// Where the editor of a row begins.
[[nodiscard]] constexpr int ParameterRowTop(std::size_t row)
{
    return kFirstParameterRowTwips + static_cast<int>(row) * kParameterRowTwips;
}

struct SliderSetting {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t tickFrequency = 1;  ///< at least 1
    std::int32_t largeChange = 1;    ///< at least 1
};

/// Errors: Overflow for ends that do not fit 32 bits.
[[nodiscard]] SliderSetting SliderSettingOf(const CorvexDB::PluginParameter& parameter);

/// The entries of a list kind; none for the kinds that are no list.
[[nodiscard]] std::vector<std::string> ChoicesOf(const CorvexDB::PluginParameter& parameter);

/// The entry nearest to the value, 0 to entries - 1.
[[nodiscard]] std::int32_t ListPositionOf(float value, std::size_t entries);

/// An integer below 2^23, exact in a single: red on a scale of 127, green and blue on 255.
[[nodiscard]] float PackColour(Colour colour);
/// A value outside the packed range becomes black or white.
[[nodiscard]] Colour UnpackColour(float value);

/// Errors: InvalidArgument, naming the parameter, when its editor could not be built; Overflow for
/// a slider whose ends do not fit 32 bits.
void CheckParameter(const CorvexDB::PluginParameter& parameter);

/// What a row shows at first.
[[nodiscard]] std::vector<float>
DefaultValues(const std::vector<CorvexDB::PluginParameter>& parameters);

/// Errors: SubscriptOutOfRange when there are fewer values than parameters, ten at most counted;
/// InvalidArgument for a value that is no finite number.
void CheckValues(const std::vector<CorvexDB::PluginParameter>& parameters,
                 const std::vector<float>& values);

}  // namespace CorvexMaterial
