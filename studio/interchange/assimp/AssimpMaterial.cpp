#include "studio/interchange/assimp/AssimpMaterial.h"

#include "studio/interchange/Amounts.h"
#include "studio/render/MaterialModel.h"

#include <assimp/GltfMaterial.h>
#include <assimp/material.h>

#include <cmath>

namespace studio {

namespace {

constexpr std::int32_t kAlphaTestGreaterOrEqual = 6;

Rgb RgbOf(const aiColor4D& colour)
{
    return {CutToUnit(colour.r), CutToUnit(colour.g), CutToUnit(colour.b)};
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

// One of the older kind has gloss in place of roughness, and its colour elsewhere.
bool IsGlossy(const Values& values)
{
    return values.Has(AI_MATKEY_GLOSSINESS_FACTOR) && values.Has(AI_MATKEY_COLOR_SPECULAR);
}

float AlphaOf(const Values& values)
{
    return IsGlossy(values) ? values.Get(AI_MATKEY_COLOR_DIFFUSE, aiColor4D(1.0F)).a
                            : values.Get(AI_MATKEY_OPACITY, 1.0F);
}

void TakeAlpha(const Values& values, CorvexDB::udtMaterial& material)
{
    const std::string mode = values.Get(AI_MATKEY_GLTF_ALPHAMODE, aiString()).C_Str();
    const bool covers = mode != "MASK" && mode != "OPAQUE";
    const float alpha = covers ? CutToUnit(AlphaOf(values)) : 1.0F;
    const float through = CutToUnit(values.Get(AI_MATKEY_TRANSMISSION_FACTOR, 0.0F));
    material.Transparency = PercentOf(1.0F - alpha * (1.0F - through));
    if (mode == "MASK") {
        const float cutoff = CutToUnit(values.Get(AI_MATKEY_GLTF_ALPHACUTOFF, 0.5F));
        material.AlphaTest = kAlphaTestGreaterOrEqual;
        material.AlphaTestReference = static_cast<std::int32_t>(std::lround(255.0F * cutoff));
    }
}

// A metal-and-roughness material: its colours are light, ours are as displayed.
void TakePhysicalLook(const Values& values, CorvexDB::udtMaterial& material)
{
    const bool glossy = IsGlossy(values);
    const Rgb base = RgbOf(glossy ? values.Get(AI_MATKEY_COLOR_DIFFUSE, aiColor4D(1.0F))
                                  : values.Get(AI_MATKEY_BASE_COLOR, aiColor4D(1.0F)));
    const Rgb glow = RgbOf(values.Get(AI_MATKEY_COLOR_EMISSIVE, aiColor4D()));
    const Share emission = ShareOf(glow, base);
    material.Color = ColourOfLight(emission.exceeds ? glow : base);
    material.Emissive = PercentOf(EncodedFromLinear(emission.share));
    material.Specular =
        PercentOf(glossy ? values.Get(AI_MATKEY_GLOSSINESS_FACTOR, 1.0F)
                         : 1.0F - CutToUnit(values.Get(AI_MATKEY_ROUGHNESS_FACTOR, 1.0F)));
    material.RayTrace.Metallic = !glossy && values.Get(AI_MATKEY_METALLIC_FACTOR, 1.0F) >= 0.5F;
    material.RayTrace.Reflection =
        std::round(10.0F * CutToUnit(values.Get(AI_MATKEY_CLEARCOAT_FACTOR, 0.0F)));
}

void TakeClassicLook(const Values& values, CorvexDB::udtMaterial& material)
{
    const Rgb base = RgbOf(values.Get(AI_MATKEY_COLOR_DIFFUSE, aiColor4D(0.8F, 0.8F, 0.8F, 1)));
    const Rgb glow = RgbOf(values.Get(AI_MATKEY_COLOR_EMISSIVE, aiColor4D()));
    const Share emission = ShareOf(glow, base);
    material.Color = ColourOfDisplayed(emission.exceeds ? glow : base);
    material.Emissive = PercentOf(emission.share);
    const bool matte =
        values.Has(AI_MATKEY_SHININESS) && values.Get(AI_MATKEY_SHININESS, 1.0F) <= 0.0F;
    if (!matte) {
        material.Specular =
            PercentOf(Strongest(RgbOf(values.Get(AI_MATKEY_COLOR_SPECULAR, aiColor4D()))));
    }
}

std::string TextureFrom(const aiMaterial& source, std::initializer_list<aiTextureType> types)
{
    aiString path;
    for (const aiTextureType type : types) {
        if (source.GetTexture(type, 0, &path) == AI_SUCCESS && path.length > 0) {
            return path.C_Str();
        }
    }
    return {};
}

// A physical material's other images are of other kinds: directions, roughness, metal.
void TakeClassicImages(const aiMaterial& source, CorvexDB::udtMaterial& material)
{
    CorvexDB::TextureFiles& textures = material.Textures;
    textures.bump = TextureFrom(source, {aiTextureType_HEIGHT});
    textures.alpha = TextureFrom(source, {aiTextureType_OPACITY});
    if (material.Specular > 0) {
        textures.specular = TextureFrom(source, {aiTextureType_SPECULAR});
    }
}

}  // namespace

CorvexDB::udtMaterial MaterialFrom(const aiMaterial& source)
{
    const Values values(source);
    CorvexDB::udtMaterial material;
    material.Textures.primary =
        TextureFrom(source, {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE});
    if (values.Has(AI_MATKEY_BASE_COLOR)) {
        TakePhysicalLook(values, material);
    } else {
        TakeClassicLook(values, material);
        TakeClassicImages(source, material);
    }
    TakeAlpha(values, material);
    material.DoubleSided = values.Get(AI_MATKEY_TWOSIDED, 0) != 0;
    return material;
}

}  // namespace studio
