#include "VertexColours.h"

#include "Amounts.h"
#include "ImportedModel.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>

namespace studio {
namespace {

using CorvexMaterial::BytesOf;
using CorvexMaterial::Colour;
using CorvexMaterial::MakeColour;

std::array<int, 3> LevelsOf(Colour colour)
{
    const auto [red, green, blue] = BytesOf(colour);
    return {red, green, blue};
}

}  // namespace

void VertexColours::Add(Rgb colour)
{
    Add(colour, 1);
    ++m_coloured;
}

void VertexColours::AddPlain(std::size_t vertices)
{
    if (vertices > 0) {
        Add(kWhiteRgb, vertices);
    }
}

void VertexColours::Add(const VertexColours& others)
{
    for (std::size_t i = 0; i < m_sum.size(); ++i) {
        m_sum[i] += others.m_sum[i];
        m_least[i] = std::min(m_least[i], others.m_least[i]);
        m_most[i] = std::max(m_most[i], others.m_most[i]);
    }
    m_count += others.m_count;
    m_coloured += others.m_coloured;
}

void VertexColours::Add(Rgb colour, std::uint64_t times)
{
    const std::array components{CutToUnit(colour.red), CutToUnit(colour.green),
                                CutToUnit(colour.blue)};
    for (std::size_t i = 0; i < components.size(); ++i) {
        m_sum[i] += static_cast<double>(components[i]) * static_cast<double>(times);
        m_least[i] = std::min(m_least[i], components[i]);
        m_most[i] = std::max(m_most[i], components[i]);
    }
    m_count += times;
}

Rgb VertexColours::Average() const
{
    const auto average = [this](std::size_t i) {
        return CutToUnit(static_cast<float>(m_sum[i] / static_cast<double>(m_count)));
    };
    return Any() ? Rgb{average(0), average(1), average(2)} : kWhiteRgb;
}

bool VertexColours::Differ() const
{
    constexpr float kSeen = 0.02F;
    return m_most[0] - m_least[0] > kSeen || m_most[1] - m_least[1] > kSeen ||
           m_most[2] - m_least[2] > kSeen;
}

Colour SaidColour::With(Rgb vertices) const
{
    return meaning == VertexColours::Meaning::Light
               ? ColourOfLight(LightOf(colour) * vertices)
               : ColourOfDisplayed(DisplayedOf(colour) * vertices);
}

Colour SaidColour::For(Colour shown, Rgb vertices) const
{
    const std::array<int, 3> wanted = LevelsOf(shown);
    std::array<int, 3> best = LevelsOf(colour);
    std::array<int, 3> found = LevelsOf(With(vertices));
    for (int level = 0; level <= 255; ++level) {
        const SaidColour grey{MakeColour({level, level, level}), meaning};
        const std::array<int, 3> levels = LevelsOf(grey.With(vertices));
        for (std::size_t i = 0; i < best.size(); ++i) {
            if (std::abs(levels[i] - wanted[i]) < std::abs(found[i] - wanted[i])) {
                best[i] = level;
                found[i] = levels[i];
            }
        }
    }
    return MakeColour({best[0], best[1], best[2]});
}

void TintByVertices(ImportedModel& model, std::span<const VertexColours::Meaning> meanings)
{
    std::vector<VertexColours> wearers(model.materials.size());
    for (const ImportedShape& shape : model.shapes) {
        const ImportedMesh& mesh = model.meshes[shape.mesh];
        wearers[mesh.material].Add(mesh.colours);
    }
    if (std::ranges::none_of(wearers, &VertexColours::Any)) {
        return;
    }
    for (std::size_t i = 0; i < wearers.size(); ++i) {
        auto& [name, record, details] = model.materials[i];
        const SaidColour& said = model.said.emplace_back(SaidColour{record.Color, meanings[i]});
        MaterialNotes notes(model.report, name);
        if (!wearers[i].Any()) {
            continue;
        }
        record.Color = said.With(wearers[i].Average());
        if (wearers[i].Differ()) {
            notes.Approximated("vertex colours",
                               QT_TRANSLATE_NOOP("Interchange", "a surface has one colour: that of "
                                                                "its vertices on average"));
        } else {
            notes.Mapped("vertex colours");
        }
    }
}

}  // namespace studio
