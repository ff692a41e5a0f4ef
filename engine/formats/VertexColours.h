#pragma once

#include <CorvexMaterial/Colour.h>

#include <QCoreApplication>

#include <array>
#include <cstdint>
#include <span>

namespace studio {

struct ImportedModel;

/// The colours of the vertices of a mesh, or of all that wear a material, summed up.
class VertexColours {
public:
    /// What they are in a file, with the colours of its materials.
    enum class Meaning : std::int32_t { Displayed, Light };

    void Add(CorvexMaterial::Rgb colour);
    /// Vertices without a colour count as white.
    void AddPlain(std::size_t vertices);
    void Add(const VertexColours& others);

    [[nodiscard]] bool Any() const { return m_coloured > 0; }
    /// White where there are none.
    [[nodiscard]] CorvexMaterial::Rgb Average() const;
    /// Whether they do, visibly.
    [[nodiscard]] bool Differ() const;

private:
    void Add(CorvexMaterial::Rgb colour, std::uint64_t times);

    // Without gaps, since it is packed as it is.
    std::array<double, 3> m_sum{};
    std::array<float, 3> m_least{1.0F, 1.0F, 1.0F};
    std::array<float, 3> m_most{};
    std::uint64_t m_count = 0;
    std::uint64_t m_coloured = 0;
};

/// A material's colour as the file says it; that of its vertices is multiplied into it.
struct SaidColour {
    CorvexMaterial::Colour colour = CorvexMaterial::kWhite;
    VertexColours::Meaning meaning = VertexColours::Meaning::Displayed;

    [[nodiscard]] CorvexMaterial::Colour With(CorvexMaterial::Rgb vertices) const;
    /// What the file would have to say to be shown like this, or as close as it gets; components
    /// that are shown so already stay.
    [[nodiscard]] CorvexMaterial::Colour For(CorvexMaterial::Colour shown,
                                             CorvexMaterial::Rgb vertices) const;
};

/// Of a colour that cannot be said.
inline constexpr const char* kVerticesTint =
    QT_TRANSLATE_NOOP("Interchange", "the colours of the vertices tint it");

/// A surface has one colour here: the colour of a material is multiplied by that of the vertices
/// of all shapes that wear it, on average. The report has it where they visibly differ.
void TintByVertices(ImportedModel& model, std::span<const VertexColours::Meaning> meanings);

}  // namespace studio
