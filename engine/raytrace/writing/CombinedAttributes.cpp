#include "CombinedAttributes.h"

#include <array>
#include <charconv>

namespace studio {
namespace {

using Attributes = CorvexDB::cdtRayTraceMaterialAttributes;

// Shortest text that reads back to the same number; to_chars knows no locale.
template <typename Number>
std::string TextOf(Number value)
{
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end.ptr};
}

struct SingleRow {
    const char* name;
    float Attributes::*field;
};
struct WholeRow {
    const char* name;
    std::int32_t Attributes::*field;
};

constexpr std::array kFinish{
    SingleRow{"Brilliance", &Attributes::Brilliance},
    SingleRow{"Reflection", &Attributes::Reflection},
    SingleRow{"IridescenceFactor", &Attributes::IridescenceFactor},
    SingleRow{"IridescenceThickness", &Attributes::IridescenceThickness},
    SingleRow{"IridescenceTurbulence", &Attributes::IridescenceTurbulence},
    SingleRow{"Roughness", &Attributes::Roughness},
    SingleRow{"NormalDepth", &Attributes::NormalDepth},
    SingleRow{"NormalScale", &Attributes::NormalScale},
};
constexpr std::array kChoices{
    WholeRow{"MaterialType", &Attributes::MaterialType},
    WholeRow{"PredefinedType", &Attributes::PredefinedType},
    WholeRow{"PreDefinedMaterial", &Attributes::PreDefinedMaterial},
    WholeRow{"ColorPattern", &Attributes::ColorPattern},
};
constexpr std::array kPatterns{
    SingleRow{"ColorPatternFrequency", &Attributes::ColorPatternFrequency},
    SingleRow{"ColorPatternTurbulence", &Attributes::ColorPatternTurbulence},
    SingleRow{"NormalPatternFrequency", &Attributes::NormalPatternFrequency},
    SingleRow{"NormalPatternTurbulence", &Attributes::NormalPatternTurbulence},
};

template <typename Rows>
void AppendRows(std::string& text, const Rows& rows, const Attributes& attributes)
{
    for (const auto& row : rows) {
        text += std::string(row.name) + '=' + TextOf(attributes.*row.field) + ';';
    }
}

void AppendColours(std::string& text, const Attributes& attributes)
{
    for (std::size_t i = 0; i < attributes.ColorPatternColor.size(); ++i) {
        const CorvexDB::PatternColour& colour = attributes.ColorPatternColor[i];
        text += "ColorPatternColor" + std::to_string(i) + '=' + TextOf(colour.red) + ',' +
                TextOf(colour.green) + ',' + TextOf(colour.blue) + ',' + TextOf(colour.alpha) + ';';
    }
}

}  // namespace

std::string AttributeText(const Attributes& attributes)
{
    std::string text;
    AppendRows(text, kFinish, attributes);
    text += "NormalPattern=" + TextOf(attributes.NormalPattern) + ';';
    text += "Metallic=" + TextOf(attributes.Metallic ? 1 : 0) + ';';
    AppendRows(text, kChoices, attributes);
    AppendColours(text, attributes);
    AppendRows(text, kPatterns, attributes);
    return text;
}

}  // namespace studio
