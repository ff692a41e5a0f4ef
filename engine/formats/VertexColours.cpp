#include "VertexColours.h"

#include <QCoreApplication>

#include <algorithm>

namespace studio {

void VertexColours::Wearers::Add(Rgb colour, std::size_t times)
{
    const Components components{CutToUnit(colour.red), CutToUnit(colour.green),
                                CutToUnit(colour.blue)};
    for (std::size_t i = 0; i < components.size(); ++i) {
        sum[i] += components[i] * static_cast<double>(times);
        least[i] = std::min(least[i], components[i]);
        most[i] = std::max(most[i], components[i]);
    }
    count += times;
}

Rgb VertexColours::Wearers::Average() const
{
    const auto average = [this](std::size_t i) {
        return static_cast<float>(sum[i] / static_cast<double>(count));
    };
    return {average(0), average(1), average(2)};
}

bool VertexColours::Wearers::Differ() const
{
    constexpr double kSeen = 0.02;
    return most[0] - least[0] > kSeen || most[1] - least[1] > kSeen || most[2] - least[2] > kSeen;
}

VertexColours::Wearers& VertexColours::WearersOf(std::size_t material)
{
    m_wearers.resize(std::max(m_wearers.size(), material + 1));
    return m_wearers[material];
}

void VertexColours::Add(std::size_t material, const std::vector<Rgb>& colours)
{
    Wearers& wearers = WearersOf(material);
    wearers.coloured = wearers.coloured || !colours.empty();
    for (const Rgb colour : colours) {
        wearers.Add(colour, 1);
    }
}

void VertexColours::AddPlain(std::size_t material, std::size_t vertices)
{
    if (vertices > 0) {
        WearersOf(material).Add(kWhiteRgb, vertices);
    }
}

void VertexColours::Tint(ImportedModel& model, std::size_t material, Meaning meaning) const
{
    if (material >= m_wearers.size() || !m_wearers[material].coloured) {
        return;
    }
    auto& [name, record] = model.materials[material];
    const Rgb average = m_wearers[material].Average();
    record.Color = meaning == Meaning::Light
                       ? ColourOfLight(LightOf(record.Color) * average)
                       : ColourOfDisplayed(DisplayedOf(record.Color) * average);
    if (m_wearers[material].Differ()) {
        MaterialNotes(model.report, name)
            .Approximated("vertex colours",
                          QT_TRANSLATE_NOOP("Interchange", "a surface has one colour: that of its "
                                                           "vertices on average"));
    } else {
        MaterialNotes(model.report, name).Mapped("vertex colours");
    }
}

Untinted::Untinted(CorvexMaterial::Colour now, CorvexMaterial::Colour was,
                   CorvexMaterial::Colour is, VertexColours::Meaning meaning)
    : colour(now)
{
    if (was == is) {
        return;
    }
    const bool light = meaning == VertexColours::Meaning::Light;
    const auto read = [light](CorvexMaterial::Colour value) {
        return light ? LightOf(value) : DisplayedOf(value);
    };
    const Rgb wanted = read(now);
    const Rgb tinted = read(was);
    const Rgb plain = read(is);
    const auto part = [this](float want, float tint, float full) {
        constexpr float kRounding = 1.02F;
        const float value = tint > 0.0F ? want * full / tint : want;
        isCut = isCut || value > kRounding || (tint <= 0.0F && want > 0.0F);
        return CutToUnit(value);
    };
    const Rgb result{part(wanted.red, tinted.red, plain.red),
                     part(wanted.green, tinted.green, plain.green),
                     part(wanted.blue, tinted.blue, plain.blue)};
    colour = now == was ? is : light ? ColourOfLight(result) : ColourOfDisplayed(result);
}

}  // namespace studio
