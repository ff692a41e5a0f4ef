#include "PluginCheck.h"

#include "Tr.h"

namespace studio {
namespace {

using CorvexPlugin::Parameter;
using CorvexPlugin::ParameterKind;

constexpr std::int32_t kMostDecimals = 6;
// A slider's ends are rounded to 32 bits, and singles count exactly up to here.
constexpr float kFarthest = 16'777'216.0F;
constexpr float kPackedWhite = 8'388'607.0F;

struct ValueRange {
    float least = 0.0F;
    float most = 0.0F;
};

ValueRange RangeOf(const Parameter& parameter)
{
    switch (parameter.kind) {
    case ParameterKind::List:
        return {0.0F, static_cast<float>(parameter.choices.size()) - 1.0F};
    case ParameterKind::Tick:
    case ParameterKind::SimpleShape:
        return {0.0F, 1.0F};
    case ParameterKind::Shape:
        return {0.0F, 2.0F};
    case ParameterKind::Slider:
    case ParameterKind::Number:
        return {parameter.minimum, parameter.maximum};
    case ParameterKind::PackedColour:
        return {0.0F, kPackedWhite};
    }
    return {};
}

bool IsKnown(ParameterKind kind)
{
    return kind >= ParameterKind::List && kind <= ParameterKind::PackedColour;
}

bool IsSane(float number)
{
    // Written so that NaN is not.
    return number >= -kFarthest && number <= kFarthest;
}

QString ParameterFault(const Parameter& parameter)
{
    const bool hasRange =
        parameter.kind == ParameterKind::Slider || parameter.kind == ParameterKind::Number;
    if (parameter.name.empty()) {
        return Tr("has no name");
    }
    if (!IsKnown(parameter.kind)) {
        return Tr("is of a kind that this program does not know");
    }
    if (hasRange && (!IsSane(parameter.minimum) || !IsSane(parameter.maximum) ||
                     !IsSane(parameter.step) || parameter.step < 0.0F)) {
        return Tr("has a range or step that is no usable number");
    }
    if (hasRange && parameter.minimum > parameter.maximum) {
        return Tr("has its minimum above its maximum");
    }
    if (parameter.kind == ParameterKind::List && parameter.choices.empty()) {
        return Tr("has no choices");
    }
    if (parameter.decimals < 0 || parameter.decimals > kMostDecimals) {
        return Tr("asks for an impossible number of decimals");
    }
    const ValueRange range = RangeOf(parameter);
    const float value = parameter.defaultValue;
    return value >= range.least && value <= range.most ? QString()
                                                       : Tr("has a default outside its range");
}

}  // namespace

QString PluginFault(const std::string& name, const std::vector<Parameter>& parameters)
{
    if (name.empty() || name == "None") {
        return Tr("it has no usable name");
    }
    if (parameters.size() > CorvexPlugin::kMostParameters) {
        return Tr("it has %1 parameters, and %2 are the most")
            .arg(parameters.size())
            .arg(CorvexPlugin::kMostParameters);
    }
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const QString fault = ParameterFault(parameters[i]);
        if (!fault.isEmpty()) {
            return Tr("its parameter %1, “%2”, %3")
                .arg(i + 1)
                .arg(QString::fromStdString(parameters[i].name), fault);
        }
    }
    return {};
}

float FittedValue(const Parameter& parameter, float value)
{
    const ValueRange range = RangeOf(parameter);
    const float inRange =
        std::isnan(value) ? parameter.defaultValue : std::clamp(value, range.least, range.most);
    return parameter.kind == ParameterKind::Number ? inRange : std::nearbyint(inRange);
}

}  // namespace studio
