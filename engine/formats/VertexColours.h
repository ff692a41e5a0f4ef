#pragma once

#include "Amounts.h"
#include "ImportedModel.h"

#include <QCoreApplication>

#include <array>
#include <vector>

namespace studio {

/// A surface has one colour here: the colour of a material is multiplied by that of the vertices
/// that wear it, on average.
class VertexColours {
public:
    enum class Meaning { Displayed, Light };

    /// The vertices of a mesh; those without a colour count as white, as often as is said.
    void Add(std::size_t material, const std::vector<Rgb>& colours);
    void AddPlain(std::size_t material, std::size_t vertices);

    /// Reports it where a material's vertices visibly differ.
    void Tint(ImportedModel& model, std::size_t material, Meaning meaning) const;

private:
    using Components = std::array<double, 3>;

    struct Wearers {
        Components sum{};
        Components least{1.0, 1.0, 1.0};
        Components most{};
        std::size_t count = 0;
        bool coloured = false;

        void Add(Rgb colour, std::size_t times);
        [[nodiscard]] Rgb Average() const;
        [[nodiscard]] bool Differ() const;
    };

    Wearers& WearersOf(std::size_t material);

    std::vector<Wearers> m_wearers;  ///< by material
};

/// Of a colour that was cut.
inline constexpr const char* kVerticesDarken =
    QT_TRANSLATE_NOOP("Interchange", "the colours of the vertices darken it");

/// The colour that a file has to say for a material to become `now` with its vertices, which make
/// `was` of the file's `is`.
struct Untinted {
    Untinted(CorvexMaterial::Colour now, CorvexMaterial::Colour was, CorvexMaterial::Colour is,
             VertexColours::Meaning meaning);

    CorvexMaterial::Colour colour;
    bool isCut = false;  ///< it would have to be lighter than white
};

}  // namespace studio
