#include "studio/interchange/assimp/VertexColours.h"

#include "studio/interchange/Amounts.h"

#include <assimp/material.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>

namespace studio {
namespace {

using Components = std::array<double, 3>;

/// The vertices that wear one material.
struct Wearers {
    Components sum{};
    Components least{1.0, 1.0, 1.0};
    Components most{};
    std::size_t count = 0;
    bool coloured = false;

    void Add(const Components& colour)
    {
        for (std::size_t i = 0; i < colour.size(); ++i) {
            sum[i] += colour[i];
            least[i] = std::min(least[i], colour[i]);
            most[i] = std::max(most[i], colour[i]);
        }
        ++count;
    }

    [[nodiscard]] Rgb Average() const
    {
        const auto average = [this](std::size_t i) {
            return static_cast<float>(sum[i] / static_cast<double>(count));
        };
        return {average(0), average(1), average(2)};
    }

    [[nodiscard]] bool Differ() const
    {
        constexpr double kVisible = 0.02;
        return std::ranges::any_of(std::array{0, 1, 2}, [this](int i) {
            const auto component = static_cast<std::size_t>(i);
            return most[component] - least[component] > kVisible;
        });
    }
};

void Count(const aiMesh& mesh, Wearers& wearers)
{
    const aiColor4D* colours = mesh.HasVertexColors(0) ? mesh.mColors[0] : nullptr;
    wearers.coloured = wearers.coloured || colours != nullptr;
    for (unsigned int vertex = 0; vertex < mesh.mNumVertices; ++vertex) {
        const aiColor4D colour = colours != nullptr ? colours[vertex] : aiColor4D(1.0F);
        wearers.Add({CutToUnit(colour.r), CutToUnit(colour.g), CutToUnit(colour.b)});
    }
}

// Where a file has light for its materials' colours, it has light for its vertices'.
CorvexDB::Colour Multiplied(CorvexDB::Colour colour, Rgb average, const aiMaterial& source)
{
    const aiMaterialProperty* base = nullptr;
    const bool isLight = aiGetMaterialProperty(&source, AI_MATKEY_BASE_COLOR, &base) == AI_SUCCESS;
    return isLight ? ColourOfLight(LightOf(colour) * average)
                   : ColourOfDisplayed(DisplayedOf(colour) * average);
}

}  // namespace

bool TakeVertexColours(const aiScene& scene, std::vector<CorvexDB::udtMaterial>& materials)
{
    std::vector<Wearers> wearers(materials.size());
    for (unsigned int mesh = 0; mesh < scene.mNumMeshes; ++mesh) {
        Count(*scene.mMeshes[mesh], wearers.at(scene.mMeshes[mesh]->mMaterialIndex));
    }
    bool differ = false;
    for (std::size_t i = 0; i < materials.size(); ++i) {
        if (wearers[i].coloured) {
            materials[i].Color =
                Multiplied(materials[i].Color, wearers[i].Average(), *scene.mMaterials[i]);
            differ = differ || wearers[i].Differ();
        }
    }
    return differ;
}

}  // namespace studio
