#include "studio/import/AssimpMaterial.h"

#include <assimp/GltfMaterial.h>
#include <assimp/material.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace studio {

namespace {

constexpr std::int32_t kAlphaTestGreaterOrEqual = 6;

// False for NaN as well, which a file may hold.
float Fraction(float value)
{
    return value >= 0.0F ? std::min(value, 1.0F) : 0.0F;
}

std::int32_t Percent(float fraction)
{
    return static_cast<std::int32_t>(std::lround(100.0F * Fraction(fraction)));
}

float Strongest(const aiColor4D& colour)
{
    return std::max({Fraction(colour.r), Fraction(colour.g), Fraction(colour.b)});
}

float DisplayFromLinear(float value)
{
    const float fraction = Fraction(value);
    return fraction <= 0.0031308F ? 12.92F * fraction
                                  : 1.055F * std::pow(fraction, 1.0F / 2.4F) - 0.055F;
}

CorvexDB::Colour ColourFrom(const aiColor4D& colour)
{
    const auto byte = [](float value) {
        return static_cast<int>(std::lround(255.0F * Fraction(value)));
    };
    return CorvexMaterial::MakeColour({byte(colour.r), byte(colour.g), byte(colour.b)});
}

// The values of one material by key, each with what to take when the file has none.
class Values {
public:
    explicit Values(const aiMaterial& material) : m_material(material) {}

    [[nodiscard]] bool Has(const char* key, unsigned int type = 0, unsigned int index = 0) const
    {
        const aiMaterialProperty* property = nullptr;
        return aiGetMaterialProperty(&m_material, key, type, index, &property) == AI_SUCCESS;
    }

    template <typename Value>
    [[nodiscard]] Value Get(const char* key, unsigned int type, unsigned int index,
                            Value otherwise) const
    {
        Value value = otherwise;
        return m_material.Get(key, type, index, value) == AI_SUCCESS ? value : otherwise;
    }

private:
    const aiMaterial& m_material;
};

void TakeAlpha(const Values& values, CorvexDB::udtMaterial& material)
{
    const std::string mode = values.Get(AI_MATKEY_GLTF_ALPHAMODE, aiString()).C_Str();
    if (mode == "MASK") {
        const float cutoff = values.Get(AI_MATKEY_GLTF_ALPHACUTOFF, 0.5F);
        material.AlphaTest = kAlphaTestGreaterOrEqual;
        material.AlphaTestReference =
            static_cast<std::int32_t>(std::lround(255 * Fraction(cutoff)));
    } else if (mode != "OPAQUE") {
        material.Transparency = Percent(1.0F - values.Get(AI_MATKEY_OPACITY, 1.0F));
    }
}

// A metal-and-roughness material: its colours are linear light, ours are as displayed.
void TakePhysicalLook(const Values& values, CorvexDB::udtMaterial& material)
{
    aiColor4D colour = values.Get(AI_MATKEY_BASE_COLOR, aiColor4D(1.0F));
    for (float* component : {&colour.r, &colour.g, &colour.b}) {
        *component = DisplayFromLinear(*component);
    }
    material.Color = ColourFrom(colour);
    material.Specular = Percent(1.0F - values.Get(AI_MATKEY_ROUGHNESS_FACTOR, 1.0F));
}

void TakeClassicLook(const Values& values, CorvexDB::udtMaterial& material)
{
    material.Color =
        ColourFrom(values.Get(AI_MATKEY_COLOR_DIFFUSE, aiColor4D(0.8F, 0.8F, 0.8F, 1)));
    const bool matte =
        values.Has(AI_MATKEY_SHININESS) && values.Get(AI_MATKEY_SHININESS, 1.0F) <= 0.0F;
    if (!matte) {
        material.Specular = Percent(Strongest(values.Get(AI_MATKEY_COLOR_SPECULAR, aiColor4D())));
    }
}

std::string TextureFrom(const aiMaterial& source)
{
    aiString path;
    for (const aiTextureType type : {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE}) {
        if (source.GetTexture(type, 0, &path) == AI_SUCCESS && path.length > 0 &&
            path.data[0] != '*') {
            return path.C_Str();
        }
    }
    return {};
}

}  // namespace

CorvexDB::udtMaterial MaterialFrom(const aiMaterial& source)
{
    const Values values(source);
    CorvexDB::udtMaterial material;
    if (values.Has(AI_MATKEY_BASE_COLOR)) {
        TakePhysicalLook(values, material);
    } else {
        TakeClassicLook(values, material);
    }
    TakeAlpha(values, material);
    material.Emissive = Percent(Strongest(values.Get(AI_MATKEY_COLOR_EMISSIVE, aiColor4D())));
    material.DoubleSided = values.Get(AI_MATKEY_TWOSIDED, 0) != 0;
    material.Textures.primary = TextureFrom(source);
    return material;
}

}  // namespace studio
