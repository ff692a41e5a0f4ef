#include "PluginParameters.h"

#include "ArgumentChecks.h"
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

using CorvexDB::ParameterKind;
using CorvexDB::PluginParameter;

constexpr std::int32_t kRedScale = 127;
constexpr std::int32_t kByteScale = 255;
constexpr std::int32_t kPackedWhite = (kRedScale << 16) | 0xFFFF;
constexpr double kMostSteps = 20.0;
constexpr double kTicks = 10.0;

[[noreturn]] void Refuse(const PluginParameter& parameter, const std::string& reason)
{
    throw Error(Status::InvalidArgument, "parameter \"" + parameter.name + "\" " + reason);
}

bool HasRange(ParameterKind kind)
{
    return kind == ParameterKind::Slider || kind == ParameterKind::Number;
}

std::int32_t TickFrequency(double minimum, double maximum)
{
    if (minimum == -maximum) {
        return RoundHalfEven(maximum);
    }
    const double range = maximum - minimum;
    return range <= kMostSteps ? 1 : RoundHalfEven(range / kTicks);
}

}  // namespace

SliderSetting SliderSettingOf(const PluginParameter& parameter)
{
    SliderSetting setting;
    setting.minimum = RoundHalfEven(parameter.minimum);
    setting.maximum = RoundHalfEven(parameter.maximum);
    setting.tickFrequency = std::max(1, TickFrequency(setting.minimum, setting.maximum));
    setting.largeChange = std::max(1, parameter.step == 0.0F ? RoundHalfEven(setting.maximum / 4.0)
                                                             : RoundHalfEven(parameter.step));
    return setting;
}

std::vector<std::string> ChoicesOf(const PluginParameter& parameter)
{
    switch (parameter.kind) {
    case ParameterKind::List:
        return parameter.choices;
    case ParameterKind::Shape:
        return {"Box", "Cylinder", "Sphere"};
    case ParameterKind::SimpleShape:
        return {"Box", "Cylinder"};
    default:
        return {};
    }
}

std::int32_t ListPositionOf(float value, std::size_t entries)
{
    const double last = entries == 0 ? 0.0 : static_cast<double>(entries - 1);
    return RoundHalfEven(std::clamp(static_cast<double>(value), 0.0, last));
}

float PackColour(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    const std::int32_t red = RoundHalfEven(bytes.red * kRedScale / double{kByteScale});
    return static_cast<float>((red << 16) | (bytes.green << 8) | bytes.blue);
}

Colour UnpackColour(float value)
{
    const double inRange = std::clamp(static_cast<double>(value), 0.0, double{kPackedWhite});
    const std::int32_t packed = RoundHalfEven(inRange);
    return MakeColour({RoundHalfEven((packed >> 16) * kByteScale / double{kRedScale}),
                       (packed >> 8) & 0xFF, packed & 0xFF});
}

void CheckParameter(const PluginParameter& parameter)
{
    if (!std::isfinite(parameter.defaultValue)) {
        Refuse(parameter, "has a default that is no number");
    }
    if (parameter.kind == ParameterKind::List && parameter.choices.empty()) {
        Refuse(parameter, "has no choices");
    }
    if (!HasRange(parameter.kind)) {
        return;
    }
    if (!std::isfinite(parameter.minimum) || !std::isfinite(parameter.maximum) ||
        !std::isfinite(parameter.step)) {
        Refuse(parameter, "has a range that is no number");
    }
    if (parameter.minimum > parameter.maximum) {
        Refuse(parameter, "has its minimum above its maximum");
    }
    if (parameter.kind == ParameterKind::Slider) {
        static_cast<void>(SliderSettingOf(parameter));
    }
}

std::vector<float> DefaultValues(const std::vector<PluginParameter>& parameters)
{
    std::vector<float> values;
    values.reserve(parameters.size());
    for (const PluginParameter& parameter : parameters) {
        values.push_back(parameter.defaultValue);
    }
    return values;
}

void CheckValues(const std::vector<PluginParameter>& parameters, const std::vector<float>& values)
{
    const std::size_t shown = std::min(parameters.size(), kPluginParameterLimit);
    if (values.size() < shown) {
        throw Error(Status::SubscriptOutOfRange,
                    "there are " + std::to_string(values.size()) + " values for " +
                        std::to_string(parameters.size()) + " parameters");
    }
    for (std::size_t i = 0; i < shown; ++i) {
        if (!std::isfinite(values[i])) {
            Refuse(parameters[i], "was given a value that is no number");
        }
    }
}

}  // namespace CorvexMaterial
