#include "GltfSurface.h"

#include "Amounts.h"
#include "ImportedModel.h"
#include "MaterialModel.h"
#include "TextureReference.h"

#include <QCoreApplication>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr std::int32_t kAlphaTestGreaterOrEqual = 6;
constexpr QLatin1String kTextureTransform("KHR_texture_transform");
constexpr QLatin1String kGloss("KHR_materials_pbrSpecularGlossiness");
constexpr const char* kGltfNoLayer =
    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material");
constexpr const char* kGltfNoAmount =
    QT_TRANSLATE_NOOP("Interchange", "there is no such amount in a material");

/// The members of extensions that are taken; all others are reported as dropped.
constexpr std::array kTakenOfExtensions{"clearcoatFactor",  "diffuseFactor",
                                        "diffuseTexture",   "emissiveStrength",
                                        "glossinessFactor", "transmissionFactor"};

float NumberIn(const QJsonValue& value, float otherwise)
{
    return static_cast<float>(value.toDouble(static_cast<double>(otherwise)));
}

Rgb ColourIn(const QJsonValue& value, Rgb otherwise)
{
    const QJsonArray numbers = value.toArray();
    const auto part = [&](qsizetype i) { return NumberIn(numbers.at(i), 0.0F); };
    return numbers.size() < 3 ? otherwise : Rgb{part(0), part(1), part(2)};
}

Rgb EachCutToUnit(Rgb colour)
{
    return {CutToUnit(colour.red), CutToUnit(colour.green), CutToUnit(colour.blue)};
}

bool SaysSomething(const QJsonValue& value)
{
    const QJsonArray numbers = value.toArray();
    return value.toDouble() != 0.0 ||
           std::ranges::any_of(numbers, [](auto number) { return number.toDouble() != 0.0; });
}

class GltfSurfaceTaking {
public:
    GltfSurfaceTaking(const QJsonObject& source, const GltfFile& file, MaterialNotes notes)
        : m_source(source), m_extensions(source[u"extensions"].toObject()),
          m_gloss(m_extensions[kGloss].toObject()),
          m_surface(source[u"pbrMetallicRoughness"].toObject()), m_file(file),
          m_notes(std::move(notes))
    {
    }

    GltfSurface Take()
    {
        m_base = EachCutToUnit(ColourIn(
            Glossy() ? m_gloss[u"diffuseFactor"] : m_surface[u"baseColorFactor"], kWhiteRgb));
        TakeGlow();
        TakeShine();
        TakeAlpha();
        TakeCoat();
        TakeBaseImage();
        NoteIgnored();
        return std::move(m_result);
    }

private:
    /// One of the older kind has gloss in place of roughness, and its colour elsewhere.
    [[nodiscard]] bool Glossy() const { return m_extensions.contains(kGloss); }

    udtMaterial& Material() { return m_result.material; }

    // Its colours are light, ours are as displayed.
    void TakeGlow()
    {
        const float strength =
            NumberIn(m_extensions[u"KHR_materials_emissive_strength"][u"emissiveStrength"], 1.0F);
        const Rgb glow = EachCutToUnit(ColourIn(m_source[u"emissiveFactor"], kBlack) * strength);
        const Share emission = ShareOf(glow, m_base);
        Material().Color = ColourOfLight(emission.exceeds ? glow : m_base);
        Material().Emissive = PercentOf(EncodedFromLinear(emission.share));
        m_notes.Mapped(Glossy() ? "diffuseFactor" : "baseColorFactor");
        if (Strongest(glow) > 0.0F) {
            const bool own = OtherHue(glow, LightOf(Material().Color));
            m_notes.Add("emissiveFactor", own ? Outcome::Approximated : Outcome::Mapped,
                        own ? QT_TRANSLATE_NOOP("Interchange", "a share of the material's one "
                                                               "colour")
                            : "");
        }
        if (strength != 1.0F) {
            m_notes.Approximated("emissiveStrength",
                                 QT_TRANSLATE_NOOP("Interchange", "cut at white"));
        }
        if (m_extensions.contains(u"KHR_materials_unlit")) {
            Material().Emissive = 100;
            m_notes.Mapped("KHR_materials_unlit",
                           QT_TRANSLATE_NOOP("Interchange", "unlit: emissive 100"));
        }
        NoteGlowImage();
    }

    void NoteGlowImage()
    {
        const QJsonObject texture = m_source[u"emissiveTexture"].toObject();
        if (texture.isEmpty()) {
            return;
        }
        const bool same = ImageOf(texture) == ImageOf(BaseTexture(m_source));
        m_notes.Add("emissiveTexture", same ? Outcome::Mapped : Outcome::Dropped,
                    same ? "" : kGltfNoLayer);
    }

    void TakeShine()
    {
        if (Glossy()) {
            Material().Specular = PercentOf(NumberIn(m_gloss[u"glossinessFactor"], 1.0F));
            m_notes.Approximated("glossinessFactor", kAsShine);
            return;
        }
        Material().Specular =
            PercentOf(1.0F - CutToUnit(NumberIn(m_surface[u"roughnessFactor"], 1.0F)));
        m_notes.Approximated("roughnessFactor", kAsShine);
        const float metallic = NumberIn(m_surface[u"metallicFactor"], 1.0F);
        Material().RayTrace.Metallic = metallic >= 0.5F;
        const bool clear = metallic == 0.0F || metallic == 1.0F;
        m_notes.Add("metallicFactor", clear ? Outcome::Mapped : Outcome::Approximated,
                    clear ? ""
                          : QT_TRANSLATE_NOOP("Interchange", "a material is a metal or it is not"));
    }

    void TakeAlpha()
    {
        const QString mode = m_source[u"alphaMode"].toString();
        const QJsonValue base =
            Glossy() ? m_gloss[u"diffuseFactor"] : m_surface[u"baseColorFactor"];
        const float alpha = mode == u"BLEND" ? CutToUnit(NumberIn(base[3], 1.0F)) : 1.0F;
        const float through = CutToUnit(
            NumberIn(m_extensions[u"KHR_materials_transmission"][u"transmissionFactor"], 0.0F));
        Material().Transparency = PercentOf(1.0F - alpha * (1.0F - through));
        if (mode == u"MASK") {
            const float cutoff = CutToUnit(NumberIn(m_source[u"alphaCutoff"], 0.5F));
            Material().AlphaTest = kAlphaTestGreaterOrEqual;
            Material().AlphaTestReference = static_cast<std::int32_t>(std::lround(255.0F * cutoff));
            m_notes.Mapped("alphaCutoff");
        }
        if (Material().Transparency > 0 && mode == u"BLEND") {
            m_notes.Approximated(
                "alphaMode",
                QT_TRANSLATE_NOOP("Interchange", "as transparency, which leaves highlights"));
        }
        if (through > 0.0F) {
            m_notes.Approximated("transmissionFactor",
                                 QT_TRANSLATE_NOOP("Interchange", "as transparency"));
        }
    }

    void TakeCoat()
    {
        const float coat =
            CutToUnit(NumberIn(m_extensions[u"KHR_materials_clearcoat"][u"clearcoatFactor"], 0.0F));
        Material().RayTrace.Reflection = std::round(10.0F * coat);
        if (Material().RayTrace.Reflection > 0.0F) {
            m_notes.Approximated("clearcoatFactor",
                                 QT_TRANSLATE_NOOP("Interchange", "as a reflection"));
        }
        Material().DoubleSided = m_source[u"doubleSided"].toBool();
        if (Material().DoubleSided) {
            m_notes.Mapped("doubleSided");
        }
    }

    /// Its number; -1 for none. Images of newer kinds are told of by extensions.
    [[nodiscard]] qint64 ImageOf(const QJsonObject& use) const
    {
        const QJsonObject texture = m_file.At("textures", use[u"index"]);
        if (texture.contains(u"source")) {
            return texture[u"source"].toInteger(-1);
        }
        for (const QJsonValue extension : texture[u"extensions"].toObject()) {
            if (extension[u"source"].isDouble()) {
                return extension[u"source"].toInteger(-1);
            }
        }
        return -1;
    }

    void TakeBaseImage()
    {
        const QJsonObject use = BaseTexture(m_source);
        if (use.isEmpty()) {
            return;
        }
        if (!TakePlacement(use[u"extensions"][kTextureTransform].toObject())) {
            m_notes.Approximated(kTextureTransform.data(),
                                 QT_TRANSLATE_NOOP("Interchange", "images repeat alike both ways, "
                                                                  "in whole tiles, unturned"));
        }
        const qint64 number = ImageOf(use);
        const QJsonObject image = m_file.At("images", number);
        const QString uri = image[u"uri"].toString();
        if (image.contains(u"bufferView") || uri.startsWith(u"data:")) {
            m_result.imageInside = number;
            return;
        }
        const FoundTexture found = FindImage(uri);
        Material().Textures.primary = uri.isEmpty() ? std::string() : found.path;
        if (found.exists && !uri.isEmpty()) {
            m_notes.Mapped(kBaseImage);
        } else {
            m_notes.Approximated(kBaseImage,
                                 QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        }
    }

    /// Files name their images with or without escapes.
    [[nodiscard]] FoundTexture FindImage(const QString& uri) const
    {
        const FoundTexture plain = FindReferenced(uri.toStdString(), m_file.Folder());
        const QString decoded = QUrl::fromPercentEncoding(uri.toUtf8());
        return plain.exists ? plain : FindReferenced(decoded.toStdString(), m_file.Folder());
    }

    bool TakePlacement(const QJsonObject& transform)
    {
        const QJsonArray offset = transform[u"offset"].toArray();
        const QJsonArray scale = transform[u"scale"].toArray();
        const ImageWindow window{NumberIn(offset.at(0), 0.0F), NumberIn(offset.at(1), 0.0F),
                                 NumberIn(scale.at(0), 1.0F), NumberIn(scale.at(1), 1.0F)};
        return PlaceWindow(window, Material()) && transform[u"rotation"].toDouble() == 0.0;
    }

    void NoteIgnored()
    {
        if (!m_source[u"normalTexture"].isUndefined()) {
            m_notes.Dropped(
                "normalTexture",
                QT_TRANSLATE_NOOP("Interchange",
                                  "it holds directions; a bump map here holds heights"));
        }
        if (!m_source[u"occlusionTexture"].isUndefined()) {
            m_notes.Dropped("occlusionTexture", kGltfNoLayer);
        }
        if (!m_surface[u"metallicRoughnessTexture"].isUndefined()) {
            m_notes.Dropped("metallicRoughnessTexture", kGltfNoLayer);
        }
        for (const QString& name : m_extensions.keys()) {
            NoteIgnoredOf(m_extensions[name].toObject());
        }
    }

    void NoteIgnoredOf(const QJsonObject& extension)
    {
        for (const QString& member : extension.keys()) {
            const std::string name = member.toStdString();
            if (std::ranges::find(kTakenOfExtensions, name) != kTakenOfExtensions.end()) {
                continue;
            }
            if (member.endsWith(u"Texture")) {
                m_notes.Dropped(name, kGltfNoLayer);
            } else if (SaysSomething(extension[member])) {
                m_notes.Dropped(name, Glossy() && name == "specularFactor" ? kWhiteHighlights
                                                                           : kGltfNoAmount);
            }
        }
    }

    static constexpr const char* kAsShine =
        QT_TRANSLATE_NOOP("Interchange", "a smooth surface shines: as specular");
    static constexpr const char* kWhiteHighlights =
        QT_TRANSLATE_NOOP("Interchange", "highlights are white");

    const QJsonObject& m_source;
    const QJsonObject m_extensions;
    const QJsonObject m_gloss;
    const QJsonObject m_surface;
    const GltfFile& m_file;
    MaterialNotes m_notes;
    Rgb m_base;
    GltfSurface m_result;
};

}  // namespace

QJsonObject BaseTexture(const QJsonObject& source)
{
    const QJsonObject base =
        source[u"pbrMetallicRoughness"].toObject()[u"baseColorTexture"].toObject();
    return base.isEmpty() ? source[u"extensions"][kGloss][u"diffuseTexture"].toObject() : base;
}

QString CoordinatesOf(const QJsonObject& source)
{
    const QJsonObject use = BaseTexture(source);
    const QJsonValue moved = use[u"extensions"][kTextureTransform][u"texCoord"];
    return QStringLiteral("TEXCOORD_%1")
        .arg((moved.isDouble() ? moved : use[u"texCoord"]).toInt(0));
}

GltfSurface SurfaceOfGltf(const QJsonObject& source, const GltfFile& file, MaterialNotes notes)
{
    return GltfSurfaceTaking(source, file, std::move(notes)).Take();
}

}  // namespace studio
