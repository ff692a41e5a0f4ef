#include "AssimpMaterial.h"

#include "Amounts.h"
#include "MaterialModel.h"

#include <assimp/material.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

using CorvexDB::udtMaterial;

Rgb RgbOf(const aiColor4D& colour)
{
    return {CutToUnit(colour.r), CutToUnit(colour.g), CutToUnit(colour.b)};
}

class AssimpMaterialTaking {
public:
    AssimpMaterialTaking(const aiMaterial& source, MaterialNotes& notes)
        : m_source(source), m_notes(notes)
    {
    }

    udtMaterial Take()
    {
        m_material.Textures.primary = TakeImage(aiTextureType_BASE_COLOR)
                                          .value_or(TakeImage(aiTextureType_DIFFUSE).value_or(""));
        if (HasPhysicalLook(m_source)) {
            TakePhysicalLook();
        } else {
            TakeClassicLook();
        }
        TakeTransparency();
        m_material.DoubleSided = Get(AI_MATKEY_TWOSIDED, 0) != 0;
        NoteIgnoredImages();
        return m_material;
    }

private:
    [[nodiscard]] bool Has(const char* key, unsigned int type, unsigned int index) const
    {
        const aiMaterialProperty* property = nullptr;
        return aiGetMaterialProperty(&m_source, key, type, index, &property) == AI_SUCCESS;
    }

    template <typename Value>
    [[nodiscard]] Value Get(const char* key, unsigned int type, unsigned int index,
                            Value otherwise) const
    {
        Value value = otherwise;
        return m_source.Get(key, type, index, value) == AI_SUCCESS ? value : otherwise;
    }

    void Note(const char* property, bool exact, const char* note)
    {
        m_notes.Add(property, exact ? Outcome::Mapped : Outcome::Approximated, exact ? "" : note);
    }

    std::optional<std::string> TakeImage(aiTextureType type)
    {
        aiString path;
        if (m_source.GetTexture(type, 0, &path) != AI_SUCCESS || path.length == 0) {
            return std::nullopt;
        }
        m_taken.push_back(type);
        return path.C_Str();
    }

    /// A glow stronger than its surface becomes the colour.
    Rgb TakeGlow(Rgb base, float (*shareOf)(float))
    {
        const Rgb glow = RgbOf(Get(AI_MATKEY_COLOR_EMISSIVE, aiColor4D()));
        const Share emission = ShareOf(glow, base);
        m_material.Emissive = PercentOf(shareOf(emission.share));
        m_notes.Mapped("diffuse colour");
        if (Strongest(glow) > 0.0F) {
            Note("emissive colour", !emission.exceeds && !emission.otherHue,
                 QT_TRANSLATE_NOOP("Interchange", "a share of the material's one colour"));
        }
        return emission.exceeds ? glow : base;
    }

    // A metal-and-roughness material: its colours are light, ours are as displayed.
    void TakePhysicalLook()
    {
        const Rgb base = RgbOf(Get(AI_MATKEY_BASE_COLOR, aiColor4D(1.0F)));
        m_material.Color = ColourOfLight(TakeGlow(base, EncodedFromLinear));
        m_material.Specular = PercentOf(1.0F - CutToUnit(Get(AI_MATKEY_ROUGHNESS_FACTOR, 1.0F)));
        m_notes.Approximated(
            "roughness", QT_TRANSLATE_NOOP("Interchange", "a smooth surface shines: as specular"));
        const float metallic = Get(AI_MATKEY_METALLIC_FACTOR, 1.0F);
        m_material.RayTrace.Metallic = metallic >= 0.5F;
        Note("metalness", metallic == 0.0F || metallic == 1.0F,
             QT_TRANSLATE_NOOP("Interchange", "a material is a metal or it is not"));
        m_material.RayTrace.Reflection =
            std::round(10.0F * CutToUnit(Get(AI_MATKEY_CLEARCOAT_FACTOR, 0.0F)));
    }

    void TakeClassicLook()
    {
        const Rgb base = RgbOf(Get(AI_MATKEY_COLOR_DIFFUSE, aiColor4D(0.8F, 0.8F, 0.8F, 1)));
        m_material.Color = ColourOfDisplayed(TakeGlow(base, [](float share) { return share; }));
        const Rgb shine = RgbOf(Get(AI_MATKEY_COLOR_SPECULAR, aiColor4D()));
        const bool matte = Has(AI_MATKEY_SHININESS) && Get(AI_MATKEY_SHININESS, 1.0F) <= 0.0F;
        if (!matte && Strongest(shine) > 0.0F) {
            m_material.Specular = PercentOf(Strongest(shine));
            Note("specular colour", IsGrey(shine),
                 QT_TRANSLATE_NOOP("Interchange", "highlights are white"));
        }
        // A physical material's other images are of other kinds: directions, roughness, metal.
        CorvexDB::TextureFiles& textures = m_material.Textures;
        textures.bump = TakeImage(aiTextureType_HEIGHT).value_or("");
        textures.alpha = TakeImage(aiTextureType_OPACITY).value_or("");
        if (m_material.Specular > 0) {
            textures.specular = TakeImage(aiTextureType_SPECULAR).value_or("");
        }
    }

    void TakeTransparency()
    {
        const float alpha = CutToUnit(Get(AI_MATKEY_OPACITY, 1.0F));
        const float through = CutToUnit(Get(AI_MATKEY_TRANSMISSION_FACTOR, 0.0F));
        m_material.Transparency = PercentOf(1.0F - alpha * (1.0F - through));
        if (m_material.Transparency > 0) {
            Note("opacity", through == 0.0F, QT_TRANSLATE_NOOP("Interchange", "as transparency"));
        }
    }

    void NoteIgnoredImages()
    {
        for (int type = aiTextureType_DIFFUSE; type < aiTextureType_UNKNOWN; ++type) {
            const auto kind = static_cast<aiTextureType>(type);
            if (m_source.GetTextureCount(kind) > 0 &&
                std::ranges::find(m_taken, kind) == m_taken.end()) {
                m_notes.Dropped(
                    std::string("image: ") + aiTextureTypeToString(kind),
                    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material"));
            }
        }
    }

    const aiMaterial& m_source;
    MaterialNotes& m_notes;
    udtMaterial m_material;
    std::vector<aiTextureType> m_taken;
};

}  // namespace

bool HasPhysicalLook(const aiMaterial& source)
{
    const aiMaterialProperty* base = nullptr;
    return aiGetMaterialProperty(&source, AI_MATKEY_BASE_COLOR, &base) == AI_SUCCESS;
}

udtMaterial MaterialFrom(const aiMaterial& source, MaterialNotes& notes)
{
    return AssimpMaterialTaking(source, notes).Take();
}

}  // namespace studio
