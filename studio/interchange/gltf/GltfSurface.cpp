#include "studio/interchange/gltf/GltfSurface.h"

#include "studio/interchange/Amounts.h"
#include "studio/interchange/TextureReference.h"
#include "studio/interchange/assimp/AssimpMaterial.h"

#include <assimp/GltfMaterial.h>
#include <assimp/material.h>

#include <QCoreApplication>
#include <QUrl>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kGltfNoLayer =
    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material");
constexpr const char* kGltfNoAmount =
    QT_TRANSLATE_NOOP("Interchange", "there is no such amount in a material");

struct IgnoredImage {
    aiTextureType type;
    unsigned int index;
    const char* term;
    const char* note;
};

constexpr std::array kIgnoredImages{
    IgnoredImage{aiTextureType_METALNESS, 0, "metallicRoughnessTexture", kGltfNoLayer},
    IgnoredImage{
        aiTextureType_NORMALS, 0, "normalTexture",
        QT_TRANSLATE_NOOP("Interchange", "it holds directions; a bump map here holds heights")},
    IgnoredImage{aiTextureType_LIGHTMAP, 0, "occlusionTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_SPECULAR, 0, "specularGlossinessTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_CLEARCOAT, 0, "clearcoatTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_CLEARCOAT, 1, "clearcoatRoughnessTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_CLEARCOAT, 2, "clearcoatNormalTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_SHEEN, 0, "sheenColorTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_TRANSMISSION, 0, "transmissionTexture", kGltfNoLayer},
    IgnoredImage{aiTextureType_TRANSMISSION, 1, "thicknessTexture", kGltfNoLayer},
};

struct IgnoredFactor {
    const char* key;
    const char* term;
};

constexpr std::array kIgnoredFactors{
    IgnoredFactor{"$clr.sheen.factor", "sheenColorFactor"},
    IgnoredFactor{"$mat.clearcoat.roughnessFactor", "clearcoatRoughnessFactor"},
    IgnoredFactor{"$mat.volume.thicknessFactor", "thicknessFactor"},
};

std::string FileIn(const aiMaterial& source, aiTextureType type, unsigned int index = 0)
{
    aiString path;
    const bool has = source.GetTexture(type, index, &path) == AI_SUCCESS;
    return has ? std::string(path.data, path.length) : std::string();
}

class GltfSurfaceTaking {
public:
    GltfSurfaceTaking(const aiMaterial& source, const std::string& folder, MaterialNotes notes)
        : m_source(source), m_folder(folder), m_notes(std::move(notes)),
          m_material(MaterialFrom(source))
    {
    }

    udtMaterial Take()
    {
        NoteSurface();
        NoteAlpha();
        NoteGlow();
        m_material.Textures = {};
        TakeBaseImage();
        NoteIgnored();
        return m_material;
    }

private:
    [[nodiscard]] std::optional<float> Number(const char* key) const
    {
        float value = 0.0F;
        return m_source.Get(key, 0, 0, value) == AI_SUCCESS ? std::optional(value) : std::nullopt;
    }

    [[nodiscard]] std::string File(aiTextureType type, unsigned int index = 0) const
    {
        return FileIn(m_source, type, index);
    }

    void NoteSurface()
    {
        if (Number("$mat.glossinessFactor") && Number("$clr.specular")) {
            m_notes.Mapped("diffuseFactor");
            m_notes.Approximated("glossinessFactor", kAsShine);
            m_notes.Dropped("specularFactor",
                            QT_TRANSLATE_NOOP("Interchange", "highlights are white"));
            return;
        }
        m_notes.Mapped("baseColorFactor");
        m_notes.Approximated("roughnessFactor", kAsShine);
        const float metallic = Number("$mat.metallicFactor").value_or(1.0F);
        const bool clear = metallic == 0.0F || metallic == 1.0F;
        m_notes.Add("metallicFactor", clear ? Outcome::Mapped : Outcome::Approximated,
                    clear ? ""
                          : QT_TRANSLATE_NOOP("Interchange", "a material is a metal or it is not"));
        if (m_material.RayTrace.Reflection > 0.0F) {
            m_notes.Approximated("clearcoatFactor",
                                 QT_TRANSLATE_NOOP("Interchange", "as a reflection"));
        }
        if (m_material.DoubleSided) {
            m_notes.Mapped("doubleSided");
        }
    }

    void NoteAlpha()
    {
        const bool tested = m_material.AlphaTest != 0;
        if (tested) {
            m_notes.Mapped("alphaCutoff");
        }
        if (m_material.Transparency > 0) {
            m_notes.Approximated(
                "alphaMode",
                QT_TRANSLATE_NOOP("Interchange", "as transparency, which leaves highlights"));
        }
        if (Number("$mat.transmission.factor").value_or(0.0F) > 0.0F) {
            m_notes.Approximated("transmissionFactor",
                                 QT_TRANSLATE_NOOP("Interchange", "as transparency"));
        }
    }

    void NoteGlow()
    {
        aiColor4D glow;
        const bool has = m_source.Get(AI_MATKEY_COLOR_EMISSIVE, glow) == AI_SUCCESS;
        const Rgb colour{glow.r, glow.g, glow.b};
        if (has && Strongest(colour) > 0.0F) {
            const bool own = OtherHue(colour, LightOf(m_material.Color));
            m_notes.Add(
                "emissiveFactor", own ? Outcome::Approximated : Outcome::Mapped,
                own ? QT_TRANSLATE_NOOP("Interchange", "a share of the material's one colour")
                    : "");
        }
        if (const std::string file = File(aiTextureType_EMISSIVE); !file.empty()) {
            const bool same = file == BaseFile();
            m_notes.Add("emissiveTexture", same ? Outcome::Mapped : Outcome::Dropped,
                        same ? "" : kGltfNoLayer);
        }
    }

    [[nodiscard]] std::string BaseFile() const { return BaseImageOf(m_source); }

    void TakeBaseImage()
    {
        const std::string file = BaseFile();
        if (file.empty()) {
            return;
        }
        if (!TakePlacement()) {
            m_notes.Approximated("KHR_texture_transform",
                                 QT_TRANSLATE_NOOP("Interchange", "images repeat alike both ways, "
                                                                  "in whole tiles, unturned"));
        }
        if (file.front() == '*') {
            return;
        }
        const FoundTexture found = FindImage(file);
        m_material.Textures.primary = found.path;
        if (found.exists) {
            m_notes.Mapped(kBaseImage);
        } else {
            m_notes.Approximated(kBaseImage,
                                 QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        }
    }

    /// Files name their images with or without escapes.
    [[nodiscard]] FoundTexture FindImage(const std::string& file) const
    {
        const FoundTexture plain = FindReferenced(file, m_folder);
        const QByteArray escaped = QByteArray::fromStdString(file);
        const QString decoded = QUrl::fromPercentEncoding(escaped);
        return plain.exists ? plain : FindReferenced(decoded.toStdString(), m_folder);
    }

    bool TakePlacement()
    {
        aiUVTransform transform;
        for (const aiTextureType type : {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE}) {
            if (m_source.Get(AI_MATKEY_UVTRANSFORM(type, 0), transform) == AI_SUCCESS) {
                const ImageWindow window{transform.mTranslation.x, transform.mTranslation.y,
                                         transform.mScaling.x, transform.mScaling.y};
                return PlaceWindow(TopDown(window), m_material) && transform.mRotation == 0.0F;
            }
        }
        return true;
    }

    void NoteIgnored()
    {
        for (const IgnoredImage& image : kIgnoredImages) {
            if (!File(image.type, image.index).empty()) {
                m_notes.Dropped(image.term, image.note);
            }
        }
        for (const IgnoredFactor& factor : kIgnoredFactors) {
            if (Number(factor.key).value_or(0.0F) != 0.0F) {
                m_notes.Dropped(factor.term, kGltfNoAmount);
            }
        }
    }

    static constexpr const char* kAsShine =
        QT_TRANSLATE_NOOP("Interchange", "a smooth surface shines: as specular");

    const aiMaterial& m_source;
    const std::string& m_folder;
    MaterialNotes m_notes;
    udtMaterial m_material;
};

}  // namespace

std::string BaseImageOf(const aiMaterial& source)
{
    const std::string file = FileIn(source, aiTextureType_BASE_COLOR);
    return file.empty() ? FileIn(source, aiTextureType_DIFFUSE) : file;
}

udtMaterial MaterialOfGltf(const aiMaterial& source, const std::string& folder, MaterialNotes notes)
{
    return GltfSurfaceTaking(source, folder, std::move(notes)).Take();
}

}  // namespace studio
