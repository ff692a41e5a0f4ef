#pragma once

#include "Amounts.h"
#include "ImportedModel.h"

#include <array>
#include <vector>

namespace studio {

/// A surface has one colour here: the colour of a material is multiplied by that of the vertices
/// that wear it, on average.
class VertexColours {
public:
    /// The vertices of a mesh; those without a colour count as white, as often as is said.
    void Add(std::size_t material, const std::vector<Rgb>& colours);
    void AddPlain(std::size_t material, std::size_t vertices);

    enum class Meaning { Displayed, Light };
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

}  // namespace studio
